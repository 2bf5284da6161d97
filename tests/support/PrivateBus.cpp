#include "tests/support/PrivateBus.h"

#include "tests/support/Eventually.h"

#include <QFile>
#include <QUuid>

namespace palomet::test {

namespace {

// A session's bus but for one thing: it starts no service, whatever is installed on this machine.
const QByteArray settings(
    R"(<!DOCTYPE busconfig PUBLIC "-//freedesktop//DTD D-Bus Bus Configuration 1.0//EN"
 "http://www.freedesktop.org/standards/dbus/1.0/busconfig.dtd">
<busconfig>
  <type>session</type>
  <listen>unix:tmpdir=/tmp</listen>
  <policy context="default">
    <allow send_destination="*" eavesdrop="true"/>
    <allow eavesdrop="true"/>
    <allow own="*"/>
  </policy>
</busconfig>
)");

} // namespace

PrivateBus::PrivateBus() {
    QFile file(m_folder.filePath(QStringLiteral("bus.conf")));
    if (!file.open(QFile::WriteOnly) || file.write(settings) != settings.size())
        return;
    file.close();
    m_daemon.start(QStringLiteral("dbus-daemon"), {QStringLiteral("--config-file=") + file.fileName(),
                                                   QStringLiteral("--nofork"), QStringLiteral("--print-address=1")});
    eventually([&] { return m_daemon.state() == QProcess::NotRunning || m_daemon.canReadLine(); });
    m_address = QString::fromLatin1(m_daemon.readLine().trimmed());
}

PrivateBus::~PrivateBus() {
    for (const auto &name : m_connections)
        QDBusConnection::disconnectFromBus(name);
    end();
}

void PrivateBus::end() {
    m_daemon.terminate();
    m_daemon.waitForFinished();
}

QDBusConnection PrivateBus::connect() {
    const auto name = QUuid::createUuid().toString();
    m_connections += name;
    return QDBusConnection::connectToBus(m_address, name);
}

} // namespace palomet::test
