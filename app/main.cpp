#include "app/AppDelegate.h"
#include "app/Application.h"
#include "app/EarlyExit.h"
#include "app/PreviewMode.h"
#include "app/Resources.h"
#include "app/Session.h"
#include "app/ToolkitPlatform.h"
#include "app/doctorMain.h"
#include "app/historyMain.h"
#include "base/QtScheduler.h"
#include "command/AutostartCommand.h"
#include "command/CommandLine.h"
#include "command/RemoteSession.h"
#include "command/fail.h"
#include "localization/Localization.h"
#include "platform/dbus/DBusRemoteClient.h"
#include "platform/dbus/DBusRemoteService.h"
#include "platform/dbus/DesktopNotifier.h"
#include "platform/dbus/PortalFolderChooser.h"
#include "platform/dbus/PortalHotKeyGrabber.h"
#include "platform/dbus/PortalLook.h"
#include "platform/dbus/SessionBus.h"
#include "platform/dbus/StatusNotifierHost.h"
#include "platform/linux/EventWakeup.h"
#include "platform/linux/GroupGuard.h"
#include "platform/linux/KernelSocketOwner.h"
#include "platform/linux/ProcPortHolder.h"
#include "platform/linux/SpareMemory.h"
#include "platform/linux/TerminationSignals.h"
#include "platform/linux/ThreadTrial.h"
#include "platform/linux/startChildProcess.h"
#include "platform/sway/SwayWindowManagement.h"
#include "platform/wayland/CompositorLoss.h"
#include "platform/wayland/LayerShell.h"
#include "platform/wayland/WaylandWindowManagement.h"
#include "platform/x11/X11HotKeyGrabber.h"
#include "platform/x11/X11WindowManagement.h"
#include "platform/x11/X11WorkArea.h"
#include "platform/xdg/AutostartEntry.h"
#include "platform/xdg/SoundSettings.h"
#include "ui/preview/Preview.h"
#include "ui/shell/ToolkitWords.h"

#include <QDesktopServices>
#include <QDir>
#include <QStandardPaths>

#include <cstdio>
#include <cstdlib>

using namespace palomet;
using namespace std::chrono_literals;
using namespace Qt::StringLiterals;

