#pragma once

#include "platform/dbus/DBusQuestion.h"

#include <QMap>
#include <QObject>
#include <QString>
#include <QStringList>

namespace palomet {

/// The desktop's permissions for one device, by application.
class PermissionStore final : public QObject {
    Q_OBJECT

public:
    PermissionStore(const QDBusConnection &bus, QString device);

    /// Whether the store has answered, be it that nothing is kept of this device, or has turned out not to exist.
    [[nodiscard]] bool isSettled() const { return m_isSettled; }

    /// "yes", "no" or "ask"; empty when nothing is kept of that application.
    [[nodiscard]] QString permission(const QString &application) const;

Q_SIGNALS:
    /// It has been settled, or something was changed.
    void changed();

private Q_SLOTS:
    void storeChanged(const QDBusMessage &signal);

private:
    void answered(const QDBusMessage &reply);
    void settle(const QVariant &permissions);

    const QString m_device;
    DBusQuestion m_question;
    bool m_isSettled = false;
    QMap<QString, QStringList> m_permissions;
};

} // namespace palomet
