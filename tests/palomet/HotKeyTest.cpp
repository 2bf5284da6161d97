#include "app/KeyBindings.h"
#include "model/PalometModel.h"
#include "tests/palomet/FollowingTest.h"
#include "tests/palomet/OtherProgram.h"
#include "tests/palomet/WindowManager.h"
#include "tests/support/FakeKeyboard.h"
#include "tests/support/FakeMicrophonePermission.h"
#include "tests/support/ManualScheduler.h"

#include <QSettings>

using namespace palomet;
using namespace Qt::StringLiterals;
using test::eventually;
using test::FakeKeyboard;
using test::OtherProgram;

namespace {

constexpr quint32 option = 0x800;
constexpr quint32 space = 49;
constexpr quint8 capsLock = 0x02;
constexpr quint8 numLock = 0x10;

/// The program under an X server with a window manager.
class HotKeyTest : public test::FollowingTest {
protected:
    void startWindowManager(const char *keys = "") { windowManager.start(desktop, keys); }

    /// Whether "listen" was posted so often, and not once more.
    bool wasListening(int times) {
        return eventually([&] { return backend.http.count("/listen") >= times; }) &&
               backend.http.count("/listen") == times;
    }

    /// The backend enters that state, and the program has followed.
    void enter(const char *state) {
        backend.enter(QString::fromLatin1(state));
        backend.tell("phase");
        EXPECT_TRUE(eventually([&] { return command({u"--status"_s}).output.startsWith(state); })) << state;
    }

    QString hotKeyProblem() const {
        const auto status = command({u"--status"_s, u"--json"_s});
        return QJsonDocument::fromJson(status.output)[u"hotKeyProblem"_s].toString();
    }

    FakeKeyboard keyboard{desktop.display.name()};
    test::WindowManager windowManager;
};

class HotKeyOfAnEndingProgram : public HotKeyTest, public ::testing::WithParamInterface<int> {};

} // namespace

TEST_F(HotKeyTest, OptionSpacePostsListenWhateverLockKeysAreOn) {
    startWindowManager();
    startAndFollow();
    int presses = 0;
    const auto expectListening = [&](quint8 locks) {
        EXPECT_EQ(keyboard.lockedModifiers(), locks);
        desktop.display.key(u"alt+space"_s);
        EXPECT_TRUE(wasListening(++presses)) << "with the lock modifiers " << int(locks);
    };
    expectListening(0);
    desktop.display.key(u"Num_Lock"_s);
    expectListening(numLock);
    desktop.display.key(u"Caps_Lock"_s);
    expectListening(numLock | capsLock);
    desktop.display.key(u"Num_Lock"_s);
    expectListening(capsLock);
    EXPECT_EQ(backend.commands().size(), 4U);
}

TEST_F(HotKeyTest, OptionSpacePostsListenWithARussianLayoutActive) {
    startWindowManager();
    desktop.display.run(u"setxkbmap"_s, {u"us,ru"_s});
    keyboard.activateGroup(1);
    startAndFollow();
    keyboard.strike({FakeKeyboard::alt, FakeKeyboard::space});
    EXPECT_TRUE(wasListening(1));
    EXPECT_EQ(keyboard.activeGroup(), 1);
    desktop.display.key(u"Num_Lock"_s);
    desktop.display.key(u"Caps_Lock"_s);
    keyboard.strike({FakeKeyboard::alt, FakeKeyboard::space});
    EXPECT_TRUE(wasListening(2));
    EXPECT_EQ(keyboard.lockedModifiers(), numLock | capsLock);
    EXPECT_EQ(keyboard.activeGroup(), 1);
}

TEST_F(HotKeyTest, AKeyThatAnotherProgramHoldsIsSaidToBeTaken) {
    startWindowManager();
    OtherProgram other(desktop.display);
    ASSERT_TRUE(other.take(space, option));
    startAndFollow();
    EXPECT_EQ(hotKeyProblem(), u"The desktop did not grant ⌥Space. Try other keys."_s);
}

TEST_F(HotKeyTest, AKeyThatAnotherProgramHoldsIsNotTakenFromItWhenTheLayoutChanges) {
    startWindowManager();
    OtherProgram other(desktop.display);
    ASSERT_TRUE(other.take(space, option));
    startAndFollow();
    const QList<QStringList> changes{{u"us,ru"_s}, {u"br"_s}, {u"-option"_s, u"altwin:swap_alt_win"_s}, {u"-option"_s}};
    for (const auto &change : changes) {
        desktop.display.run(u"setxkbmap"_s, change);
        // As a desktop's own hot keys do then: they let go of all keys, and take them anew.
        other.give();
        // Whoever waits for that has had the time to be quicker.
        for (int look = 0; look < 3; ++look)
            EXPECT_EQ(hotKeyProblem(), u"The desktop did not grant ⌥Space. Try other keys."_s);
        EXPECT_TRUE(other.take(space, option)) << qPrintable(change.join(u' '));
    }
}

