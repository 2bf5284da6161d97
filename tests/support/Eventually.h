#pragma once

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QEventLoop>

#include <chrono>

namespace palomet::test {

/// Runs the event loop until `holds`, or until `limit` has passed, which only a failing test ever sees.
template <typename Condition>
bool eventually(Condition holds, std::chrono::milliseconds limit = std::chrono::seconds{20}) {
    const QDeadlineTimer deadline(limit);
    while (!holds()) {
        if (deadline.hasExpired())
            return false;
        QCoreApplication::processEvents(QEventLoop::AllEvents | QEventLoop::WaitForMoreEvents, 20);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
    return true;
}

} // namespace palomet::test
