#pragma once

#include "tests/ui/desktop/DesktopTest.h"
#include "ui/shell/SettingsWindow.h"

#include <QSettings>
#include <QTemporaryDir>

namespace palomet::test {

using namespace Qt::StringLiterals;

/// The window on a display with a window manager, as the program opens it, run after run.
class WindowOnDesktop : public DesktopTest {
protected:
    /// A window as a new run of the program would make it.
    void open(WindowManagement *management = nullptr) {
        m_window.reset();
        m_window = std::make_unique<SettingsWindow>(m_ui.get(), m_app, scheduler(), &m_settings, management);
        m_window->bringToFront();
        EXPECT_TRUE(eventually([this] { return focusedWindow() == m_window->winId(); }));
    }

    QTemporaryDir m_folder;
    QSettings m_settings{m_folder.filePath(u"palomet.conf"_s), QSettings::IniFormat};
    Shortcuts m_shortcuts{m_settings};
    NoKeyboardLayout m_layout;
    Navigation m_navigation;
    AppView m_app{model(), m_navigation, m_shortcuts, m_layout, {u"1.2.3"_s, u"/home/user"_s}, {}};
    std::unique_ptr<SettingsWindow> m_window;
};

} // namespace palomet::test
