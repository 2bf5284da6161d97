#pragma once

#include "base/TrayHost.h"
#include "platform/dbus/DBusQuestion.h"

#include <QDBusServiceWatcher>
#include <QObject>

namespace palomet {

/// The host of StatusNotifierItems, as the session bus's `org.kde.StatusNotifierWatcher` knows of one. No bus, no
/// watcher: no host.
class StatusNotifierHost final : public QObject, public TrayHost {
    Q_OBJECT

public:
    explicit StatusNotifierHost(const QDBusConnection &bus);

    [[nodiscard]] Status status() const override { return m_status; }

private Q_SLOTS:
    void ask() { m_question.ask(); }

private:
    void answered(const QDBusMessage &reply);
    void settle(Status status);

    DBusQuestion m_question;
    QDBusServiceWatcher m_watcher;
    Status m_status = Status::NotDetermined;
};

} // namespace palomet
