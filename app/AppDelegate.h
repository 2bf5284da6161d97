#pragma once

#include "app/Backend.h"
#include "app/DesktopLook.h"
#include "app/KeyBindings.h"
#include "app/Notifier.h"
#include "app/ProblemNotices.h"
#include "app/RemoteControl.h"
#include "app/StatusMenu.h"
#include "audio/link/AudioLink.h"
#include "base/PeerCheck.h"
#include "base/Scheduler.h"
#include "base/TrayHost.h"
#include "base/Wakeup.h"
#include "doctor/PortHolder.h"
#include "model/MicrophonePermission.h"
#include "model/PalometModel.h"
#include "ui/UiEngine.h"
#include "ui/shell/FolderChooser.h"
#include "ui/shell/SettingsWindow.h"
#include "ui/shell/WindowManagement.h"
#include "ui/strip/StripController.h"
#include "ui/strip/StripWindow.h"

#include <QObject>
#include <QSettings>
#include <QUrl>

#include <array>
#include <memory>
#include <optional>

namespace palomet {

/// The root of the program: owns everything that lives as long as it does, starts it in order, and ends it in order.
/// Main thread only.
class AppDelegate final : public QObject {
    Q_OBJECT

public:
    /// Everything that the program is made of and has from outside.
    struct Parts {
        std::optional<QString> resources; ///< The resource folder.
        QString home;                     ///< The user's home.
        QString version;                  ///< The program's; empty in a build that has none.
        ChildProcessFactory startProcess;
        WakeupFactory makeWakeup;
        std::unique_ptr<Scheduler> scheduler;
        std::unique_ptr<MicrophonePermission> microphonePermission;
        std::unique_ptr<SoundServer> soundServer;
        std::unique_ptr<TrayHost> trayHost;
        std::unique_ptr<DesktopLook> look;
        std::unique_ptr<WorkArea> workArea; ///< Null: the toolkit's word is taken.
        StripWindow::Pointer pointer = StripWindow::Pointer::Known;
        std::unique_ptr<WindowManagement> windowManagement; ///< Null: the toolkit alone is left.
        std::unique_ptr<FolderChooser> folderChooser;       ///< Null: the toolkit's own dialog is taken.
        std::unique_ptr<KeyboardLayout> keyboardLayout;
        std::unique_ptr<HotKeyGrabber> hotKeyGrabber;
        std::unique_ptr<DesktopKeys> desktopKeys; ///< Null: the grabber alone knows who has a key.
        std::unique_ptr<RemoteService> remote;
        std::unique_ptr<Notifier> notifier;
        std::unique_ptr<QSettings> settings;
        std::function<void(const QString &path)> openFile; ///< Shows a file in the program of the user's choice.
        std::function<void()> openMicrophoneSettings;
        FindSocketOwner findSocketOwner = [](quint16, quint16) { return SocketOwner::Unknown; };
        FindPortHolder findPortHolder = [](quint16) { return std::nullopt; };
        QUrl backend = hudBase();
        QUrl audio = AudioLink::defaultUrl();
    };

    /// Every member of `parts` is there, unless it says otherwise.
    explicit AppDelegate(Parts parts);
    ~AppDelegate() override;

    /// Starts everything. Once.
    void applicationDidFinishLaunching();

    /// Shows the window in front of all others, on that pane if one is given, with its history and its choices loaded
    /// anew. `activation` is what the desktop gave to whoever asks for it.
    void openWindow(std::optional<Pane> pane = {}, const QString &activation = {});

    /// Begins to quit, however often it is asked.
    void applicationShouldTerminate();

    /// Quits, or goes on to quit, without an event loop, which the program has lost. Waits until all has ended.
    void terminateAtOnce();

Q_SIGNALS:
    /// All that had to be ended has ended: the event loop may end too.
    void mayTerminate();

private:
    /// The three stages, in their order.
    enum class Stage { Launching, Running, Terminating };

    [[nodiscard]] AdmitPeer admitPeer();
    [[nodiscard]] std::unique_ptr<AudioIO> makeAudioIO();
    [[nodiscard]] bool isPortTaken() const;
    void setUpMenuBar();
    void setUpStrip();
    void setUpWindow();
    void pickFolders(const std::function<void(const QStringList &)> &picked);
    void startBackend();
    void trayHostChanged();
    void noteStranger();
    void lookChanged();

    Parts m_parts;
    PeerCheck m_peerCheck;
    PalometModel m_model;
    Navigation m_nav;
    Backend m_backend;
    AudioLink m_audioLink;
    HotKeys m_hotKeys;
    Shortcuts m_shortcuts;
    StatusMenu m_statusMenu;
    KeyBindings m_keyBindings;
    RemoteControl m_remoteControl;
    UiEngine m_uiEngine;
    StripView m_stripView;
    StripWindow m_stripWindow;
    std::optional<StripController> m_strip;
    std::unique_ptr<AppView> m_appView;
    std::unique_ptr<SettingsWindow> m_window;
    ProblemNotices m_problemNotices;
    Stage m_stage = Stage::Launching;
    bool m_isStrangerUnnoted = false;
    bool m_isTrayHostSettled = false;        ///< There was one, or it was said that there is none.
    std::array<Connection, 2> m_connections; ///< Last: nothing is called once an end has begun.
};

} // namespace palomet
