#pragma once

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QEventLoop>
#include <QTimer>

#include <chrono>

namespace palomet::test {

/// Runs the event loop until `holds`, or until `limit` has passed, which only a failing test ever sees.
template <typename Condition>
bool eventually(Condition holds, std::chrono::milliseconds limit = std::chrono::seconds{20}) {
    const QDeadlineTimer deadline(limit);
    // Another thread's work is no event: look again every few milliseconds.
    QTimer glance;
    glance.start(std::chrono::milliseconds{5});
    while (!holds()) {
        if (deadline.hasExpired())
            return false;
        QCoreApplication::processEvents(QEventLoop::AllEvents | QEventLoop::WaitForMoreEvents);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
    return true;
}

} // namespace palomet::test
