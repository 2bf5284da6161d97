#pragma once

#include "base/Scheduler.h"
#include "model/PalometModel.h"
#include "shortcuts/Shortcuts.h"
#include "ui/UiEngine.h"
#include "ui/shell/SettingsWindow.h"

#include <QObject>
#include <QSettings>
#include <QStringList>
#include <QTemporaryDir>

#include <memory>
#include <optional>

namespace palomet {

/// The window alone, filled with sample data: no tray, no strip, no keys, no backend, no sound, no network, and nothing
/// of the user's read or written. Main thread only.
class PreviewMode final : public QObject {
    Q_OBJECT

public:
    struct Parts {
        Scheduler &scheduler; ///< Outlives this.
        QString resources;    ///< The resource folder.
        QString home;
        QString version;
        WindowManagement *windowManagement = nullptr; ///< Outlives this; null: the toolkit alone is left.
    };

    /// `arguments` are the program's own; they ask for a preview.
    PreviewMode(const Parts &parts, const QStringList &arguments);
    ~PreviewMode() override;

    /// Shows the window. When a picture of it was asked for, that is taken once the window has had the time to be laid
    /// out and drawn.
    void start();

    [[nodiscard]] SettingsWindow &window() { return *m_window; }

Q_SIGNALS:
    /// The program may end, with that exit code: the picture was written, or could not be, or the window was closed.
    void finished(int exitCode);

private:
    void capture();

    class Allowed;

    Scheduler &m_scheduler;
    const std::optional<QString> m_capturePath;
    std::unique_ptr<Allowed> m_permission;
    PalometModel m_model;
    Navigation m_nav;
    QTemporaryDir m_folder;
    QSettings m_settings;
    Shortcuts m_shortcuts;
    NoKeyboardLayout m_layout;
    UiEngine m_uiEngine;
    AppView m_appView;
    std::unique_ptr<SettingsWindow> m_window;
    Scheduler::Handle m_pendingCapture;
};

} // namespace palomet
