#include "base/QtScheduler.h"

#include <QTimer>

namespace palomet {

namespace {

class TimerPending final : public Scheduler::Pending {
public:
    TimerPending(std::chrono::milliseconds interval, bool isSingleShot, std::function<void()> action) {
        m_timer.setTimerType(Qt::PreciseTimer);
        m_timer.setSingleShot(isSingleShot);
        // The action may destroy this handle, and the function with it: run a copy.
        QObject::connect(&m_timer, &QTimer::timeout, &m_timer, [action = std::move(action)] {
            const auto running = action;
            running();
        });
        m_timer.start(interval);
    }

    [[nodiscard]] bool isActive() const override { return m_timer.isActive(); }

private:
    QTimer m_timer;
};

} // namespace

std::chrono::system_clock::time_point QtScheduler::now() const {
    return std::chrono::system_clock::now();
}

Scheduler::Handle QtScheduler::after(std::chrono::milliseconds delay, std::function<void()> action) {
    return std::make_unique<TimerPending>(delay, true, std::move(action));
}

Scheduler::Handle QtScheduler::every(std::chrono::milliseconds period, std::function<void()> action) {
    return std::make_unique<TimerPending>(period, false, std::move(action));
}

} // namespace palomet
