#include "platform/x11/X11WorkArea.h"

#include "platform/x11/X11Connection.h"
#include "platform/x11/X11HotKeyGrabber.h"
#include "tests/support/Eventually.h"
#include "tests/support/FakeKeyboard.h"
#include "tests/support/PrivateDisplay.h"

#include <QCoreApplication>

#include <gtest/gtest.h>

using namespace palomet;

namespace {

/// A display on which the window manager says what it likes.
class X11WorkAreaTest : public testing::Test {
protected:
    void say(const char *property, const char *numbers) const {
        const auto name = QString::fromLatin1(property);
        display.run(QStringLiteral("xprop"),
                    {QStringLiteral("-root"), QStringLiteral("-f"), name, QStringLiteral("32c"), QStringLiteral("-set"),
                     name, QString::fromLatin1(numbers)});
    }

    const test::PrivateDisplay display;
    const std::unique_ptr<X11Connection> connection = X11Connection::open(display.name());
    const X11WorkArea area{*connection};
    const QRect whole{0, 0, 1280, 800};
    const QRect left{0, 0, 640, 800};
    const QRect right{640, 0, 640, 800};
};

} // namespace

TEST_F(X11WorkAreaTest, LeavesAPanelThatIsNoWindowOfItsOwn) {
    say("_NET_WORKAREA", "0,32,1280,700");
    EXPECT_EQ(area.usable(whole), QRect(0, 32, 1280, 700));
    // Its size is rounded to points where these are no whole pixels.
    EXPECT_EQ(area.usable({0, 0, 1278, 799}), QRect(0, 32, 1278, 700));
}

TEST_F(X11WorkAreaTest, IsThatOfTheDesktopThatIsShown) {
    say("_NET_WORKAREA", "0,0,1280,800,0,0,1280,760");
    EXPECT_EQ(area.usable(whole), whole);
    say("_NET_CURRENT_DESKTOP", "1");
    EXPECT_EQ(area.usable(whole), QRect(0, 0, 1280, 760));
    say("_NET_CURRENT_DESKTOP", "7");
    EXPECT_EQ(area.usable(whole), whole) << "of which it says nothing";
}

TEST_F(X11WorkAreaTest, OfOneOfSeveralScreensIsNotThatOfAllTogether) {
    say("_NET_WORKAREA", "0,32,1280,700");
    EXPECT_EQ(area.usable(left), left);
    EXPECT_EQ(area.usable(right), right);
}

TEST_F(X11WorkAreaTest, OfOneOfSeveralScreensIsWhatTheWindowManagerSaysOfThatOne) {
    say("_NET_CURRENT_DESKTOP", "2");
    say("_GTK_WORKAREAS_D2", "0,0,640,760,640,32,640,768");
    EXPECT_EQ(area.usable(left), QRect(0, 0, 640, 760));
    EXPECT_EQ(area.usable(right), QRect(640, 32, 640, 768));
    say("_NET_CURRENT_DESKTOP", "0");
    EXPECT_EQ(area.usable(right), right);
}

TEST_F(X11WorkAreaTest, IsTheScreenWhereWhatIsSaidIsOfAnotherTimeOrNonsense) {
    for (const auto *numbers : {"4000,0,1280,800", "0,0,0,0", "0,0,1280", "4294967295,4294967295,1,1",
                                "2147483647,2147483647,2147483647,2147483647"}) {
        say("_NET_WORKAREA", numbers);
        say("_GTK_WORKAREAS_D0", numbers);
        EXPECT_EQ(area.usable(whole), whole) << numbers;
    }
}

TEST(X11WorkArea, HoldsBackNoKeyThatIsPressedWhileItAsks) {
    constexpr quint32 spaceKey = 49;
    const test::PrivateDisplay display;
    // Its repetition would wake us.
    display.run(QStringLiteral("xset"), {QStringLiteral("r"), QStringLiteral("off")});
    const auto connection = X11Connection::open(display.name());
    ASSERT_NE(connection, nullptr);
    X11HotKeyGrabber grabber(*connection);
    int pressed = 0;
    grabber.onPressed = [&](quint32) { ++pressed; };
    ASSERT_TRUE(grabber.grab(1, spaceKey, 0));
    // Events of the grab that are still under way.
    QCoreApplication::processEvents();
    test::FakeKeyboard keyboard(display.name());
    keyboard.press(test::FakeKeyboard::space);
    // The answer to a question behind it says that the press is on its way to us.
    static_cast<void>(keyboard.activeGroup());
    const QRect screen(0, 0, 1280, 800);
    EXPECT_EQ(X11WorkArea(*connection).usable(screen), screen);
    EXPECT_TRUE(test::eventually([&] { return pressed == 1; }));
    keyboard.release(test::FakeKeyboard::space);
}
