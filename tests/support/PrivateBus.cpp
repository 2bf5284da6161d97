#include "tests/support/PrivateBus.h"

#include "tests/support/Eventually.h"

#include <QUuid>

namespace palomet::test {

PrivateBus::PrivateBus() {
    m_daemon.start(QStringLiteral("dbus-daemon"), {QStringLiteral("--session"), QStringLiteral("--nofork"),
                                                   QStringLiteral("--nopidfile"), QStringLiteral("--print-address=1")});
    eventually([&] { return m_daemon.state() == QProcess::NotRunning || m_daemon.canReadLine(); });
    m_address = QString::fromLatin1(m_daemon.readLine().trimmed());
}

PrivateBus::~PrivateBus() {
    for (const auto &name : m_connections)
        QDBusConnection::disconnectFromBus(name);
    m_daemon.terminate();
    m_daemon.waitForFinished();
}

QDBusConnection PrivateBus::connect() {
    const auto name = QUuid::createUuid().toString();
    m_connections += name;
    return QDBusConnection::connectToBus(m_address, name);
}

} // namespace palomet::test
