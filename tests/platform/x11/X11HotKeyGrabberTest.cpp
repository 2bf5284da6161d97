#include "platform/x11/X11HotKeyGrabber.h"

#include "platform/x11/X11Connection.h"
#include "tests/support/Eventually.h"
#include "tests/support/FakeKeyboard.h"
#include "tests/support/PrivateDisplay.h"

#include <gtest/gtest.h>
#include <xcb/xcb.h>

#include <vector>

using namespace palomet;
using namespace Qt::StringLiterals;

namespace {

constexpr quint32 option = 0x800;
constexpr quint32 space = 49;
constexpr quint32 escape = 53;

class X11HotKeyGrabberTest : public testing::Test {
protected:
    void SetUp() override {
        ASSERT_FALSE(display.name().isEmpty());
        connection = X11Connection::open(display.name());
        ASSERT_NE(connection, nullptr);
        grabber = std::make_unique<X11HotKeyGrabber>(*connection);
        grabber->onPressed = [this](quint32 id) { pressed.push_back(id); };
        grabber->onRefused = [this](quint32 id) { refused.push_back(id); };
        QObject::connect(connection.get(), &X11Connection::received, connection.get(),
                         [this](const xcb_generic_event_t &event) {
                             if ((event.response_type & 0x7FU) == XCB_KEY_PRESS)
                                 ++pressEvents;
                         });
    }

    /// Whether the server goes on sending presses of the key that is held.
    bool isRepeated() {
        const auto before = pressEvents;
        return test::eventually([&] { return pressEvents >= before + 3; });
    }

    void repeatSoon() { display.run(u"xset"_s, {u"r"_s, u"rate"_s, u"100"_s, u"50"_s}); }

    /// Presses keys, then a key that is surely delivered, so that what has not come by then will not come.
    void pressAndSettle(const QString &keys) {
        display.key(keys);
        ASSERT_TRUE(grabber->grab(99, 96, 0)); // F5
        display.key(u"F5"_s);
        ASSERT_TRUE(test::eventually([&] { return !pressed.empty() && pressed.back() == 99; }));
        pressed.pop_back();
        grabber->release(99);
    }

    test::PrivateDisplay display;
    std::unique_ptr<X11Connection> connection;
    std::unique_ptr<X11HotKeyGrabber> grabber;
    std::vector<quint32> pressed;
    std::vector<quint32> refused;
    int pressEvents = 0;
};

} // namespace

TEST_F(X11HotKeyGrabberTest, IsToldOfAKeyPressedAnywhereOnceAPress) {
    ASSERT_TRUE(grabber->grab(1, space, option));
    pressAndSettle(u"alt+space"_s);
    EXPECT_EQ(pressed, std::vector<quint32>({1}));
    pressAndSettle(u"alt+space"_s);
    EXPECT_EQ(pressed, std::vector<quint32>({1, 1}));
}

TEST_F(X11HotKeyGrabberTest, HearsTheKeyWhateverLockKeysAreOn) {
    ASSERT_TRUE(grabber->grab(1, space, option));
    for (const auto *locks : {"Num_Lock", "Caps_Lock", "Num_Lock"}) { // Num Lock; both; Caps Lock alone.
        display.key(QLatin1StringView(locks));
        pressAndSettle(u"alt+space"_s);
    }
    EXPECT_EQ(pressed, std::vector<quint32>({1, 1, 1}));
}

TEST_F(X11HotKeyGrabberTest, HearsTheKeyWithAnotherLayoutActive) {
    display.run(u"setxkbmap"_s, {u"us,ru"_s});
    test::FakeKeyboard keyboard(display.name());
    keyboard.activateGroup(1);
    X11HotKeyGrabber fresh(*connection);
    std::vector<quint32> heard;
    fresh.onPressed = [&](quint32 id) { heard.push_back(id); };
    ASSERT_TRUE(fresh.grab(1, space, option));
    keyboard.strike({test::FakeKeyboard::alt, test::FakeKeyboard::space});
    EXPECT_TRUE(test::eventually([&] { return heard == std::vector<quint32>({1}); }));
    EXPECT_EQ(keyboard.activeGroup(), 1);
}

