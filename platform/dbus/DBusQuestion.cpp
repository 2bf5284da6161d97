#include "platform/dbus/DBusQuestion.h"

#include <utility>

namespace palomet {

DBusQuestion::DBusQuestion(const QDBusConnection &bus, const QDBusMessage &call,
                           std::function<void(const QDBusMessage &)> answered)
    : m_bus(bus)
    , m_call(call)
    , m_answered(std::move(answered)) {}

void DBusQuestion::ask() {
    // A call on a connection that does not exist would never be answered.
    const auto call = m_bus.isConnected() ? m_bus.asyncCall(m_call)
                                          : QDBusPendingCall::fromError(QDBusError(QDBusError::Disconnected, {}));
    m_pending.reset(new QDBusPendingCallWatcher(call));
    QObject::connect(m_pending.get(), &QDBusPendingCallWatcher::finished, m_pending.get(), [this] {
        const auto reply = m_pending->reply();
        m_pending.reset();
        m_answered(reply);
    });
}

} // namespace palomet
