#include "app/doctorMain.h"

#include "app/Doctor.h"
#include "app/KeyBindings.h"
#include "app/LogFile.h"
#include "app/Resources.h"
#include "audio/EchoCanceller.h"
#include "base/QtScheduler.h"
#include "platform/dbus/DBusRemoteClient.h"
#include "platform/desktop/DesktopMicrophonePermission.h"
#include "platform/desktop/StatusNotifierHost.h"
#include "platform/portal/hasGlobalShortcuts.h"
#include "platform/posix/KernelSocketOwner.h"
#include "platform/posix/ProcPortHolder.h"
#include "platform/posix/Terminal.h"
#include "platform/pulse/PulseSoundServer.h"
#include "platform/x11/X11Connection.h"
#include "platform/x11/X11HotKeyGrabber.h"
#include "platform/x11/X11KeyboardLayout.h"
#include "ui/localization/Localization.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QProcess>
#include <QProcessEnvironment>
#include <QSettings>

#include <algorithm>
#include <cstdio>

namespace palomet {

using namespace Qt::StringLiterals;

namespace {

constexpr quint16 backendPort = 4780;

void print(const QString &line) {
    std::puts(line.toLocal8Bit().constData());
    std::fflush(stdout);
}

/// A bar that rewrites its own line.
void showLevel(std::optional<int> level) {
    if (!isTerminal(stdout))
        return;
    constexpr int width = 30;
    constexpr int floor = -60;
    if (level) {
        const int filled = std::clamp((*level - floor) * width / -floor, 0, width);
        const auto bar = QString(filled, u'#') + QString(width - filled, u'.');
        std::printf("\r    [%s] %4d dB ", bar.toLatin1().constData(), *level);
    } else {
        std::printf("\r%*s\r", width + 20, "");
    }
    std::fflush(stdout);
}

/// Whether the file could be written, without touching it.
bool isWritable(const QString &path) {
    QFileInfo info(path);
    if (info.exists())
        return info.isFile() && info.isWritable();
    while (!info.exists() && !info.isRoot())
        info = QFileInfo(info.path());
    return info.isDir() && info.isWritable();
}

void lookAtInstance(Examination &found, const QDBusConnection &bus) {
    found.hasSessionBus = bus.isConnected();
    if (!found.hasSessionBus)
        return;
    DBusRemoteClient client(bus);
    const auto status = client.status();
    if (status)
        found.status = *status;
    if (status)
        found.instance = Examination::Instance::Running;
    else if (!client.waitUntilGone(std::chrono::milliseconds{0}))
        found.instance = Examination::Instance::Silent;
}

void lookAtFiles(Examination &found) {
    found.resources = resourceFolder(QCoreApplication::applicationDirPath());
    const auto isThere = [&](const QString &path) {
        return found.resources && QFileInfo(*found.resources + path).isFile();
    };
    found.hasTexts = isThere(u"/en.lproj/strings.json"_s);
    found.hasEngine = isThere(u"/engine/src/main.ts"_s);
    found.log = LogFile::pathBelow(QDir::homePath());
    found.isLogWritable = isWritable(found.log);
    found.wantedLanguages = Localization::preferredLanguages();
    Localization::load(found.resources.value_or(QString()), found.wantedLanguages);
    found.language = Localization::language();
}

/// Tries the listen key only where no running instance can hold it.
void lookAtKeys(Examination &found, const QDBusConnection &bus, X11Connection *x11) {
    const QSettings settings(QSettings::NativeFormat, QSettings::UserScope, u"palomet"_s, u"palomet"_s);
    const auto listen = Shortcuts::storedListen(settings);
    std::unique_ptr<KeyboardLayout> layout = std::make_unique<NoKeyboardLayout>();
    if (x11 != nullptr)
        layout = std::make_unique<X11KeyboardLayout>(*x11);
    found.listenKey = KeyBindings::keySequence(listen, *layout).toString();

    if (qEnvironmentVariable("XDG_SESSION_TYPE") == "wayland"_L1) {
        found.hotKeyRoute = Examination::HotKeyRoute::Portal;
        found.isPortalThere = hasGlobalShortcuts(bus);
    } else if (x11 != nullptr) {
        found.hotKeyRoute = Examination::HotKeyRoute::X11;
        if (found.instance == Examination::Instance::Absent) {
            X11HotKeyGrabber grabber(*x11);
            found.key = grabber.grab(1, listen.keyCode, listen.carbonModifiers()) ? Examination::Key::Free
                                                                                  : Examination::Key::Taken;
        }
    }
    if (x11 != nullptr)
        found.stripRoute = found.hotKeyRoute == Examination::HotKeyRoute::Portal ? Examination::StripRoute::XWayland
                                                                                 : Examination::StripRoute::X11;
}

} // namespace

int runDoctor(int argumentCount, char **arguments) {
    const QCoreApplication application(argumentCount, arguments);
    const auto bus = QDBusConnection::sessionBus();
    Examination found;
    lookAtFiles(found);

    // It tells its version while the rest is looked at.
    QProcess runtime;
    runtime.start(found.resources.value_or(QString()) + u"/bun"_s, {u"--version"_s});
    QString version;
    QObject::connect(&runtime, &QProcess::finished, &runtime, [&](int code, QProcess::ExitStatus status) {
        if (code == 0 && status == QProcess::NormalExit)
            version = u"bun "_s + QString::fromUtf8(runtime.readAllStandardOutput()).trimmed();
    });

    QProcess engine;
    auto environment = QProcessEnvironment::systemEnvironment();
    environment.insert(u"PALOMET_LANGUAGES"_s, found.wantedLanguages.join(u','));
    engine.setProcessEnvironment(environment);
    std::optional<Examination::Hearing> hearing;
    if (found.hasEngine)
        engine.start(*found.resources + u"/bun"_s, {*found.resources + u"/engine/src/command.ts"_s, u"hearing"_s});
    QObject::connect(&engine, &QProcess::finished, &engine, [&](int code, QProcess::ExitStatus status) {
        const auto text = QString::fromUtf8(engine.readAllStandardOutput()).trimmed();
        // Another engine than the bundled one has nothing to tell.
        hearing = {.isDeaf = status == QProcess::NormalExit && code == 1, .text = text};
    });

    lookAtInstance(found, bus);
    const auto x11 = X11Connection::open();
    lookAtKeys(found, bus, x11.get());
    found.port = procPortHolder(backendPort);
    found.portOwner = KernelSocketOwner()(backendPort, 0);
    if (const auto canceller = EchoCanceller::create())
        found.echoCanceller = (*canceller)->state().library;

    QtScheduler scheduler;
    DesktopMicrophonePermission permission(bus, u"org.palomet.Palomet"_s, scheduler);
    StatusNotifierHost tray(bus);
    PulseSoundServer sound(scheduler);
    sound.onAccessDenied = [&] { permission.soundServerRefused(); };
    sound.onAccessGranted = [&] { permission.soundServerGranted(); };
    Doctor doctor({
        .scheduler = scheduler,
        .sound = sound,
        .permission = permission,
        .tray = tray,
        .known = found,
        .runtimeVersion = [&] { return version; },
        .hearing = [&] { return hearing; },
        .print = &print,
        .showLevel = &showLevel,
        .done = [](int exitCode) { QCoreApplication::exit(exitCode); },
    });
    doctor.start();
    const int exitCode = QCoreApplication::exec();
    for (auto *process : {&runtime, &engine}) {
        process->kill();
        process->waitForFinished();
    }
    return exitCode;
}

} // namespace palomet
