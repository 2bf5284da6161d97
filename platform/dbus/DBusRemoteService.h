#pragma once

#include "command/RemoteService.h"

#include <QDBusConnection>
#include <QDBusVirtualObject>
#include <QTimer>

#include <chrono>
#include <functional>
#include <optional>

namespace palomet {

/// The door on the session bus: `org.freedesktop.Application`, whose actions are the commands, and the small interface
/// `org.palomet.Palomet.Control`, which tells the status:
///
///     Status() → s          the status as a JSON object
///     StatusChanged(s)      signal, the same at every change
///
/// When the bus ends it looks for another one, until there is one, and puts the door there.
class DBusRemoteService final : public QDBusVirtualObject, public RemoteService {
    Q_OBJECT

public:
    /// Another connection to the session's bus, which may be another bus; none while there is none.
    using Reconnect = std::function<std::optional<QDBusConnection>()>;

    explicit DBusRemoteService(const QDBusConnection &bus, Reconnect reconnect = {},
                               std::chrono::milliseconds retryEvery = std::chrono::seconds{2});
    ~DBusRemoteService() override;

    [[nodiscard]] Claim claim(const QString &activation) override;
    void publish(const RemoteStatus &status) override;

    [[nodiscard]] QString introspect(const QString &path) const override;
    bool handleMessage(const QDBusMessage &message, const QDBusConnection &connection) override;

private Q_SLOTS:
    void busHasEnded();

private:
    [[nodiscard]] Claim takeName();
    void leave();
    void lookForBus();
    bool handleApplication(const QDBusMessage &message);
    void answerLater(const QDBusMessage &message, const RemoteCommand &command);

    QDBusConnection m_bus;
    const Reconnect m_reconnect;
    QTimer m_retry;
    RemoteStatus m_status;
    bool m_isPrimary = false;
};

} // namespace palomet