TEST_F(X11HotKeyGrabberTest, IgnoresAutoRepeat) {
    repeatSoon();
    ASSERT_TRUE(grabber->grab(1, space, option));
    display.run(u"xdotool"_s, {u"keydown"_s, u"alt"_s, u"space"_s});
    ASSERT_TRUE(isRepeated());
    display.run(u"xdotool"_s, {u"keyup"_s, u"space"_s, u"alt"_s});
    pressAndSettle(u"F9"_s);
    EXPECT_EQ(pressed, std::vector<quint32>({1}));
}

TEST_F(X11HotKeyGrabberTest, TakesNoPressFromAKeyThatWasHeldBeforeItWasGrabbedUntilItIsPressedAgain) {
    repeatSoon();
    display.run(u"xdotool"_s, {u"keydown"_s, u"space"_s});
    ASSERT_TRUE(grabber->grab(1, space, 0));
    ASSERT_TRUE(isRepeated());
    display.run(u"xdotool"_s, {u"keyup"_s, u"space"_s});
    pressAndSettle(u"F9"_s);
    EXPECT_TRUE(pressed.empty());
    pressAndSettle(u"space"_s);
    EXPECT_EQ(pressed, std::vector<quint32>({1}));
}

TEST_F(X11HotKeyGrabberTest, HearsAKeyThatWasHeldBeforeItWasGrabbedAndReleasedBeforeItRepeated) {
    display.run(u"xdotool"_s, {u"keydown"_s, u"space"_s});
    ASSERT_TRUE(grabber->grab(1, space, 0));
    display.run(u"xdotool"_s, {u"keyup"_s, u"space"_s});
    pressAndSettle(u"space"_s);
    EXPECT_EQ(pressed, std::vector<quint32>({1}));
}

TEST_F(X11HotKeyGrabberTest, ReportsThatAnotherProgramHoldsTheKey) {
    const auto otherConnection = X11Connection::open(display.name());
    ASSERT_NE(otherConnection, nullptr);
    X11HotKeyGrabber other(*otherConnection);
    ASSERT_TRUE(other.grab(1, space, option));
    EXPECT_FALSE(grabber->grab(1, space, option));
    other.release(1);
    // The release travels on another connection: wait until the server has seen it.
    EXPECT_TRUE(test::eventually([&] { return grabber->grab(1, space, option); }));
}

TEST_F(X11HotKeyGrabberTest, LeavesNothingTakenAfterAPartialRefusal) {
    const auto otherConnection = X11Connection::open(display.name());
    X11HotKeyGrabber other(*otherConnection);
    ASSERT_TRUE(other.grab(1, space, option));
    EXPECT_FALSE(grabber->grab(1, space, option));
    EXPECT_TRUE(grabber->grab(1, escape, 0));
}

TEST_F(X11HotKeyGrabberTest, GivesAKeyBack) {
    ASSERT_TRUE(grabber->grab(1, space, option));
    grabber->release(1);
    pressAndSettle(u"alt+space"_s);
    EXPECT_TRUE(pressed.empty());
}

TEST_F(X11HotKeyGrabberTest, HearsAKeyThatIsPressedWhileItIsGivenBackToBeTakenAnew) {
    ASSERT_TRUE(grabber->grab(1, space, option));
    test::FakeKeyboard keyboard(display.name());
    std::vector<quint32> expected;
    for (int round = 0; round < 10; ++round) {
        grabber->release(1);
        keyboard.strike({test::FakeKeyboard::alt, test::FakeKeyboard::space});
        // The answer to a question behind it says that the key was pressed.
        static_cast<void>(keyboard.activeGroup());
        ASSERT_TRUE(grabber->grab(1, space, option));
        expected.push_back(1);
        ASSERT_TRUE(test::eventually([&] { return pressed == expected; }));
    }
}

TEST_F(X11HotKeyGrabberTest, GivesBackWhatWasGivenForAnotherKey) {
    ASSERT_TRUE(grabber->grab(1, space, option));
    grabber->release(1);
    ASSERT_TRUE(grabber->grab(1, escape, 0));
    const auto otherConnection = X11Connection::open(display.name());
    X11HotKeyGrabber other(*otherConnection);
    EXPECT_TRUE(test::eventually([&] { return other.grab(1, space, option); }));
    EXPECT_FALSE(other.grab(2, escape, 0));
}

