#pragma once

#include "base/Wakeup.h"

#include <QObject>

#include <atomic>

namespace palomet::test {

/// A bell by the event loop's own queue; it allocates, which the real one must not.
class QueuedWakeup final : public Wakeup {
public:
    explicit QueuedWakeup(std::function<void()> onRaised)
        : m_onRaised(std::move(onRaised)) {}

    void raise() noexcept override {
        if (m_isRaised.exchange(true))
            return;
        QMetaObject::invokeMethod(
            &m_receiver,
            [this] {
                m_isRaised = false;
                m_onRaised();
            },
            Qt::QueuedConnection);
    }

    static std::unique_ptr<Wakeup> make(std::function<void()> onRaised) {
        return std::make_unique<QueuedWakeup>(std::move(onRaised));
    }

private:
    std::function<void()> m_onRaised;
    std::atomic<bool> m_isRaised{false};
    QObject m_receiver;
};

} // namespace palomet::test
