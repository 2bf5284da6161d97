#include "tests/ui/screens/WindowTest.h"

#include <array>
#include <functional>

using namespace palomet;
using namespace palomet::test;

namespace {

/// The key recorders in the window, which take every key while they record.
class RecorderKeysTest : public WindowTest {};

} // namespace

TEST_F(RecorderKeysTest, RecordsAShortcutThatTheKeyboardBegan) {
    setFull();
    open(Pane::Listening);
    auto *recorder = named("Pressable", QStringLiteral("Stop"));
    recorder->forceActiveFocus(Qt::TabFocusReason);
    key(Qt::Key_Return);
    EXPECT_TRUE(app.listening()->stopShortcut()->isRecording());
    QKeyEvent f6(QEvent::KeyPress, Qt::Key_F6, Qt::NoModifier, 64 + 8, 0, 0);
    QCoreApplication::sendEvent(window.get(), &f6);
    EXPECT_FALSE(app.listening()->stopShortcut()->isRecording());
    EXPECT_EQ(shortcuts.stop(), Shortcut(97, 0));
}

TEST_F(RecorderKeysTest, StopsRecordingWithoutAChangeWhenTheRecorderLosesTheFocus) {
    setFull();
    open(Pane::Listening);
    const std::array<std::function<void()>, 4> ways{
        [&] { key(Qt::Key_Tab); },
        [&] { key(Qt::Key_Backtab, Qt::ShiftModifier); },
        [&] { press(named("SidebarItem", QStringLiteral("Listening"))); },
        [&] {
            QWindow other;
            other.show();
            other.requestActivate();
            EXPECT_TRUE(QTest::qWaitForWindowActive(&other));
            window->requestActivate();
            EXPECT_TRUE(QTest::qWaitForWindowActive(window.get()));
        },
    };
    for (const auto *name : {"Listen", "Stop"}) {
        for (const auto &leave : ways) {
            pressInView(named("Pressable", QString::fromLatin1(name)));
            ASSERT_TRUE(shortcuts.isPaused());
            leave();
            EXPECT_FALSE(shortcuts.isPaused()) << name;
            QKeyEvent b(QEvent::KeyPress, Qt::Key_B, Qt::ControlModifier, 48 + 8, 0, 0);
            QCoreApplication::sendEvent(window.get(), &b);
        }
    }
    EXPECT_EQ(shortcuts.listen(), Shortcuts::defaultListen);
    EXPECT_EQ(shortcuts.stop(), Shortcuts::defaultStop);
}

TEST_F(RecorderKeysTest, StopsRecordingWhenTheWindowIsClosed) {
    setFull();
    open(Pane::Listening);
    pressInView(named("Pressable", QStringLiteral("Listen")));
    ASSERT_TRUE(shortcuts.isPaused());
    window->close();
    EXPECT_FALSE(shortcuts.isPaused());
    EXPECT_FALSE(app.listening()->listenShortcut()->isRecording());
}

TEST_F(RecorderKeysTest, StopsRecordingWhenAnotherPaneIsChosen) {
    setFull();
    open(Pane::Listening);
    pressInView(named("Pressable", QStringLiteral("Listen")));
    ASSERT_TRUE(shortcuts.isPaused());
    press(named("SidebarItem", QStringLiteral("Voice")));
    EXPECT_FALSE(shortcuts.isPaused());
}

TEST_F(RecorderKeysTest, ForgetsARefusedShortcutWithThePane) {
    setFull();
    open(Pane::Listening);
    pressInView(named("Pressable", QStringLiteral("Listen")));
    QKeyEvent shiftA(QEvent::KeyPress, Qt::Key_A, Qt::ShiftModifier, 30 + 8, 0, 0);
    QCoreApplication::sendEvent(window.get(), &shiftA);
    EXPECT_NE(app.listening()->listenShortcut()->message(), QString());
    press(named("SidebarItem", QStringLiteral("Voice")));
    press(named("SidebarItem", QStringLiteral("Listening")));
    EXPECT_EQ(app.listening()->listenShortcut()->message(), QString());
}