TEST_F(X11HotKeyGrabberTest, HearsAKeyWhoseReleaseWentToAnotherProgram) {
    ASSERT_TRUE(grabber->grab(1, space, option));
    ASSERT_TRUE(grabber->grab(2, escape, 0));
    test::FakeKeyboard keyboard(display.name());
    // The server sends every key here while the first is held, and no longer.
    keyboard.press(test::FakeKeyboard::escape);
    keyboard.press(test::FakeKeyboard::alt);
    keyboard.press(test::FakeKeyboard::space);
    ASSERT_TRUE(test::eventually([&] { return pressed == std::vector<quint32>({2, 1}); }));
    keyboard.release(test::FakeKeyboard::escape);
    keyboard.release(test::FakeKeyboard::space);
    keyboard.release(test::FakeKeyboard::alt);
    pressAndSettle(u"F9"_s);
    keyboard.strike({test::FakeKeyboard::alt, test::FakeKeyboard::space});
    EXPECT_TRUE(test::eventually([&] { return pressed == std::vector<quint32>({2, 1, 1}); }));
}

TEST_F(X11HotKeyGrabberTest, ItsKeysAreFreeAgainWhenItsConnectionEnds) {
    {
        const auto otherConnection = X11Connection::open(display.name());
        X11HotKeyGrabber other(*otherConnection);
        ASSERT_TRUE(other.grab(1, space, option));
    }
    EXPECT_TRUE(test::eventually([&] { return grabber->grab(1, space, option); }));
}

TEST_F(X11HotKeyGrabberTest, TakesItsKeysAnewWhenTheKeyboardIsMappedAnew) {
    ASSERT_TRUE(grabber->grab(1, space, option));
    // Alt becomes another modifier: the old grab alone would never match again.
    display.run(u"xmodmap"_s,
                {u"-e"_s, u"clear mod1"_s, u"-e"_s, u"clear mod3"_s, u"-e"_s, u"add mod3 = Alt_L Alt_R Meta_L"_s});
    EXPECT_TRUE(test::eventually([&] {
        display.key(u"alt+space"_s);
        return !pressed.empty();
    }));
    EXPECT_TRUE(refused.empty());
}

TEST_F(X11HotKeyGrabberTest, LeavesAKeyToTheProgramThatHoldsItWhenTheKeyboardIsMappedAnew) {
    const auto otherConnection = X11Connection::open(display.name());
    X11HotKeyGrabber other(*otherConnection);
    std::vector<quint32> heard;
    other.onPressed = [&](quint32 id) { heard.push_back(id); };
    ASSERT_TRUE(other.grab(7, space, option));
    ASSERT_FALSE(grabber->grab(1, space, option));
    for (const auto *mapping : {"ru", "fr", "us,ru", "us"}) {
        display.run(u"setxkbmap"_s, {QLatin1StringView(mapping)});
        heard.clear();
        // Through every layout there is a press that the other hears, and nobody else.
        EXPECT_TRUE(test::eventually([&] {
            display.key(u"alt+space"_s);
            return !heard.empty();
        }));
    }
    EXPECT_TRUE(pressed.empty());
    EXPECT_TRUE(refused.empty());
}

TEST_F(X11HotKeyGrabberTest, WorksWithoutAModifierForNumLock) {
    display.run(u"xmodmap"_s, {u"-e"_s, u"clear mod2"_s});
    X11HotKeyGrabber fresh(*connection);
    std::vector<quint32> heard;
    fresh.onPressed = [&](quint32 id) { heard.push_back(id); };
    ASSERT_TRUE(fresh.grab(1, space, option));
    display.key(u"alt+space"_s);
    EXPECT_TRUE(test::eventually([&] { return heard == std::vector<quint32>({1}); }));
}

TEST_F(X11HotKeyGrabberTest, RefusesAKeyThatNoKeyboardHas) {
    EXPECT_FALSE(grabber->grab(1, 0xFFFF, option));
}

TEST(X11Connection, IsNotThereWithoutAServer) {
    EXPECT_EQ(X11Connection::open(":4097"), nullptr);
}
