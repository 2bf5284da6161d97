#pragma once

#include "app/RemoteControl.h"

#include <QDBusConnection>
#include <QDBusVirtualObject>

namespace palomet {

/// The door on the session bus: `org.freedesktop.Application`, whose actions are the commands, and the small interface
/// `org.palomet.Palomet.Control`, which tells the status:
///
///     Status() → s          the status as a JSON object
///     StatusChanged(s)      signal, the same at every change
class DBusRemoteService final : public QDBusVirtualObject, public RemoteService {
    Q_OBJECT

public:
    explicit DBusRemoteService(const QDBusConnection &bus);
    ~DBusRemoteService() override;

    [[nodiscard]] Claim claim() override;
    void publish(const RemoteStatus &status) override;

    [[nodiscard]] QString introspect(const QString &path) const override;
    bool handleMessage(const QDBusMessage &message, const QDBusConnection &connection) override;

private:
    bool handleApplication(const QDBusMessage &message);
    void answerLater(const QDBusMessage &message, const RemoteCommand &command);

    QDBusConnection m_bus;
    RemoteStatus m_status;
    bool m_isPrimary = false;
};

} // namespace palomet
