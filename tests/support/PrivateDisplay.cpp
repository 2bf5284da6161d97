#include "tests/support/PrivateDisplay.h"

#include "tests/support/Eventually.h"

#include <QProcessEnvironment>

namespace palomet::test {

using namespace Qt::StringLiterals;

PrivateDisplay::PrivateDisplay(const QString &screen) {
    m_server.setProcessChannelMode(QProcess::SeparateChannels);
    // A client's settings, a layout for instance, would be lost when the last client ends.
    m_server.start(u"Xvfb"_s,
                   {u"-displayfd"_s, u"1"_s, u"-noreset"_s, u"-nolisten"_s, u"tcp"_s, u"-screen"_s, u"0"_s, screen});
    eventually([&] { return m_server.state() == QProcess::NotRunning || m_server.canReadLine(); });
    const auto number = m_server.readLine().trimmed();
    if (!number.isEmpty())
        m_name = ':' + number;
}

PrivateDisplay::~PrivateDisplay() {
    end();
}

void PrivateDisplay::end() {
    m_server.terminate();
    m_server.waitForFinished();
}

QProcessEnvironment PrivateDisplay::environment() const {
    auto environment = QProcessEnvironment::systemEnvironment();
    environment.insert(u"DISPLAY"_s, QString::fromLatin1(m_name));
    environment.remove(u"WAYLAND_DISPLAY"_s);
    return environment;
}

QByteArray PrivateDisplay::run(const QString &program, const QStringList &arguments) const {
    QProcess process;
    process.setProcessEnvironment(environment());
    process.start(program, arguments);
    const bool isDone = eventually([&] { return process.state() == QProcess::NotRunning; });
    return isDone && process.exitStatus() == QProcess::NormalExit && process.exitCode() == 0
               ? process.readAllStandardOutput()
               : QByteArray();
}

} // namespace palomet::test
