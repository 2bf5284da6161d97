#pragma once

#include <QDBusConnection>
#include <QProcess>

namespace palomet::test {

/// A session bus of the test's own; it ends with this object.
class PrivateBus {
public:
    PrivateBus();
    ~PrivateBus();

    /// As `DBUS_SESSION_BUS_ADDRESS` has it; empty when the bus could not be started.
    [[nodiscard]] const QString &address() const { return m_address; }

    /// Another connection to it, as another program would have.
    [[nodiscard]] QDBusConnection connect();

private:
    QProcess m_daemon;
    QString m_address;
    QStringList m_connections;
};

} // namespace palomet::test
