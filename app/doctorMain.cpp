#include "app/doctorMain.h"

#include "app/KeyBindings.h"
#include "app/LogFile.h"
#include "app/Resources.h"
#include "app/Session.h"
#include "audio/echo/EchoCanceller.h"
#include "audio/echo/MaskWeights.h"
#include "base/BackendPort.h"
#include "base/QtScheduler.h"
#include "doctor/Doctor.h"
#include "localization/Localization.h"
#include "platform/dbus/DBusRemoteClient.h"
#include "platform/dbus/StatusNotifierHost.h"
#include "platform/dbus/grantsGlobalShortcuts.h"
#include "platform/linux/KernelSocketOwner.h"
#include "platform/linux/ProcPortHolder.h"
#include "platform/linux/Terminal.h"
#include "platform/x11/X11HotKeyGrabber.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QProcess>
#include <QProcessEnvironment>

#include <algorithm>
#include <chrono>
#include <cstdio>

namespace palomet {

using namespace Qt::StringLiterals;

namespace {

/// The doctor always comes to an end, also beside an X server that answers nobody.
constexpr std::chrono::seconds displayPatience{5};

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
    found.wantedLanguages = localization::preferredLanguages();
    localization::load(found.resources.value_or(QString()), found.wantedLanguages);
    found.language = localization::language();
}

/// Tries the listen key only where no running instance can hold it.
void lookAtKeys(Examination &found, const Session &session) {
    const auto listen = Shortcuts::storedListen(*Session::makeSettings());
    const auto layout = session.makeKeyboardLayout();
    found.listenKey = KeyBindings::keySequence(listen, *layout).toString();

    auto *const x11 = session.x11();
    if (Session::isWayland()) {
        found.hotKeyRoute = Examination::HotKeyRoute::Portal;
        found.doesPortalGrant = grantsGlobalShortcuts(session.bus());
    } else if (x11 != nullptr) {
        found.hotKeyRoute = Examination::HotKeyRoute::X11;
        if (const auto desktopKeys = Session::makeDesktopKeys(*layout))
            found.listenKeyHolder = desktopKeys->actionOn(listen.keyCode, listen.carbonModifiers());
        if (!found.listenKeyHolder.isEmpty()) {
            found.key = Examination::Key::Taken;
        } else if (found.instance == Examination::Instance::Absent) {
            X11HotKeyGrabber grabber(*x11);
            found.key = grabber.grab(1, listen.keyCode, listen.carbonModifiers()) ? Examination::Key::Free
                                                                                  : Examination::Key::Taken;
        }
    }
}

} // namespace

int runDoctor(int argumentCount, char **arguments) {
    const QCoreApplication application(argumentCount, arguments);
    const auto route = Session::displayRoute(displayPatience);
    const Session session(route.way);
    Examination found;
    found.display = route;
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

    lookAtInstance(found, session.bus());
    lookAtKeys(found, session);
    found.port = procPortHolder(backendPort);
    found.portOwner = KernelSocketOwner()(backendPort, 0);
    if (EchoCanceller::create())
        found.echoCanceller = EchoCanceller::library();
    if (EchoCanceller::takesMask()) {
        if (const auto mask = echo::MaskWeights::read(found.resources.value_or(QString())); !mask)
            found.echoMaskProblem = mask.reason();
    }

    QtScheduler scheduler;
    const auto sound = session.makeSound(scheduler);
    StatusNotifierHost tray(session.bus());
    Doctor doctor({
        .scheduler = scheduler,
        .sound = *sound.server,
        .permission = *sound.permission,
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
