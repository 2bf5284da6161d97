#pragma once

#include "tests/support/PrivateBus.h"

#include <atomic>
#include <chrono>
#include <thread>

namespace palomet::test {

/// Asks a program for its status again and again, from a thread of its own, and keeps the longest time that an answer
/// took: its main thread answers, between one thing and the next. What those who take part in an answer (the main
/// thread, the bus, the asking thread, and the threads of both processes that carry messages) waited for a processor is
/// left out: that is the machine's load, not the program's work.
class StallProbe {
public:
    /// The program's session bus, which outlives this, and its process.
    StallProbe(const PrivateBus &bus, qint64 process);
    StallProbe(const StallProbe &) = delete;
    StallProbe &operator=(const StallProbe &) = delete;
    ~StallProbe() { end(); }

    /// No more questions. The longest time.
    std::chrono::milliseconds end();
    /// How often it was answered.
    [[nodiscard]] int answers() const { return m_answers; }

private:
    void ask(const QString &address, const QStringList &threads);

    std::atomic<bool> m_isEnding = false;
    std::atomic<int> m_answers = 0;
    std::atomic<std::chrono::nanoseconds> m_longest{};
    std::thread m_thread;
};

} // namespace palomet::test