namespace {

constexpr auto busAnswersWithin = 2s;
/// More than ever run at a time.
constexpr int threadsNeeded = 16;

/// The desktop's way to global hot keys. The session decides, not the toolkit: under XWayland a grab would miss the
/// windows that are native.
std::unique_ptr<HotKeyGrabber> hotKeyGrabber(const Session &session, const KeyboardLayout &layout) {
    if (Session::isWayland())
        return std::make_unique<PortalHotKeyGrabber>(session.bus(), Session::applicationId(), layout);
    if (session.x11() != nullptr)
        return std::make_unique<X11HotKeyGrabber>(*session.x11());
    return std::make_unique<NoHotKeyGrabber>();
}

/// Null where nobody manages the toolkit's windows. `x11` outlives it.
std::unique_ptr<WindowManagement> windowManagement(X11Connection *x11) {
    const auto platform = QGuiApplication::platformName();
    const bool isWayland = platform.startsWith("wayland"_L1);
    std::unique_ptr<WindowManagement> management;
    if (isWayland)
        management = std::make_unique<WaylandWindowManagement>();
    else if (platform == "xcb"_L1 && x11 != nullptr)
        management = std::make_unique<X11WindowManagement>(*x11, Session::applicationId());
    const auto sway = qEnvironmentVariable("SWAYSOCK");
    if (!management || sway.isEmpty())
        return management;
    const auto kind = isWayland ? SwayWindowManagement::Kind::Wayland : SwayWindowManagement::Kind::XWayland;
    return std::make_unique<SwayWindowManagement>(sway, kind, std::move(management));
}

/// What the desktop gave to this start of the program, so that a window may come to the front.
QString givenActivation() {
    return qEnvironmentVariable("XDG_ACTIVATION_TOKEN", qEnvironmentVariable("DESKTOP_STARTUP_ID"));
}

/// `session` outlives what is made of it.
AppDelegate::Parts makeParts(std::unique_ptr<RemoteService> remote, const Session &session) {
    const auto &bus = session.bus();
    const auto desktop = qEnvironmentVariable("XDG_CURRENT_DESKTOP");
    auto layout = session.makeKeyboardLayout();
    auto grabber = hotKeyGrabber(session, *layout);
    auto desktopKeys = Session::makeDesktopKeys(*layout);
    auto scheduler = std::make_unique<QtScheduler>();
    auto sound = session.makeSound(*scheduler);
    return {
        .resources = resourceFolder(QCoreApplication::applicationDirPath()),
        .home = QDir::homePath(),
        .version = Session::version(),
        .startProcess = [guard = std::make_shared<GroupGuard>(guardProgram(QCoreApplication::applicationDirPath()))](
                            const auto &launch,
                            auto onExit) { return startChildProcess(launch, std::move(onExit), guard); },
        .makeWakeup = &EventWakeup::make,
        .scheduler = std::move(scheduler),
        .microphonePermission = std::move(sound.permission),
        .soundServer = std::move(sound.server),
        .trayHost = std::make_unique<StatusNotifierHost>(bus),
        .look = std::make_unique<PortalLook>(bus, desktop),
        .workArea = session.x11() != nullptr ? std::make_unique<X11WorkArea>(*session.x11()) : nullptr,
        // There, only our own windows see the pointer.
        .pointer = Session::isWayland() ? StripWindow::Pointer::Unknown : StripWindow::Pointer::Known,
        .windowManagement = windowManagement(session.x11()),
        .folderChooser = std::make_unique<PortalFolderChooser>(bus, QGuiApplication::platformName() == "xcb"_L1),
        .keyboardLayout = std::move(layout),
        .hotKeyGrabber = std::move(grabber),
        .desktopKeys = std::move(desktopKeys),
        .remote = std::move(remote),
        .notifier = std::make_unique<DesktopNotifier>(bus, Session::applicationId()),
        .settings = Session::makeSettings(),
        .openFile = [](const QString &path) { QDesktopServices::openUrl(QUrl::fromLocalFile(path)); },
        .openMicrophoneSettings = [desktop] { openFirst(microphoneSettings(desktop)); },
        .findSocketOwner = KernelSocketOwner(),
        .findPortHolder = [](quint16 port) { return procPortHolder(port); },
    };
}

int print(const QString &text) {
    std::fputs(text.toLocal8Bit().constData(), stdout);
    return 0;
}

int run(const DisplayRoute &route, int argumentCount, char **arguments) {
    // Threads that cannot be started later would leave a program that is there and does nothing.
    if (const auto problem = trialOfThreads(threadsNeeded))
        return fail(problem->reason, 1);
    const ToolkitPlatform platform(route);
    // The toolkit takes some of it out of the environment.
    const auto activation = givenActivation();
    QCoreApplication::setApplicationName(u"Palomet"_s);
    QGuiApplication::setApplicationDisplayName(u"Palomet"_s);
    QGuiApplication::setDesktopFileName(Session::applicationId());
    UiEngine::chooseRenderer();
    Application application(argumentCount, arguments);
    const SpareMemory spareMemory;
    platform.settle();
    // It was for this start alone.
    qunsetenv("XDG_ACTIVATION_TOKEN");

    auto remote = std::make_unique<DBusRemoteService>(QDBusConnection::sessionBus(), &connectToSessionBusAgain);
    if (remote->claim(activation) == RemoteService::Claim::Taken)
        return 0;
    // Until the very end: a second request must not interrupt what the first has begun.
    const TerminationSignals signals([&application] { Q_EMIT application.quitRequested(); });
    const Session session(route.way);
    const auto layers = LayerShell::bind();
    auto parts = makeParts(std::move(remote), session);
    localization::load(parts.resources.value_or(QString()), localization::preferredLanguages());
    translateToolkit(application, localization::language());
    AppDelegate delegate(std::move(parts));
    const EarlyExit earlyExit([&delegate] {
        delegate.terminateAtOnce();
        // What else an exit does takes the globals away from threads that still run.
        std::_Exit(0);
    });
    if (route.way == DisplayRoute::Way::Wayland)
        onCompositorLoss([] { std::exit(0); });
    QObject::connect(&application, &Application::quitRequested, &delegate, &AppDelegate::applicationShouldTerminate);
    // From the event loop: it may be asked before that has begun.
    QObject::connect(
        &delegate, &AppDelegate::mayTerminate, &application, [] { QCoreApplication::exit(0); }, Qt::QueuedConnection);
    delegate.applicationDidFinishLaunching();
    return Application::exec();
}

/// `arguments` are those that follow the program's name.
int runPreview(const DisplayRoute &route, const QStringList &arguments, int argumentCount, char **rawArguments) {
    const ToolkitPlatform platform(route);
    QCoreApplication::setApplicationName(u"Palomet"_s);
    QGuiApplication::setApplicationDisplayName(u"Palomet"_s);
    QGuiApplication::setDesktopFileName(Session::applicationId());
    UiEngine::chooseRenderer();
    Application application(argumentCount, rawArguments);
    platform.settle();
    const auto resources = resourceFolder(QCoreApplication::applicationDirPath()).value_or(QString());
    localization::load(resources, localization::preferredLanguages());
    translateToolkit(application, localization::language());
    QtScheduler scheduler;
    const Session session(route.way);
    const auto management = windowManagement(session.x11());
    PreviewMode mode({scheduler, resources, QDir::homePath(), Session::version(), management.get()}, arguments);
    const auto end = [](int exitCode) { QCoreApplication::exit(exitCode); };
    QObject::connect(&mode, &PreviewMode::finished, &application, end, Qt::QueuedConnection);
    // A picture that was asked for is missing then.
    const int exitCode = preview::capturePath(arguments) ? 1 : 0;
    QObject::connect(
        &application, &Application::quitRequested, &application, [=] { end(exitCode); }, Qt::QueuedConnection);
    // Killed, it would leave its folder behind.
    const TerminationSignals signals([&application] { Q_EMIT application.quitRequested(); });
    mode.start();
    return Application::exec();
}

int remote(const CommandLine &line, int argumentCount, char **arguments) {
    const QCoreApplication application(argumentCount, arguments);
    DBusRemoteClient client(QDBusConnection::sessionBus());
    return runRemoteCommand(line, client, givenActivation());
}

int autostart(const CommandLine &line, int argumentCount, char **arguments) {
    const QCoreApplication application(argumentCount, arguments);
    AutostartEntry entry(QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation),
                         QCoreApplication::applicationFilePath());
    return runAutostartCommand(line.autostart, entry);
}

