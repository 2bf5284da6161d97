#pragma once

#include <QDBusConnection>
#include <QProcess>
#include <QTemporaryDir>

namespace palomet::test {

/// A session bus of the test's own; it ends with this object. Only who connects to it is there: no service is started
/// by being called.
class PrivateBus {
public:
    PrivateBus();
    ~PrivateBus();

    /// As `DBUS_SESSION_BUS_ADDRESS` has it; empty when the bus could not be started.
    [[nodiscard]] const QString &address() const { return m_address; }

    [[nodiscard]] qint64 processId() const { return m_daemon.processId(); }

    /// Ends it under everybody who is connected.
    void end();

    /// Starts another one at the same address, once it was ended.
    void beginAgain();

    /// It takes connections and says nothing any more, until it ends.
    void hang();

    /// Another connection to it, as another program would have.
    [[nodiscard]] QDBusConnection connect();

private:
    void begin();

    QTemporaryDir m_folder;
    QProcess m_daemon;
    QString m_address;
    QStringList m_connections;
};

} // namespace palomet::test
