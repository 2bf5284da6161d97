#pragma once

namespace palomet::test {

/// Counts, on the thread that holds it, every call that real-time code must not make: allocating, freeing and locking
/// a mutex. Works in programs that have RealTimeWatch.cpp among their sources; under a sanitizer mutexes are not seen.
class RealTimeWatch {
public:
    RealTimeWatch();
    RealTimeWatch(const RealTimeWatch &) = delete;
    RealTimeWatch &operator=(const RealTimeWatch &) = delete;
    ~RealTimeWatch();

    [[nodiscard]] static int offences();
};

} // namespace palomet::test