TEST_F(HotKeyTest, AKeyThatTheWindowManagerHoldsIsSaidToBeTaken) {
    startWindowManager(R"(<keybind key="A-space"><action name="ShowMenu"><menu>client-menu</menu></action></keybind>)");
    startAndFollow();
    EXPECT_EQ(hotKeyProblem(), u"The desktop did not grant ⌥Space. Try other keys."_s);
}

TEST_F(HotKeyTest, AKeyThatIsGrantedIsNoProblem) {
    startWindowManager();
    startAndFollow();
    EXPECT_EQ(hotKeyProblem(), QString());
}

TEST_P(HotKeyOfAnEndingProgram, IsFreeAgain) {
    startWindowManager();
    startAndFollow();
    OtherProgram other(desktop.display);
    EXPECT_FALSE(other.isFree(space, option));
    sendSignal(GetParam());
    ASSERT_TRUE(awaitEnd());
    EXPECT_TRUE(other.isFreeInTheEnd(space, option));
}

INSTANTIATE_TEST_SUITE_P(However, HotKeyOfAnEndingProgram, ::testing::Values(SIGKILL, SIGTERM),
                         [](const auto &tested) { return tested.param == SIGKILL ? "Killed" : "Asked"; });

TEST_F(HotKeyTest, EscapeIsLeftToOthers) {
    startWindowManager();
    startAndFollow();
    OtherProgram other(desktop.display);
    EXPECT_TRUE(other.isFree(53, 0));
}

TEST_F(HotKeyTest, EscapeIsTakenOnlyWhileTheProgramThinksOrSpeaksAndStopsItThen) {
    startWindowManager();
    startAndFollow();
    OtherProgram other(desktop.display);
    constexpr quint32 escape = 53;
    int stops = 0;
    for (const auto *busy : {"thinking", "speaking", "thinking"}) {
        enter(busy);
        EXPECT_FALSE(other.isFree(escape, 0)) << busy;
        keyboard.strike({FakeKeyboard::escape});
        ++stops;
        EXPECT_TRUE(eventually([&] { return backend.http.count("/stop") == stops; })) << busy;
        for (const auto *idle : {"waiting", "listening", "hearing", "drafting"}) {
            enter(idle);
            EXPECT_TRUE(other.isFree(escape, 0)) << idle;
        }
    }
    enter("speaking");
    EXPECT_FALSE(other.isFree(escape, 0));
    backend.http.serve("/state", "nothing that can be read");
    backend.tell("phase");
    EXPECT_TRUE(eventually([this] { return command({u"--status"_s}).output.startsWith("offline"); }));
    EXPECT_TRUE(other.isFree(escape, 0)) << "there is nothing to stop any more";
    EXPECT_EQ(backend.commands().size(), static_cast<std::size_t>(stops));
}

TEST(StopKey, EscapeIsTakenOnlyWhileThereIsSomethingToStop) {
    const test::PrivateDisplay display;
    const auto connection = X11Connection::open(display.name());
    ASSERT_NE(connection, nullptr);
    OtherProgram other(display);
    FakeKeyboard keyboard(display.name());
    test::ScriptedBackend backend;
    backend.serve("/stop", "{}");
    test::ManualScheduler scheduler;
    const test::FakeMicrophonePermission permission;
    PalometModel model(scheduler, permission, backend.base());
    HotKeys hotKeys(std::make_unique<X11HotKeyGrabber>(*connection));
    const QTemporaryDir folder;
    QSettings settings(folder.filePath(u"palomet.conf"_s), QSettings::IniFormat);
    Shortcuts shortcuts(settings);
    NoKeyboardLayout layout;
    KeyBindings bindings({model, hotKeys, shortcuts, layout, [](const auto &, const auto &) {}, [](const auto &) {}});
    bindings.start();
    constexpr quint32 escape = 53;

    for (int round = 1; round <= 3; ++round) {
        EXPECT_TRUE(other.isFreeInTheEnd(escape, 0));
        bindings.setStopNeeded(true);
        EXPECT_FALSE(other.isFree(escape, 0));
        keyboard.strike({FakeKeyboard::escape});
        EXPECT_TRUE(eventually([&] { return backend.count("/stop") == round; }));
        bindings.setStopNeeded(false);
    }
    EXPECT_TRUE(other.isFreeInTheEnd(escape, 0));
    EXPECT_FALSE(other.isFree(space, option)) << "the listen key stays";
    EXPECT_EQ(backend.exchanges().size(), 3U);
}
