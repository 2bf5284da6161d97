#pragma once

#include "platform/dbus/DBusQuestion.h"

#include <QDBusServiceWatcher>
#include <QObject>
#include <QString>
#include <QVariant>

namespace palomet {

/// One of the desktop's settings, as the portal `org.freedesktop.portal.Settings` tells it and tells of its changes.
class PortalSetting final : public QObject {
    Q_OBJECT

public:
    PortalSetting(const QDBusConnection &bus, QString group, QString key);

    /// Whether the portal has answered, be it that there is no such setting, or has turned out not to exist.
    [[nodiscard]] bool isSettled() const { return m_isSettled; }

    /// Invalid as long as nothing is known of it.
    [[nodiscard]] const QVariant &value() const { return m_value; }

Q_SIGNALS:
    /// It has been settled, or has another value.
    void changed();

private Q_SLOTS:
    void settingChanged(const QDBusMessage &signal);

private:
    void answered(const QDBusMessage &reply);

    const QString m_group;
    const QString m_key;
    DBusQuestion m_question;
    QDBusServiceWatcher m_watcher;
    bool m_isSettled = false;
    QVariant m_value;
};

} // namespace palomet
