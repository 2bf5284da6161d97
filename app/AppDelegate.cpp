#include "app/AppDelegate.h"

#include "app/LogFile.h"
#include "app/StatusIcon.h"
#include "localization/Localization.h"
#include "ui/shell/FolderDialog.h"

#include <utility>

namespace palomet {

using namespace std::chrono_literals;
using namespace Qt::StringLiterals;

namespace {

constexpr auto backendEndsWithin = 2s;

} // namespace

AppDelegate::AppDelegate(Surroundings surroundings)
    : m_surroundings(std::move(surroundings))
    , m_peerCheck(m_surroundings.findSocketOwner,
                  [this] {
                      // From the link's thread, too.
                      const auto tell = [this] {
                          m_isStrangerUnnoted = true;
                          noteStranger();
                      };
                      QMetaObject::invokeMethod(this, tell, Qt::QueuedConnection);
                  })
    , m_model(*m_surroundings.scheduler, *m_surroundings.microphonePermission, m_surroundings.backend, admitPeer())
    , m_backend(m_surroundings.startProcess, *m_surroundings.scheduler, m_surroundings.resources, m_surroundings.home)
    , m_audioLink({
          .io = makeAudioIO(),
          .scheduler = *m_surroundings.scheduler,
          .makeWakeup = m_surroundings.makeWakeup,
          .note = [this](const QString &line) { m_backend.note(line); },
          .url = m_surroundings.audio,
          .admit = admitPeer(),
      })
    , m_hotKeys(std::move(m_surroundings.hotKeyGrabber))
    , m_shortcuts(*m_surroundings.settings)
    , m_statusMenu(m_model)
    , m_keyBindings({
          .model = m_model,
          .hotKeys = m_hotKeys,
          .shortcuts = m_shortcuts,
          .layout = *m_surroundings.keyboardLayout,
          .showInMenu = [this](const auto &listen, const auto &stop) { m_statusMenu.setKeys(listen, stop); },
      })
    , m_remoteControl(*m_surroundings.remote, m_model)
    , m_uiEngine(m_surroundings.resources.value_or(QString()))
    , m_stripView(m_model, [this] { openWindow(Pane::Now); })
    , m_stripWindow(m_uiEngine, m_stripView, m_surroundings.workArea.get(), m_surroundings.pointer) {
    m_remoteControl.onOpen = [this](const auto &name) {
        const auto pane = name ? paneFrom(*name) : std::nullopt;
        if (name && !pane)
            return false;
        openWindow(pane);
        return true;
    };
    m_remoteControl.onQuit = [this] { applicationShouldTerminate(); };
    // One microphone has one front end.
    m_remoteControl.onReplaced = [this] {
        m_backend.note(u"sessão: outro Palomet já responde por ela"_s);
        applicationShouldTerminate();
    };
    connect(&m_statusMenu, &StatusMenu::openRequested, this, [this] { openWindow(); });
    connect(&m_statusMenu, &StatusMenu::quitRequested, this, &AppDelegate::applicationShouldTerminate);
}

AppDelegate::~AppDelegate() {
    m_surroundings.trayHost->onChange = [] {};
    m_surroundings.look->onChange = [] {};
}

AdmitPeer AppDelegate::admitPeer() {
    return [this](quint16 port, quint16 from) { return m_peerCheck.admits(port, from); };
}

std::unique_ptr<AudioIO> AppDelegate::makeAudioIO() {
    return std::make_unique<AudioIO>(AudioIO::Parts{
        .server = *m_surroundings.soundServer,
        .scheduler = *m_surroundings.scheduler,
        .makeWakeup = m_surroundings.makeWakeup,
        .chimeFile = m_surroundings.resources.value_or(QString()) + u"/sounds/chime.aiff"_s,
        .defaultInputName = L(u"device.systemDefault"),
    });
}

void AppDelegate::applicationDidFinishLaunching() {
    setUpMenuBar();
    setUpStrip();
    m_keyBindings.start();
    m_model.start();
    auto &permission = *m_surroundings.microphonePermission;
    if (permission.status() == MicrophoneStatus::NotDetermined)
        permission.request([this] { startBackend(); });
    else
        startBackend();
}

void AppDelegate::setUpMenuBar() {
    m_surroundings.look->onChange = [this] { lookChanged(); };
    m_surroundings.trayHost->onChange = [this] { trayHostChanged(); };
    lookChanged();
    trayHostChanged();
}

void AppDelegate::setUpStrip() {
    m_stripWindow.isStateSaidElsewhere = [this] { return m_appView && m_appView->now()->isActive(); };
    m_strip.emplace(m_model, m_stripWindow, *m_surroundings.scheduler);
    m_strip->onEscapeNeeded = [this](bool isNeeded) { m_keyBindings.setStopNeeded(isNeeded); };
    m_strip->update();
}

void AppDelegate::openWindow(std::optional<Pane> pane) {
    if (m_stage == Stage::Terminating)
        return;
    if (pane)
        m_nav.setPane(*pane);
    if (!m_window)
        setUpWindow();
    m_model.loadHistory();
    m_model.loadOptions();
    m_window->bringToFront();
}

void AppDelegate::setUpWindow() {
    const Outside outside{
        .openLog = [this] { m_surroundings.openFile(LogFile::pathBelow(m_surroundings.home)); },
        .openMicrophoneSettings = m_surroundings.openMicrophoneSettings,
        .pickFolders = [this](const auto &picked) { pickFolders(picked); },
    };
    m_appView = std::make_unique<AppView>(m_model, m_nav, m_shortcuts, *m_surroundings.keyboardLayout,
                                          AppView::Details{m_surroundings.version, m_surroundings.home}, outside);
    m_window = std::make_unique<MacWindow>(m_uiEngine.get(), *m_appView, *m_surroundings.scheduler,
                                           m_surroundings.settings.get());
}

void AppDelegate::pickFolders(const std::function<void(const QStringList &)> &picked) {
    const auto askByToolkit = [this, picked] { askForFolders(m_window.get(), m_surroundings.home, picked); };
    if (!m_surroundings.folderChooser)
        return askByToolkit();
    m_surroundings.folderChooser->ask({.title = L("brain.addFolder.title"),
                                       .acceptLabel = L("brain.addFolder.prompt"),
                                       .home = m_surroundings.home,
                                       .owner = m_window->winId()},
                                      picked, askByToolkit);
}

void AppDelegate::startBackend() {
    if (m_stage == Stage::Terminating)
        return;
    m_stage = Stage::Running;
    m_backend.start();
    m_audioLink.start();
    noteStranger();
    trayHostChanged();
}

void AppDelegate::trayHostChanged() {
    const auto status = m_surroundings.trayHost->status();
    if (status == TrayHost::Status::Present) {
        m_statusMenu.showItem();
        // One that was there and goes is being restarted: no reason to open a window in the user's face.
        m_isTrayHostSettled = true;
    }
    // The log exists once the backend was started.
    if (status != TrayHost::Status::Absent || m_stage != Stage::Running || std::exchange(m_isTrayHostSettled, true))
        return;
    m_backend.note(
        u"bandeja: falta um painel com StatusNotifierHost; o ícone do Palomet aparece assim que houver um"_s);
    openWindow();
}

void AppDelegate::noteStranger() {
    // The log exists once the backend was started.
    if (m_stage == Stage::Running && std::exchange(m_isStrangerUnnoted, false))
        m_backend.note(u"rede: a porta %1 é de um programa de outro usuário; o Palomet não fala com ele"_s.arg(
            m_surroundings.backend.port()));
}

void AppDelegate::lookChanged() {
    const auto &look = *m_surroundings.look;
    m_statusMenu.setIcon(statusIcon(m_surroundings.resources, look.panelScheme()));
    m_uiEngine.setMotionReduced(look.isMotionReduced());
    m_uiEngine.setContrastRaised(look.isContrastRaised());
}

void AppDelegate::applicationShouldTerminate() {
    if (std::exchange(m_stage, Stage::Terminating) == Stage::Terminating)
        return;
    m_backend.note(u"saindo: pedido de saída recebido"_s);
    m_audioLink.restoreDefaultInput();
    m_backend.stop(backendEndsWithin, [this] {
        m_backend.note(u"saindo: pronto"_s);
        Q_EMIT mayTerminate();
    });
}

} // namespace palomet
