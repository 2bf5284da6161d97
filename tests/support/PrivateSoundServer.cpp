#include "tests/support/PrivateSoundServer.h"

#include "tests/support/Eventually.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QRandomGenerator>
#include <QStandardPaths>

#include <sys/prctl.h>

#include <algorithm>
#include <csignal>
#include <stdexcept>

namespace palomet::test {

using namespace Qt::StringLiterals;

void EndProcess::operator()(QProcess *process) const {
    process->kill();
    process->waitForFinished();
    delete process;
}

bool PrivateSoundServer::isInstalled(Kind kind) {
    const auto programs = kind == Kind::PulseAudio ? QStringList{u"pulseaudio"_s, u"pactl"_s}
                                                   : QStringList{u"pipewire"_s, u"wireplumber"_s, u"pipewire-pulse"_s,
                                                                 u"dbus-daemon"_s, u"pactl"_s};
    return std::all_of(programs.begin(), programs.end(),
                       [](const auto &program) { return !QStandardPaths::findExecutable(program).isEmpty(); });
}

PrivateSoundServer::PrivateSoundServer(Kind kind)
    : m_kind(kind)
    , m_environment(QProcessEnvironment::systemEnvironment()) {
    if (!m_folder.isValid())
        throw std::runtime_error("no folder for a private sound server");
    for (const auto &name : {"HOME", "XDG_RUNTIME_DIR", "XDG_CONFIG_HOME", "XDG_STATE_HOME", "XDG_DATA_HOME"})
        m_environment.insert(QString::fromLatin1(name), m_folder.path());
    m_environment.insert(u"PULSE_RUNTIME_PATH"_s, file(u"pulse"_s));
    m_environment.insert(u"PULSE_COOKIE"_s, file(u"cookie"_s));
    m_environment.insert(u"PULSE_SERVER"_s, QString::fromStdString(address()));
    m_environment.insert(u"DBUS_SESSION_BUS_ADDRESS"_s, u"unix:path="_s + file(u"bus"_s));
    m_environment.remove(u"DISPLAY"_s);
    m_environment.remove(u"WAYLAND_DISPLAY"_s);
    // Bluetooth would have the session manager ask logind, without which it ends: not every machine runs one.
    write(u"wireplumber/bluetooth.lua.d/51-none.lua"_s, "bluez_monitor.enabled = false\n");
    write(u"wireplumber/wireplumber.conf.d/51-none.conf"_s,
          "wireplumber.profiles = { main = { monitor.bluez = disabled, support.logind = disabled } }\n");
    // The library in this process leaves its cookie there as well.
    qputenv("PULSE_COOKIE", QFile::encodeName(file(u"cookie"_s)));
}

PrivateSoundServer::~PrivateSoundServer() {
    kill();
}

void PrivateSoundServer::write(const QString &name, const QByteArray &content) const {
    QFile written(file(name));
    if (!QDir().mkpath(QFileInfo(written).path()) || !written.open(QFile::WriteOnly) || written.write(content) < 0)
        throw std::runtime_error("a private sound server cannot be configured");
}

std::string PrivateSoundServer::address() const {
    return "unix:" + file(u"pulse/native"_s).toStdString();
}

std::string PrivateSoundServer::addressForStrangers() {
    for (int attempt = 0;; ++attempt) {
        const auto port = QString::number(QRandomGenerator::global()->bounded(20'000, 60'000));
        try {
            loadModule({u"module-native-protocol-tcp"_s, u"listen=127.0.0.1"_s, u"port="_s + port,
                        u"auth-cookie="_s + file(u"cookie-of-others"_s)});
            return "tcp:127.0.0.1:" + port.toStdString();
        } catch (const std::runtime_error &) {
            // Somebody has that port.
            if (attempt == 10)
                throw;
        }
    }
}

void PrivateSoundServer::letStrangersIn() const {
    qputenv("PULSE_COOKIE", QFile::encodeName(file(u"cookie-of-others"_s)));
}

QProcessEnvironment PrivateSoundServer::environment() const {
    return m_environment;
}

OwnedProcess PrivateSoundServer::launch(const QString &program, const QStringList &arguments) const {
    OwnedProcess process(new QProcess);
    process->setProcessEnvironment(m_environment);
    process->setProcessChannelMode(QProcess::MergedChannels);
    process->setStandardOutputFile(file(u"log"_s), QIODevice::Append);
    process->setChildProcessModifier([] { prctl(PR_SET_PDEATHSIG, SIGKILL); });
    process->start(program, arguments);
    if (!process->waitForStarted())
        throw std::runtime_error(program.toStdString() + " does not start");
    return process;
}

void PrivateSoundServer::serve(const QString &program, const QStringList &arguments) {
    m_processes.push_back(launch(program, arguments));
}

OwnedProcess PrivateSoundServer::play(const QString &sink, const std::vector<float> &samples,
                                      const QString &channels) const {
    auto player = launch(u"pacat"_s,
                         {u"--playback"_s, u"--raw"_s, u"--format=float32ne"_s,
                          u"--channels="_s + QString::number(channels.count(u',') + 1), u"--channel-map="_s + channels,
                          u"--rate=48000"_s, u"--latency-msec=50"_s, u"--device="_s + sink});
    player->write(reinterpret_cast<const char *>(samples.data()), static_cast<qint64>(samples.size() * sizeof(float)));
    player->closeWriteChannel();
    return player;
}

OwnedProcess PrivateSoundServer::playFile(const QString &sink, const QString &path) const {
    return launch(u"paplay"_s, {u"--device="_s + sink, path});
}

OwnedProcess PrivateSoundServer::setPeriod(const QString &sink, int frames) const {
    if (m_kind == Kind::PipeWire) {
        auto metadata = launch(u"pw-metadata"_s,
                               {u"-n"_s, u"settings"_s, u"0"_s, u"clock.force-quantum"_s, QString::number(frames)});
        metadata->waitForFinished();
        return metadata;
    }
    return launch(u"pacat"_s,
                  {u"--playback"_s, u"--raw"_s, u"--rate=48000"_s, u"--latency-msec="_s + QString::number(frames / 48),
                   u"--device="_s + sink, u"/dev/zero"_s});
}

void PrivateSoundServer::start() {
    QFile::remove(file(u"log"_s));
    switch (m_kind) {
    case Kind::PulseAudio:
        serve(u"pulseaudio"_s, {u"-n"_s, u"--daemonize=no"_s, u"--exit-idle-time=-1"_s, u"--use-pid-file=no"_s, u"-L"_s,
                                u"module-native-protocol-unix socket="_s + file(u"pulse/native"_s)});
        break;
    case Kind::PipeWire:
        // It names its address once it listens there; the session manager ends where nothing does.
        serve(u"dbus-daemon"_s,
              {u"--session"_s, u"--nofork"_s, u"--address=unix:path="_s + file(u"bus"_s), u"--print-address=1"_s});
        if (!eventually([this] { return said().find("unix:path=") != std::string::npos; }))
            throw std::runtime_error("the bus does not come up: " + said());
        serve(u"pipewire"_s, {});
        if (!eventually([this] { return QFile::exists(file(u"pipewire-0"_s)); }))
            throw std::runtime_error("PipeWire does not come up: " + said());
        serve(u"wireplumber"_s, {});
        serve(u"pipewire-pulse"_s, {});
        break;
    }
    const bool answers = eventually([this] { return tryToControl({u"info"_s}).has_value(); });
    if (!answers)
        throw std::runtime_error("the sound server does not answer: " + said());
}

void PrivateSoundServer::signal(int number) const {
    for (const auto &process : m_processes) {
        if (process->processId() > 0)
            ::kill(static_cast<pid_t>(process->processId()), number);
    }
}

void PrivateSoundServer::kill() {
    signal(SIGKILL);
    m_processes.clear();
    for (const auto &socket : {u"pulse/native"_s, u"pipewire-0"_s, u"bus"_s})
        QFile::remove(file(socket));
}

void PrivateSoundServer::freeze() {
    signal(SIGSTOP);
}

void PrivateSoundServer::thaw() {
    signal(SIGCONT);
}

std::optional<QString> PrivateSoundServer::tryToControl(const QStringList &arguments) const {
    QProcess pactl;
    pactl.setProcessEnvironment(m_environment);
    pactl.start(u"pactl"_s, arguments);
    if (!pactl.waitForFinished() || pactl.exitCode() != 0)
        return std::nullopt;
    return QString::fromUtf8(pactl.readAllStandardOutput()).trimmed();
}

QString PrivateSoundServer::control(const QStringList &arguments) const {
    if (const auto answer = tryToControl(arguments))
        return *answer;
    throw std::runtime_error("pactl " + arguments.join(u' ').toStdString() + " failed: " + said());
}

int PrivateSoundServer::loadModule(const QStringList &arguments) {
    return control(QStringList{u"load-module"_s} + arguments).toInt();
}

void PrivateSoundServer::unloadModule(int module) {
    control({u"unload-module"_s, QString::number(module)});
}

static QStringList layout(QStringView channels) {
    return {u"channels="_s + QString::number(channels.count(u',') + 1), u"channel_map="_s + channels.toString()};
}

int PrivateSoundServer::addSpeakers(const QString &name, QStringView channels) {
    auto arguments = QStringList{u"module-null-sink"_s, u"sink_name="_s + name, u"rate=48000"_s} + layout(channels);
    // Else it starts with two seconds in one block, whatever its client wants.
    if (m_kind == Kind::PulseAudio)
        arguments += u"norewinds=1"_s;
    return loadModule(arguments);
}

int PrivateSoundServer::addMicrophone(const QString &name, const QString &description, QStringView channels) {
    const auto feed = name + u"-feed"_s;
    addSpeakers(feed, channels);
    const QStringList arguments{u"module-remap-source"_s, u"master="_s + feed + u".monitor"_s, u"source_name="_s + name,
                                u"source_properties=\"device.description='"_s + description + u"'\""_s};
    const int module = loadModule(arguments + layout(channels));
    const bool isThere = eventually([&] {
        return control({u"list"_s, u"short"_s, u"sources"_s}).contains(u'\t' + name + u'\t');
    });
    if (!isThere)
        throw std::runtime_error("the microphone does not appear: " + said());
    return module;
}

void PrivateSoundServer::setDefaultInput(const QString &source) {
    // PipeWire refuses until its session manager is up, takes its time afterwards, and now and then misses a wish. The
    // same wish is no news to it: ask for what is the default in between.
    const bool isSet = eventually([&] {
        if (!tryToControl({u"set-default-source"_s, source}))
            return false;
        if (eventually([&] { return defaultInput() == source; }, std::chrono::seconds{2}))
            return true;
        (void)tryToControl({u"set-default-source"_s, defaultInput()});
        return false;
    });
    if (!isSet)
        throw std::runtime_error("the default input cannot be set: " + said());
}

QString PrivateSoundServer::defaultInput() const {
    return control({u"get-default-source"_s});
}

std::string PrivateSoundServer::said() const {
    QFile log(file(u"log"_s));
    return log.open(QIODevice::ReadOnly) ? log.readAll().toStdString() : std::string{};
}

} // namespace palomet::test
