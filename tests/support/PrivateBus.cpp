#include "tests/support/PrivateBus.h"

#include "tests/support/Eventually.h"

#include <QFile>
#include <QUuid>

#include <signal.h>

namespace palomet::test {

namespace {

// A session's bus but for one thing: it starts no service, whatever is installed on this machine. %1 is its socket.
const QString settings = QStringLiteral(
    R"(<!DOCTYPE busconfig PUBLIC "-//freedesktop//DTD D-Bus Bus Configuration 1.0//EN"
 "http://www.freedesktop.org/standards/dbus/1.0/busconfig.dtd">
<busconfig>
  <type>session</type>
  <listen>unix:path=%1</listen>
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
    if (!file.open(QFile::WriteOnly) || file.write(settings.arg(m_folder.filePath(QStringLiteral("bus"))).toUtf8()) < 0)
        return;
    file.close();
    begin();
}

void PrivateBus::begin() {
    const QFile file(m_folder.filePath(QStringLiteral("bus.conf")));
    m_daemon.start(QStringLiteral("dbus-daemon"), {QStringLiteral("--config-file=") + file.fileName(),
                                                   QStringLiteral("--nofork"), QStringLiteral("--print-address=1")});
    eventually([&] { return m_daemon.state() == QProcess::NotRunning || m_daemon.canReadLine(); });
    // As a session has it: leave out the number that tells this bus from the next one at the same place.
    m_address = QString::fromLatin1(m_daemon.readLine().trimmed()).section(u',', 0, 0);
}

PrivateBus::~PrivateBus() {
    for (const auto &name : m_connections)
        QDBusConnection::disconnectFromBus(name);
    end();
}

void PrivateBus::end() {
    if (m_daemon.state() == QProcess::NotRunning)
        return;
    // One that hangs listens to nothing else.
    m_daemon.kill();
    m_daemon.waitForFinished();
}

void PrivateBus::beginAgain() {
    QFile::remove(m_folder.filePath(QStringLiteral("bus")));
    begin();
}

void PrivateBus::hang() {
    kill(static_cast<pid_t>(m_daemon.processId()), SIGSTOP);
}

QDBusConnection PrivateBus::connect() {
    const auto name = QUuid::createUuid().toString();
    m_connections += name;
    return QDBusConnection::connectToBus(m_address, name);
}

} // namespace palomet::test
