#include "app/AppDelegate.h"

#include "app/LogFile.h"
#include "app/StatusIcon.h"
#include "audio/echo/MaskWeights.h"
#include "localization/Localization.h"
#include "ui/shell/FolderDialog.h"

#include <utility>

namespace palomet {

using namespace std::chrono_literals;
using namespace Qt::StringLiterals;

namespace {

constexpr auto backendEndsWithin = 2s;

} // namespace

AppDelegate::AppDelegate(Parts parts)
    : m_parts(std::move(parts))
    , m_peerCheck(m_parts.findSocketOwner,
                  [this] {
                      // From the link's thread, too.
                      const auto tell = [this] {
                          m_isStrangerUnnoted = true;
                          noteStranger();
                      };
                      QMetaObject::invokeMethod(this, tell, Qt::QueuedConnection);
                  })
    , m_model(*m_parts.scheduler, *m_parts.microphonePermission, m_parts.backend, admitPeer())
    , m_backend(m_parts.startProcess, *m_parts.scheduler, m_parts.resources, m_parts.home)
    , m_audioLink({
          .io = makeAudioIO(),
          .scheduler = *m_parts.scheduler,
          .makeWakeup = m_parts.makeWakeup,
          .note = [this](const QString &line) { m_backend.note(line); },
          .url = m_parts.audio,
          .admit = admitPeer(),
      })
    , m_hotKeys(std::move(m_parts.hotKeyGrabber), std::move(m_parts.desktopKeys))
    , m_shortcuts(*m_parts.settings)
    , m_statusMenu(m_model)
    , m_keyBindings({
          .model = m_model,
          .hotKeys = m_hotKeys,
          .shortcuts = m_shortcuts,
          .layout = *m_parts.keyboardLayout,
          .showInMenu = [this](const auto &listen, const auto &stop) { m_statusMenu.setKeys(listen, stop); },
          .showStopKey = [this](const auto &words) { m_stripView.setStopKey(words); },
      })
    , m_remoteControl(*m_parts.remote, m_model)
    , m_uiEngine(m_parts.resources.value_or(QString()))
    , m_stripView(m_model, [this] { openWindow(Pane::Now); })
    , m_stripWindow(m_uiEngine, m_stripView, m_parts.workArea.get(), m_parts.pointer)
    , m_problemNotices({
          .model = m_model,
          .notifier = *m_parts.notifier,
          .scheduler = *m_parts.scheduler,
          .isPortTaken = [this] { return isPortTaken(); },
          .isWindowShown = [this] { return m_appView && m_appView->isShown(); },
          .open = [this](Pane pane, const QString &activation) { openWindow(pane, activation); },
          .port = static_cast<quint16>(m_parts.backend.port()),
      }) {
    m_remoteControl.onOpen = [this](const auto &name, const auto &activation) {
        const auto pane = name ? paneFrom(*name) : std::nullopt;
        if (name && !pane)
            return false;
        openWindow(pane, activation);
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

AppDelegate::~AppDelegate() = default;

AdmitPeer AppDelegate::admitPeer() {
    return [this](quint16 port, quint16 from) { return m_peerCheck.admits(port, from); };
}

std::unique_ptr<AudioIO> AppDelegate::makeAudioIO() {
    EchoCanceller::Mask mask;
    if (EchoCanceller::takesMask()) {
        if (auto read = echo::MaskWeights::read(m_parts.resources.value_or(QString())))
            mask = *read;
        else
            m_backend.note(u"eco: a máscara não pôde ser lida; \"palomet --doctor\" diz por quê"_s);
    }
    return std::make_unique<AudioIO>(AudioIO::Parts{
        .server = *m_parts.soundServer,
        .scheduler = *m_parts.scheduler,
        .makeWakeup = m_parts.makeWakeup,
        .makeEchoCanceller = [mask] { return EchoCanceller::create(mask); },
        .chimeFile = m_parts.resources.value_or(QString()) + u"/sounds/chime.aiff"_s,
        .defaultInputName = L(u"device.systemDefault"),
    });
}

void AppDelegate::applicationDidFinishLaunching() {
    setUpMenuBar();
    setUpStrip();
    m_keyBindings.start();
    m_model.start();
    auto &permission = *m_parts.microphonePermission;
    if (permission.status() == MicrophoneStatus::NotDetermined)
        permission.request([this] { startBackend(); });
    else
        startBackend();
}

void AppDelegate::setUpMenuBar() {
    m_connections = {
        m_parts.look->onChange.connect([this] { lookChanged(); }),
        m_parts.trayHost->onChange.connect([this] { trayHostChanged(); }),
    };
    lookChanged();
    trayHostChanged();
}

void AppDelegate::setUpStrip() {
    m_stripWindow.isStateSaidElsewhere = [this] { return m_appView && m_appView->now()->isActive(); };
    m_strip.emplace(m_model, m_stripWindow, *m_parts.scheduler);
    m_strip->onEscapeNeeded = [this](bool isNeeded) { m_keyBindings.setStopNeeded(isNeeded); };
    m_strip->update();
}

void AppDelegate::openWindow(std::optional<Pane> pane, const QString &activation) {
    if (m_stage == Stage::Terminating)
        return;
    if (pane)
        m_nav.setPane(*pane);
    if (!m_window)
        setUpWindow();
    m_model.loadHistory();
    m_model.loadOptions();
    m_window->bringToFront(activation);
}

void AppDelegate::setUpWindow() {
    const Outside outside{
        .openLog = [this] { m_parts.openFile(LogFile::pathBelow(m_parts.home)); },
        .openMicrophoneSettings = m_parts.openMicrophoneSettings,
        .pickFolders = [this](const auto &picked) { pickFolders(picked); },
    };
    m_appView = std::make_unique<AppView>(m_model, m_nav, m_shortcuts, *m_parts.keyboardLayout,
                                          AppView::Details{m_parts.version, m_parts.home}, outside);
    m_window = std::make_unique<SettingsWindow>(m_uiEngine.get(), *m_appView, *m_parts.scheduler,
                                                m_parts.settings.get(), m_parts.windowManagement.get());
}

void AppDelegate::pickFolders(const std::function<void(const QStringList &)> &picked) {
    const auto askByToolkit = [this, picked] { askForFolders(m_window.get(), m_parts.home, picked); };
    if (!m_parts.folderChooser)
        return askByToolkit();
    m_parts.folderChooser->ask({.title = L("brain.addFolder.title"),
                                .acceptLabel = L("brain.addFolder.prompt"),
                                .home = m_parts.home,
                                .owner = m_window->winId()},
                               picked, askByToolkit);
}

void AppDelegate::startBackend() {
    if (m_stage == Stage::Terminating)
        return;
    m_stage = Stage::Running;
    m_backend.start();
    m_audioLink.start();
    m_problemNotices.start();
    noteStranger();
    trayHostChanged();
}

void AppDelegate::trayHostChanged() {
    const auto status = m_parts.trayHost->status();
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

bool AppDelegate::isPortTaken() const {
    const auto holder = m_parts.findPortHolder(static_cast<quint16>(m_parts.backend.port()));
    // The backend is ours, and so is what it has started.
    return holder && !holder->lineage.contains("palomet"_L1);
}

void AppDelegate::noteStranger() {
    // The log exists once the backend was started.
    if (m_stage == Stage::Running && std::exchange(m_isStrangerUnnoted, false))
        m_backend.note(u"rede: a porta %1 é de um programa de outro usuário; o Palomet não fala com ele"_s.arg(
            m_parts.backend.port()));
}

void AppDelegate::lookChanged() {
    const auto &look = *m_parts.look;
    m_statusMenu.setIcon(statusIcon(m_parts.resources, look.panelScheme()));
    m_uiEngine.setMotionReduced(look.isMotionReduced());
    m_uiEngine.setContrastRaised(look.isContrastRaised());
}

void AppDelegate::applicationShouldTerminate() {
    if (std::exchange(m_stage, Stage::Terminating) == Stage::Terminating)
        return;
    m_backend.note(u"saindo: pedido de saída recebido"_s);
    m_problemNotices.stop();
    m_audioLink.restoreDefaultInput();
    m_backend.stop(backendEndsWithin, [this] {
        m_backend.note(u"saindo: pronto"_s);
        Q_EMIT mayTerminate();
    });
}

void AppDelegate::terminateAtOnce() {
    applicationShouldTerminate();
    m_backend.awaitStop();
}

} // namespace palomet
