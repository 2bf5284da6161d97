#include "bench/soak/Stage.h"

#include "app/LogFile.h"
#include "bench/audio/link/SpokenClip.h"
#include "tests/support/Processes.h"

#include <QDBusReply>

#include <algorithm>
#include <cstdio>
#include <cstdlib>

namespace palomet::bench {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;
using test::eventually;

void require(bool holds, const char *what) {
    if (holds)
        return;
    std::fprintf(stderr, "soak: %s\n", what);
    std::exit(1);
}

void pass(std::chrono::milliseconds duration) {
    const QDeadlineTimer end(duration);
    eventually([&] { return end.hasExpired(); }, 2 * duration);
}

Stage::Stage() {
    const QDir resources(desktop.home.filePath(u"resources"_s));
    resources.mkpath(u"engine"_s);
    QFile::link(QStringLiteral(PALOMET_FAKE_BACKEND), resources.filePath(u"bun"_s));
    for (const auto &part : {u"Icons"_s, u"en.lproj"_s, u"pt-BR.lproj"_s})
        QFile::link(QStringLiteral(PALOMET_RESOURCES "/") + part, resources.filePath(part));
    sound.start();
    addDevices();
    desktop.tray.appear();
    m_clip = QString::fromLatin1(spokenClip(1).toBase64());
}

Stage::~Stage() {
    m_program.kill();
    m_program.waitForFinished();
}

void Stage::start() {
    auto environment = desktop.environment();
    environment.insert(u"PULSE_SERVER"_s, QString::fromStdString(sound.address()));
    environment.insert(u"PULSE_COOKIE"_s, sound.environment().value(u"PULSE_COOKIE"_s));
    environment.insert(u"PALOMET_RESOURCES"_s, desktop.home.filePath(u"resources"_s));
    m_program.setProcessEnvironment(environment);
    m_program.setProcessChannelMode(QProcess::ForwardedChannels);
    m_program.start(QStringLiteral(PALOMET_EXECUTABLE), QStringList());
    require(eventually([this] { return isHeard() && backends().size() == 1; }), "it does not begin");
}

void Stage::openWindow() {
    auto activate = QDBusMessage::createMethodCall(u"org.palomet.Palomet"_s, u"/org/palomet/Palomet"_s,
                                                   u"org.freedesktop.Application"_s, u"Activate"_s);
    activate.setArguments({QVariantMap()});
    require(m_bus.call(activate).type() == QDBusMessage::ReplyMessage, "the window does not open");
}

void Stage::end() {
    const auto all = backends();
    m_program.terminate();
    require(eventually([this] { return m_program.state() == QProcess::NotRunning; }), "it does not end");
    require(m_program.exitStatus() == QProcess::NormalExit && m_program.exitCode() == 0, "it does not end in order");
    for (const auto process : all)
        require(test::hasEnded(process), "a backend outlived the program");
}

void Stage::addDevices() {
    sound.addSpeakers(u"speakers"_s);
    sound.addMicrophone(u"microphone"_s, u"Microphone"_s);
    sound.control({u"set-default-sink"_s, u"speakers"_s});
    sound.setDefaultInput(u"microphone"_s);
}

QByteArray Stage::log() const {
    return test::contentOf(LogFile::pathBelow(desktop.home.path()));
}

QList<qint64> Stage::backends() const {
    return test::processesNamed("pronto", log());
}

QString Stage::state() const {
    const auto question = QDBusMessage::createMethodCall(u"org.palomet.Palomet"_s, u"/org/palomet/Palomet"_s,
                                                         u"org.palomet.Palomet.Control"_s, u"Status"_s);
    const QDBusReply<QString> json = m_bus.call(question);
    return QJsonDocument::fromJson(json.value().toUtf8()).object()[u"state"_s].toString();
}

bool Stage::isHeard() {
    const auto &received = backend.audio.received;
    return !received.empty() && !received.back().audio.isNull() &&
           received.back().connection == backend.audio.connections &&
           std::chrono::steady_clock::now() - received.back().arrived < 200ms;
}

void Stage::forget() {
    backend.audio.received.clear();
    backend.http.forget();
}

void Stage::speak() {
    const int id = ++m_clips;
    backend.audio.send(u"{\"type\":\"play\",\"id\":%1,\"data\":\"%2\"}"_s.arg(id).arg(m_clip));
    const auto isReported = [&] {
        const auto played = backend.audio.played();
        return std::find(played.begin(), played.end(), id) != played.end();
    };
    require(eventually(isReported), "a clip is not reported");
}

} // namespace palomet::bench
