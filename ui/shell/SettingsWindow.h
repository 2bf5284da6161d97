#pragma once

#include "base/Scheduler.h"
#include "ui/shell/AppView.h"

#include <QQuickView>

class QSettings;

namespace palomet {

/// The settings window, made on first open and kept: closing hides it. It remembers where it stood, also from one run
/// of the program to the next. Main thread only.
class SettingsWindow final : public QQuickView {
    Q_OBJECT

public:
    static constexpr QSize openingSize{1120, 760};
    static constexpr QSize minimumContentSize{960, 640};

    /// `engine` has the kit and the module of the window; it and everything else handed in outlive the window. Without
    /// `settings` nothing is remembered.
    SettingsWindow(QQmlEngine &engine, AppView &app, Scheduler &scheduler, QSettings *settings);
    ~SettingsWindow() override;

    /// Shows it in front of the others, with the focus.
    void bringToFront();

protected:
    bool event(QEvent *event) override;
    /// What nothing in the window has a use for, the window has: it chooses a pane, scrolls its page, or closes.
    void keyPressEvent(QKeyEvent *event) override;

private:
    void restoreFrame();
    /// With what the window manager puts around it, which is not known before it shows.
    void keepFrameOnScreen();
    void saveFrame();
    void saveSoon();
    void updateShown();
    [[nodiscard]] bool handleKey(const QKeyEvent &event);

    AppView &m_app;
    Scheduler &m_scheduler;
    QSettings *m_settings;
    Scheduler::Handle m_saving;
    bool m_wasExposed = false;
};

} // namespace palomet
