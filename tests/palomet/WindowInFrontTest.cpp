#include "tests/palomet/ProgramTest.h"
#include "tests/support/WindowManagerDouble.h"

using namespace palomet;
using namespace Qt::StringLiterals;
using test::eventually;
using test::WindowManagerDouble;

namespace {

/// The program under a window manager that gives the focus to nobody who asks for it with a time of before.
class WindowInFrontTest : public test::ProgramTest {
protected:
    /// The program runs, and its window shows and was asked to the front.
    void startWithWindow() {
        desktop.tray.appear();
        start();
        awaitBackend();
        EXPECT_EQ(command({u"--open"_s}).exitCode, 0);
        ASSERT_TRUE(eventually([this] { return !manager.requests().empty(); }));
        window = manager.requests().front().window;
    }

    /// The user works in another program, then does that, and the window is asked to the front as of after.
    template <typename Deed>
    void comesToTheFront(Deed deed) {
        manager.doSomething();
        ASSERT_TRUE(eventually([this] { return manager.now() != 0; }));
        const auto before = manager.now();
        deed();
        EXPECT_TRUE(eventually([&] {
            const auto last = manager.requests().back();
            return last.window == window && last.time >= before;
        })) << "asked at "
            << manager.requests().back().time << ", with the user elsewhere at " << before;
    }

    WindowManagerDouble manager{desktop.display.name()};
    xcb_window_t window = XCB_NONE;
};

} // namespace

TEST_F(WindowInFrontTest, IsTheWindowOnEveryWayToOpenIt) {
    startWithWindow();
    comesToTheFront([this] { EXPECT_EQ(command({u"--open"_s}).exitCode, 0); });
    comesToTheFront([this] { EXPECT_EQ(command({u"--open"_s, u"voice"_s}).exitCode, 0); });
    comesToTheFront([this] { EXPECT_EQ(command({}).exitCode, 0); });
    comesToTheFront([this] { desktop.tray.activate(); });
    comesToTheFront([this] { EXPECT_TRUE(desktop.tray.click(u"Open Palomet"_s)); });
}

TEST_F(WindowInFrontTest, HasTheProgramsNameAndIcon) {
    startWithWindow();
    EXPECT_EQ(manager.text(window, "_KDE_NET_WM_DESKTOP_FILE"), "org.palomet.Palomet");
    EXPECT_EQ(manager.text(window, "_GTK_APPLICATION_ID"), "org.palomet.Palomet");
    EXPECT_EQ(manager.text(window, "WM_CLASS"), QByteArray("palomet\0Palomet\0", 16));
    EXPECT_FALSE(manager.property(window, "_NET_WM_ICON").empty());
}

TEST_F(WindowInFrontTest, HasTheProgramsNameAndIconInThePreview) {
    start({u"--preview"_s});
    ASSERT_TRUE(eventually([this] { return !manager.windows().empty(); }));
    window = manager.windows().front();
    EXPECT_TRUE(
        eventually([this] { return manager.text(window, "_KDE_NET_WM_DESKTOP_FILE") == "org.palomet.Palomet"; }));
    EXPECT_EQ(manager.text(window, "WM_CLASS"), QByteArray("palomet\0Palomet\0", 16));
    EXPECT_FALSE(manager.property(window, "_NET_WM_ICON").empty());
}
