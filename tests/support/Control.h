#pragma once

#include <QProcess>

#include <chrono>

namespace palomet::test {

using namespace Qt::StringLiterals;

/// Another process that only sleeps, as a measure of time for a test: what a busy machine does to the tested program,
/// it does to this one as well. It starts to sleep when it is made.
class SleepingControl {
public:
    explicit SleepingControl(std::chrono::milliseconds duration) {
        m_process.start(u"sleep"_s, {QString::number(std::chrono::duration<double>(duration).count())});
        // Until then it is a copy of this process, and holds what this one has open.
        m_process.waitForStarted();
    }
    ~SleepingControl() {
        m_process.kill();
        m_process.waitForFinished();
    }

    [[nodiscard]] bool isAsleep() const { return m_process.state() != QProcess::NotRunning; }

private:
    QProcess m_process;
};

} // namespace palomet::test
