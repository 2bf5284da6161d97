#include "tests/ui/desktop/WindowOnDesktop.h"

using namespace palomet;
using namespace Qt::StringLiterals;
using namespace std::chrono_literals;
using test::eventually;

namespace {

class WindowOnDesktopTest : public test::WindowOnDesktop {
protected:
    /// Where its content is on the display, once the window manager has come to rest.
    void awaitRectangle(const QRect &wanted) {
        EXPECT_TRUE(eventually([&] { return rectangle(*m_window) == wanted; }))
            << rectangle(*m_window).x() << ',' << rectangle(*m_window).y() << ' ' << rectangle(*m_window).width() << 'x'
            << rectangle(*m_window).height();
    }
};

} // namespace

TEST_F(WindowOnDesktopTest, OpensInTheMiddleInItsOwnSizeWithTheFocus) {
    open();
    awaitRectangle(QRect((2560 - 1120) / 2, (1024 - 760) / 2, 1120, 760));
    // Nothing creeps when it is closed before it was ever moved.
    m_window->close();
    open();
    awaitRectangle(QRect((2560 - 1120) / 2, (1024 - 760) / 2, 1120, 760));
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
