#include "platform/x11/X11WindowManagement.h"

#include "tests/support/Eventually.h"
#include "tests/support/PrivateDisplay.h"
#include "tests/support/WindowManagerDouble.h"

#include <gtest/gtest.h>

using namespace palomet;
using namespace Qt::StringLiterals;
using test::eventually;
using test::WindowManagerDouble;

namespace {

class X11WindowManagementTest : public testing::Test {
protected:
    /// A window of the program's, made by its toolkit on a connection of its own.
    [[nodiscard]] xcb_window_t makeWindow() const {
        auto *xcb = toolkit->get();
        const auto made = xcb_generate_id(xcb);
        xcb_create_window(xcb, XCB_COPY_FROM_PARENT, made, toolkit->root(), 0, 0, 100, 100, 0,
                          XCB_WINDOW_CLASS_INPUT_OUTPUT, XCB_COPY_FROM_PARENT, 0, nullptr);
        // The answer to a question behind it says that it is there.
        const XcbReply<xcb_get_input_focus_reply_t> answer(
            xcb_get_input_focus_reply(xcb, xcb_get_input_focus(xcb), nullptr));
        return made;
    }
    [[nodiscard]] xcb_timestamp_t timeOfSomethingElse() {
        manager.doSomething();
        EXPECT_TRUE(eventually([this] { return manager.now() != 0; }));
        return manager.now();
    }

    const test::PrivateDisplay display;
    const std::unique_ptr<X11Connection> connection = X11Connection::open(display.name());
    const std::unique_ptr<X11Connection> toolkit = X11Connection::open(display.name());
    WindowManagerDouble manager{display.name()};
    X11WindowManagement management{*connection, u"org.palomet.Palomet"_s};
    const xcb_window_t window = makeWindow();
};

} // namespace

TEST_F(X11WindowManagementTest, AsksForTheFocusAsTheUserDoesAndLaterThanWhateverWasDoneElsewhere) {
    for (std::size_t times = 1; times <= 2; ++times) {
        const auto before = timeOfSomethingElse();
        EXPECT_TRUE(management.activate(window));
        ASSERT_TRUE(eventually([&] { return manager.requests().size() == times; }));
        const auto request = manager.requests().back();
        EXPECT_EQ(request.window, window);
        EXPECT_EQ(request.source, 2U);
        EXPECT_GE(request.time, before);
        EXPECT_EQ(manager.property(window, "_NET_WM_USER_TIME"), std::vector<quint32>{request.time});
    }
}

TEST_F(X11WindowManagementTest, TellsTheTimeWhereTheToolkitKeepsIt) {
    const auto keeper = makeWindow();
    xcb_change_property(toolkit->get(), XCB_PROP_MODE_REPLACE, window, manager.makeAtom("_NET_WM_USER_TIME_WINDOW"),
                        XCB_ATOM_WINDOW, 32, 1, &keeper);
    static_cast<void>(makeWindow());
    EXPECT_TRUE(management.activate(window));
    ASSERT_TRUE(eventually([&] { return manager.requests().size() == 1; }));
    EXPECT_EQ(manager.property(keeper, "_NET_WM_USER_TIME"), std::vector<quint32>{manager.requests().front().time});
    EXPECT_TRUE(manager.property(window, "_NET_WM_USER_TIME").empty());
}

TEST_F(X11WindowManagementTest, SaysTheNameOfTheDesktopFile) {
    management.introduce(window);
    for (const auto *name : {"_KDE_NET_WM_DESKTOP_FILE", "_GTK_APPLICATION_ID"})
        EXPECT_TRUE(eventually([&] { return manager.text(window, name) == "org.palomet.Palomet"; })) << name;
}

TEST(X11WindowManagement, LeavesTheFocusToTheToolkitWhereNoWindowManagerCanBeAsked) {
    const test::PrivateDisplay display;
    const auto connection = X11Connection::open(display.name());
    ASSERT_NE(connection, nullptr);
    X11WindowManagement management(*connection, u"org.palomet.Palomet"_s);
    EXPECT_FALSE(management.activate(connection->root()));
}