int failWithoutDisplay() {
    return fail(u"there is no display"_s, 1);
}

/// One that runs has a display, and can be shown all the same.
int runWithoutDisplay(int argumentCount, char **arguments) {
    const QCoreApplication application(argumentCount, arguments);
    DBusRemoteClient client(QDBusConnection::sessionBus());
    return client.send({u"open"_s, std::nullopt, givenActivation()}) ? failWithoutDisplay() : 0;
}

int start(int argumentCount, char **arguments) {
    // Without a display, or with one that has gone, the toolkit ends the program as if it had crashed.
    const auto route = Session::displayRoute();
    return route.way == DisplayRoute::Way::None ? runWithoutDisplay(argumentCount, arguments)
                                                : run(route, argumentCount, arguments);
}

int startPreview(const QStringList &arguments, int argumentCount, char **rawArguments) {
    // A picture needs no display, and is the same on every one.
    if (preview::capturePath(arguments) && qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    const auto route = Session::displayRoute();
    return route.way == DisplayRoute::Way::None ? failWithoutDisplay()
                                                : runPreview(route, arguments, argumentCount, rawArguments);
}

} // namespace

int main(int argc, char **argv) {
    QStringList arguments;
    for (int index = 1; index < argc; ++index)
        arguments.append(QString::fromLocal8Bit(argv[index]));
    const auto line = CommandLine::parse(arguments);
    if (!sessionBusAnswers(busAnswersWithin))
        forgetSessionBus();
    switch (line.mode) {
    case CommandLine::Mode::Run:
        return start(argc, argv);
    case CommandLine::Mode::Version:
        return print(u"palomet %1\n"_s.arg(Session::version()));
    case CommandLine::Mode::Help:
        return print(CommandLine::help());
    case CommandLine::Mode::Command:
    case CommandLine::Mode::Status:
        return remote(line, argc, argv);
    case CommandLine::Mode::Autostart:
        return autostart(line, argc, argv);
    case CommandLine::Mode::History:
        return runHistory(line.isJson, argc, argv);
    case CommandLine::Mode::Doctor:
        return runDoctor(argc, argv);
    case CommandLine::Mode::Preview:
        return startPreview(arguments, argc, argv);
    case CommandLine::Mode::Invalid:
        break;
    }
    return fail(line.problem, 2);
}
