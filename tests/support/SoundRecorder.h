#pragma once

#include "platform/pulse/PulseHandles.h"
#include "platform/pulse/PulseMainloop.h"

#include <atomic>
#include <chrono>
#include <cstddef>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace palomet::test {

/// Records a source of a sound server, a monitor say, at 48 kHz mono, and knows when each sample sounded. Main thread;
/// it returns from its constructor once samples arrive, and throws std::runtime_error when none do.
class SoundRecorder {
public:
    /// Time as `pa_rtclock_now` tells it, which is the steady clock's.
    using Time = std::chrono::microseconds;

    SoundRecorder(const std::string &server, const std::string &source);
    ~SoundRecorder();

    [[nodiscard]] std::size_t count() const { return m_count; }
    [[nodiscard]] std::vector<float> samples() const;
    /// When the sample with this index sounded, to a millisecond; one that has been recorded.
    [[nodiscard]] Time timeOf(std::size_t index) const;
    /// The first and the last sample louder than `threshold`, from `start` on.
    [[nodiscard]] std::optional<std::size_t> firstLoud(float threshold, std::size_t start = 0) const;
    [[nodiscard]] std::optional<std::size_t> lastLoud(float threshold, std::size_t start = 0) const;

private:
    void take(pa_stream *stream);

    PulseMainloop m_mainloop;
    PulseContext m_context;
    PulseStream m_stream;
    std::atomic<std::size_t> m_count{0};
    std::vector<float> m_samples;           ///< Under the main loop's lock.
    std::map<std::size_t, Time> m_arrivals; ///< By the number of samples that there were then. Under the lock.
};

} // namespace palomet::test
