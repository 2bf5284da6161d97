#pragma once

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>

#include <functional>
#include <memory>

namespace palomet {

/// A method call that is made again and again, and whose newest answer alone counts. Nothing waits for it.
class DBusQuestion {
public:
    /// `answered` gets the reply, or the error, from the event loop; without a bus that is an error too.
    DBusQuestion(const QDBusConnection &bus, const QDBusMessage &call,
                 std::function<void(const QDBusMessage &)> answered);

    void ask();

    /// An answer that is still to come does not count any more.
    void withdraw() { m_pending.reset(); }

private:
    struct DeleteLater {
        void operator()(QObject *object) const {
            object->disconnect();
            object->deleteLater();
        }
    };

    QDBusConnection m_bus;
    const QDBusMessage m_call;
    const std::function<void(const QDBusMessage &)> m_answered;
    std::unique_ptr<QDBusPendingCallWatcher, DeleteLater> m_pending;
};

} // namespace palomet
