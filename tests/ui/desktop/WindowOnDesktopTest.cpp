#include "tests/ui/desktop/WindowOnDesktop.h"

#include "platform/x11/X11WindowManagement.h"

using namespace palomet;
using namespace Qt::StringLiterals;
using namespace std::chrono_literals;
using test::eventually;

namespace {

/// A desktop whose windows come to the front when they are new, and have the size that it gives them.
class AsOnWayland final : public WindowManagement {
public:
    explicit AsOnWayland(QSize untoldRoom = {0, 0})
        : m_untoldRoom(untoldRoom) {}
    void introduce(quintptr /*window*/) override {}
    [[nodiscard]] bool activate(quintptr /*window*/) override { return false; }
    [[nodiscard]] bool holdsLeastSize() const override { return true; }
    [[nodiscard]] QSize untoldRoom() const override { return m_untoldRoom; }
    [[nodiscard]] bool raisesNewWindowsOnly() const override { return true; }

private:
    QSize m_untoldRoom;
};

class WindowOnDesktopTest : public test::WindowOnDesktop {
protected:
    /// Where its content is on the display, once the window manager has come to rest.
    void awaitRectangle(const QRect &wanted) {
        EXPECT_TRUE(eventually([&] { return rectangle(*m_window) == wanted; }))
            << rectangle(*m_window).x() << ',' << rectangle(*m_window).y() << ' ' << rectangle(*m_window).width() << 'x'
            << rectangle(*m_window).height();
    }

