#pragma once

#include "base/Scheduler.h"
#include "ui/shell/AppView.h"

#include <QQuickView>

class QSettings;

namespace palomet {

/// The settings window, made when it is first opened, and kept: closing hides it. It remembers its frame, also from one
/// run of the program to the next. Main thread only.
class SettingsWindow final : public QQuickView {
    Q_OBJECT

public:
    static constexpr QSize openingSize{1120, 760};
    static constexpr QSize minimumContentSize{960, 640};

    /// `engine` has both QML modules. All arguments outlive the window. Without `settings` it remembers nothing.
    SettingsWindow(QQmlEngine &engine, AppView &app, Scheduler &scheduler, QSettings *settings);
    ~SettingsWindow() override;

    /// Shows it in front of the others, with the focus.
    void bringToFront();

protected:
    bool event(QEvent *event) override;
    /// Handles the keys that no item takes: they choose a pane, scroll the page, copy, or close the window.
    void keyPressEvent(QKeyEvent *event) override;

private:
    void restoreFrame();
    /// Counts in the window manager's frame, which is not known before the window shows.
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
