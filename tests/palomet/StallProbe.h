#pragma once

#include <QString>

#include <atomic>
#include <chrono>
#include <thread>

namespace palomet::test {

/// Asks a program for its status again and again, from a thread of its own, and keeps the longest time that an answer
/// took: its main thread answers, between one thing and the next.
class StallProbe {
public:
    /// The address of the program's session bus, and its process.
    StallProbe(const QString &bus, qint64 process);
    StallProbe(const StallProbe &) = delete;
    StallProbe &operator=(const StallProbe &) = delete;
    ~StallProbe() { end(); }

    /// No more questions. The longest time, without what the main thread waited for a processor.
    std::chrono::milliseconds end();
    /// How often it was answered.
    [[nodiscard]] int answers() const { return m_answers; }

private:
    void ask(const QString &bus, qint64 process);

    std::atomic<bool> m_isEnding = false;
    std::atomic<int> m_answers = 0;
    std::atomic<std::chrono::nanoseconds> m_longest{};
    std::thread m_thread;
};

} // namespace palomet::test
