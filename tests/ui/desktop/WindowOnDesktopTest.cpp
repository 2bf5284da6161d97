#include "tests/ui/desktop/DesktopTest.h"
#include "ui/shell/MacWindow.h"

#include <QSettings>
#include <QTemporaryDir>

using namespace palomet;
using namespace Qt::StringLiterals;
using namespace std::chrono_literals;
using test::eventually;

namespace {

class WindowOnDesktopTest : public test::DesktopTest {
protected:
    /// A window as a new run of the program would make it.
    void open() {
        m_window.reset();
        m_window = std::make_unique<MacWindow>(m_ui.get(), m_app, scheduler(), &m_settings);
        m_window->bringToFront();
        EXPECT_TRUE(eventually([this] { return focusedWindow() == m_window->winId(); }));
    }

    /// Where its content is on the display, once the window manager has come to rest.
    void awaitRectangle(const QRect &wanted) {
        EXPECT_TRUE(eventually([&] { return rectangle(*m_window) == wanted; }))
            << rectangle(*m_window).x() << ',' << rectangle(*m_window).y() << ' ' << rectangle(*m_window).width() << 'x'
            << rectangle(*m_window).height();
    }

    QTemporaryDir m_folder;
    QSettings m_settings{m_folder.filePath(u"palomet.conf"_s), QSettings::IniFormat};
    Shortcuts m_shortcuts{m_settings};
    NoKeyboardLayout m_layout;
    Navigation m_navigation;
    AppView m_app{model(), m_navigation, m_shortcuts, m_layout, {u"1.2.3"_s, u"/home/user"_s}, {}};
    std::unique_ptr<MacWindow> m_window;
};

} // namespace

TEST_F(WindowOnDesktopTest, OpensInTheMiddleInItsOwnSizeWithTheFocus) {
    open();
    EXPECT_TRUE(eventually([this] { return rectangle(*m_window).size() == QSize(1120, 760); }));
    const auto frame = m_window->frameGeometry();
    EXPECT_NEAR(frame.center().x(), 1280, 30);
    EXPECT_NEAR(frame.center().y(), 512, 30);
}

TEST_F(WindowOnDesktopTest, CannotBeMadeTooSmall) {
    open();
    run("xdotool windowsize --sync %1 500 300", m_window->winId());
    EXPECT_TRUE(eventually([this] { return rectangle(*m_window).size() == QSize(960, 640); }));
}

TEST_F(WindowOnDesktopTest, ReopensWhereItWasLeftAfterARestart) {
    open();
    run("xdotool windowmove %1 300 120", m_window->winId());
    run("xdotool windowsize %1 1000 700", m_window->winId());
    EXPECT_TRUE(eventually([this] { return rectangle(*m_window).size() == QSize(1000, 700); }));
    EXPECT_TRUE(eventually([this] { return m_window->geometry() == rectangle(*m_window); }));
    const auto left = rectangle(*m_window);
    m_window->close();
    open();
    awaitRectangle(left);
    // And once more, so that nothing creeps.
    m_window->close();
    open();
    awaitRectangle(left);
}

TEST_F(WindowOnDesktopTest, ReopensWhereItWasAfterItWasClosed) {
    open();
    run("xdotool windowmove %1 300 120", m_window->winId());
    EXPECT_TRUE(eventually([this] { return m_window->geometry().x() < 320; }));
    const auto left = rectangle(*m_window);
    m_window->close();
    EXPECT_FALSE(m_window->isVisible());
    m_window->bringToFront();
    EXPECT_TRUE(eventually([this] { return focusedWindow() == m_window->winId(); }));
    awaitRectangle(left);
}

TEST_F(WindowOnDesktopTest, OpensOnTheScreenThatIsThereNow) {
    m_settings.setValue(u"PalometWindow"_s, QRect(5000, 100, 1000, 700));
    open();
    EXPECT_TRUE(eventually([this] { return QRect(0, 0, 2560, 1024).contains(rectangle(*m_window)); }));
    EXPECT_EQ(rectangle(*m_window).size(), QSize(1000, 700));
}

TEST_F(WindowOnDesktopTest, OpensMaximizedWhenItWasLeftSoAndComesBackToItsFrame) {
    open();
    const auto before = rectangle(*m_window);
    m_window->showMaximized();
    EXPECT_TRUE(eventually([this] { return rectangle(*m_window).width() > 2500; }));
    m_window->close();
    open();
    EXPECT_TRUE(eventually([this] { return rectangle(*m_window).width() > 2500; }));
    m_window->showNormal();
    awaitRectangle(before);
}

TEST_F(WindowOnDesktopTest, ComesToTheFrontOfTheOthers) {
    open();
    test::PlainWindow other(Qt::green);
    other.resize(300, 200);
    show(other);
    m_window->bringToFront();
    EXPECT_TRUE(eventually([this] { return focusedWindow() == m_window->winId(); }));
}

TEST_F(WindowOnDesktopTest, ComesBackFromBeingMinimized) {
    open();
    m_window->showMinimized();
    EXPECT_TRUE(eventually([this] { return !m_app.now()->isActive(); }));
    m_window->bringToFront();
    EXPECT_TRUE(eventually([this] { return focusedWindow() == m_window->winId(); }));
    // The window manager gives the focus before it says that the window is no longer minimized.
    EXPECT_TRUE(eventually([this] { return m_app.now()->isActive(); }));
}