    void openOnTheSecondOfTwoScreens() {
        run("xrandr --setmonitor first 1280/300x1024/240+0+0 screen");
        run("xrandr --setmonitor second 1280/300x1024/240+1280+0 none");
        EXPECT_TRUE(eventually([] { return hasScreens({QRect(0, 0, 1280, 1024), QRect(1280, 0, 1280, 1024)}); }));
        open();
        run("xdotool windowmove %1 1400 120", m_window->winId());
        EXPECT_TRUE(eventually([this] { return m_window->geometry().x() >= 1280; }));
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

TEST_F(WindowOnDesktopTest, FitsANarrowTileWhereTheToolkitWouldHoldItLarger) {
    AsOnWayland management;
    open(&management);
    awaitRectangle(QRect((2560 - 1120) / 2, (1024 - 760) / 2, 1120, 760));
    run("xdotool windowsize --sync %1 636 500", m_window->winId());
    EXPECT_TRUE(eventually([this] { return rectangle(*m_window).size() == QSize(636, 500); }));
}

TEST_F(WindowOnDesktopTest, LeavesRoomForWhatTheToolkitIsNotToldOf) {
    AsOnWayland management({0, 304});
    open(&management);
    // The screen is 1024 high.
    EXPECT_TRUE(eventually([this] { return rectangle(*m_window).size() == QSize(1120, 720); }));
}

TEST_F(WindowOnDesktopTest, HasItsSizeAgainAfterAScreenThatWasTooSmallForIt) {
    AsOnWayland small({0, 304});
    open(&small);
    EXPECT_TRUE(eventually([this] { return rectangle(*m_window).size() == QSize(1120, 720); }));
    run("xdotool windowmove %1 300 120", m_window->winId());
    EXPECT_TRUE(eventually([this] { return m_window->geometry().x() < 320; }));
    m_window->close();
    AsOnWayland large;
    open(&large);
    EXPECT_TRUE(eventually([this] { return rectangle(*m_window).size() == QSize(1120, 760); }));
    // What the user chooses there is kept.
    run("xdotool windowsize %1 1000 700", m_window->winId());
    EXPECT_TRUE(eventually([this] { return m_window->size() == QSize(1000, 700); }));
    m_window->close();
    open(&large);
    EXPECT_TRUE(eventually([this] { return rectangle(*m_window).size() == QSize(1000, 700); }));
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

TEST_F(WindowOnDesktopTest, ComesToAScreenThatIsThereWhenItsOwnGoes) {
    openOnTheSecondOfTwoScreens();
    run("xrandr --delmonitor second");
    EXPECT_TRUE(eventually([this] { return QRect(0, 0, 1280, 1024).contains(rectangle(*m_window)); }));
    EXPECT_EQ(rectangle(*m_window).size(), QSize(1120, 760));
    run("xrandr --delmonitor first");
    EXPECT_TRUE(eventually([] { return hasScreens({QRect(0, 0, 2560, 1024)}); }));
}

TEST_F(WindowOnDesktopTest, ComesToAScreenThatIsThereWhenItsOwnWentWhileItWasClosed) {
    openOnTheSecondOfTwoScreens();
    m_window->close();
    run("xrandr --delmonitor second");
    EXPECT_TRUE(eventually([] { return hasScreens({QRect(0, 0, 1280, 1024)}); }));
    m_window->bringToFront();
    EXPECT_TRUE(eventually([this] { return QRect(0, 0, 1280, 1024).contains(rectangle(*m_window)); }));
    run("xrandr --delmonitor first");
    EXPECT_TRUE(eventually([] { return hasScreens({QRect(0, 0, 2560, 1024)}); }));
}

TEST_F(WindowOnDesktopTest, IsNoLargerThanAScreenThatIsSmallerThanItsLeastSize) {
    X11WindowManagement management(*m_x11, u"org.palomet.Palomet"_s);
    run("xrandr --newmode tiny 60 800 824 904 1008 500 503 513 520");
    run("xrandr --addmode screen tiny");
    open(&management);
    run("xrandr --output screen --mode tiny");
    EXPECT_TRUE(eventually([this] { return QRect(0, 0, 800, 500).contains(rectangle(*m_window)); }));
    open(&management);
    EXPECT_TRUE(eventually([this] { return QRect(0, 0, 800, 500).contains(rectangle(*m_window)); }));
    run("xrandr --output screen --mode 2560x1024");
    EXPECT_TRUE(eventually([] { return hasScreens({QRect(0, 0, 2560, 1024)}); }));
    run("xdotool windowsize %1 500 300", m_window->winId());
    EXPECT_TRUE(eventually([this] { return rectangle(*m_window).size() == SettingsWindow::minimumContentSize; }));
    run("xrandr --delmode screen tiny");
    run("xrandr --rmmode tiny");
    m_window.reset();
}

TEST_F(WindowOnDesktopTest, IsMaximizedWithinAScreenThatIsSmallerThanItsLeastSize) {
    X11WindowManagement management(*m_x11, u"org.palomet.Palomet"_s);
    run("xrandr --newmode tiny 60 800 824 904 1008 500 503 513 520");
    run("xrandr --addmode screen tiny");
    run("xrandr --output screen --mode tiny");
    EXPECT_TRUE(eventually([] { return hasScreens({QRect(0, 0, 800, 500)}); }));
    m_settings.setValue(u"PalometWindowMaximized"_s, true);
    open(&management);
    EXPECT_TRUE(eventually([this] {
        const auto shown = rectangle(*m_window);
        return shown.width() == 800 && QRect(0, 0, 800, 500).contains(shown);
    }));
    run("xrandr --output screen --mode 2560x1024");
    EXPECT_TRUE(eventually([] { return hasScreens({QRect(0, 0, 2560, 1024)}); }));
    run("xrandr --delmode screen tiny");
    run("xrandr --rmmode tiny");
    m_window.reset();
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
    // A window manager turns to a new window only some time after it shows.
    ASSERT_TRUE(eventually([&] { return focusedWindow() == other.winId(); }));
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

TEST_F(WindowOnDesktopTest, HasTheProgramsIconInEverySizeThatPanelsAskFor) {
    open();
    const QByteArray name("_NET_WM_ICON");
    const XcbReply<xcb_intern_atom_reply_t> atom{xcb_intern_atom_reply(
        m_x11->get(), xcb_intern_atom(m_x11->get(), 0, static_cast<quint16>(name.size()), name.constData()), nullptr)};
    ASSERT_TRUE(atom);
    const auto cookie = xcb_get_property(m_x11->get(), 0, static_cast<xcb_window_t>(m_window->winId()), atom->atom,
                                         XCB_ATOM_CARDINAL, 0, 1'000'000);
    const XcbReply<xcb_get_property_reply_t> reply{xcb_get_property_reply(m_x11->get(), cookie, nullptr)};
    ASSERT_TRUE(reply);
    const auto *words = static_cast<const quint32 *>(xcb_get_property_value(reply.get()));
    const auto count = static_cast<std::size_t>(xcb_get_property_value_length(reply.get())) / sizeof(quint32);
    std::vector<quint32> sizes;
    // Width, height, pixels, and so on.
    for (std::size_t at = 0; at + 2 < count; at += 2 + std::size_t{words[at]} * words[at + 1]) {
        EXPECT_EQ(words[at], words[at + 1]);
        sizes.push_back(words[at]);
        // Its middle is painted.
        EXPECT_EQ(words[at + 2 + words[at] * (words[at] / 2) + words[at] / 2] >> 24, 0xFFU) << words[at];
    }
    EXPECT_EQ(sizes, (std::vector<quint32>{16, 22, 24, 32, 48, 64, 128}));
}

TEST_F(WindowOnDesktopTest, ShowsAnewWhereOnlyNewWindowsComeToTheFrontAndNothingWasGivenForIt) {
    AsOnWayland management;
    open(&management);
    int hidings = 0;
    QObject::connect(m_window.get(), &QWindow::visibleChanged, m_window.get(),
                     [&](bool isVisible) { hidings += isVisible ? 0 : 1; });
    test::PlainWindow other(Qt::green);
    other.resize(300, 200);
    show(other);
    ASSERT_TRUE(eventually([this] { return !m_window->isActive(); }));
    m_window->bringToFront(u"given"_s);
    EXPECT_TRUE(eventually([this] { return m_window->isActive(); }));
    EXPECT_EQ(hidings, 0);
    other.requestActivate();
    ASSERT_TRUE(eventually([this] { return !m_window->isActive(); }));
    m_window->bringToFront();
    EXPECT_TRUE(eventually([this] { return m_window->isActive() && focusedWindow() == m_window->winId(); }));
    EXPECT_EQ(hidings, 1);
    m_window->bringToFront();
    EXPECT_EQ(hidings, 1) << "it is in front";
    m_window.reset();
}
