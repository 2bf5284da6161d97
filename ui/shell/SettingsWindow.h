#pragma once

#include "base/Scheduler.h"
#include "ui/shell/AppView.h"

#include <QQuickView>

#include <optional>

class QSettings;

namespace palomet {

class WindowManagement;

/// The settings window, made when it is first opened, and kept: closing hides it. It remembers its frame, also from one
/// run of the program to the next. Main thread only.
class SettingsWindow final : public QQuickView {
    Q_OBJECT

public:
    static constexpr QSize openingSize{1120, 760};
    /// On a desktop's screen that has no room for it, the screen's size is the least.
    static constexpr QSize minimumContentSize{960, 640};

    /// `engine` has both QML modules. All arguments outlive the window. Without `settings` it remembers nothing,
    /// without `management` the toolkit alone speaks to the desktop.
    SettingsWindow(QQmlEngine &engine, AppView &app, Scheduler &scheduler, QSettings *settings,
                   WindowManagement *management = nullptr);
    ~SettingsWindow() override;

    /// Shows it in front of the others, with the focus. `activation` is what the desktop gave to whoever asked for it.
    void bringToFront(const QString &activation = {});

protected:
    bool event(QEvent *event) override;
    /// Handles the keys that no item takes: they choose a pane, scroll the page, copy, or close the window.
    void keyPressEvent(QKeyEvent *event) override;

private:
    void restoreFrame();
    /// Of a window that has so much room on its screen.
    [[nodiscard]] QSize leastSize(QSize room) const;
    /// Counts in the window manager's frame, which is not known before the window shows.
    void keepFrameOnScreen();
    void follow(const QScreen *screen) const;
    /// Comes to where it can be seen when its screen goes or becomes another; at the next showing where it is hidden.
    void followScreens();
    void saveFrame();
    void saveSoon();
    void updateShown();
    void takeFocus();
    [[nodiscard]] bool handleKey(const QKeyEvent &event);

    AppView &m_app;
    Scheduler &m_scheduler;
    QSettings *m_settings;
    WindowManagement *m_management;
    std::optional<QString> m_wantedActivation; ///< Set while it is to come to the front, and is not known yet.
    /// Whether a desktop that manages windows has shown it since it was hidden or minimised.
    bool m_isKnown = false;
    Scheduler::Handle m_saving;
    QSize m_wanted;                 ///< The size that the window would have, were the screen not too small for it.
    QSize m_fitted;                 ///< What it was made instead: while it has this, nobody has chosen another.
    bool m_isFrameOnScreen = false; ///< Not before it has been exposed on the screens that are there.
};

} // namespace palomet
