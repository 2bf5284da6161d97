#include "tests/ui/screens/KeyRecorderTest.h"

#include "localization/Localization.h"

#include <QCoreApplication>
#include <QKeyEvent>

using namespace palomet;
using namespace palomet::test;
using namespace Qt::StringLiterals;

namespace {

constexpr quint32 space = 49;
constexpr quint32 backspace = 51;
constexpr quint32 escape = 53;
constexpr quint32 f6 = 97;
constexpr quint32 forwardDelete = 117;

/// Somewhere that keys would go, were they not swallowed.
class Listener final : public QObject {
public:
    bool event(QEvent *event) override {
        if (event->type() == QEvent::KeyPress || event->type() == QEvent::ShortcutOverride)
            ++heard;
        return QObject::event(event);
    }
    int heard = 0;
};

} // namespace

TEST_F(KeyRecorderTest, PausesTheHotKeysWhileItRecordsAndOnlyThen) {
    listen.toggle();
    EXPECT_TRUE(listen.isRecording());
    EXPECT_TRUE(shortcuts.isPaused());
    EXPECT_EQ(changes, 1);
    listen.toggle();
    EXPECT_FALSE(listen.isRecording());
    EXPECT_FALSE(shortcuts.isPaused());
    EXPECT_EQ(changes, 2);
    listen.stop();
    EXPECT_EQ(changes, 2) << "nothing to resume";
}

TEST_F(KeyRecorderTest, RefusesShiftAndALetterForListeningAndGoesOnRecording) {
    listen.toggle();
    listen.handle(keyA, Shortcut::shift);
    EXPECT_EQ(listen.message(), L("recorder.needsModifier"));
    EXPECT_TRUE(listen.isRecording());
    EXPECT_TRUE(shortcuts.isPaused());
    EXPECT_EQ(shortcuts.listen(), Shortcuts::defaultListen);
    listen.handle(keyA, Shortcut::control);
    EXPECT_FALSE(listen.isRecording());
    EXPECT_EQ(shortcuts.listen(), Shortcut(keyA, Shortcut::control));
}

TEST_F(KeyRecorderTest, TakesAFunctionKeyAloneForListening) {
    listen.toggle();
    listen.handle(f6, 0);
    EXPECT_EQ(shortcuts.listen(), Shortcut(f6, 0));
    EXPECT_FALSE(listen.isRecording());
    EXPECT_FALSE(shortcuts.isPaused());
    EXPECT_EQ(listen.message(), QString());
}

TEST_F(KeyRecorderTest, TakesEscapeAloneForStopping) {
    shortcuts.setStop(std::nullopt);
    stop.toggle();
    stop.handle(escape, 0);
    EXPECT_EQ(shortcuts.stop(), Shortcut(escape, 0));
    EXPECT_FALSE(stop.isRecording());
}

TEST_F(KeyRecorderTest, TakesALetterAloneForStopping) {
    stop.toggle();
    stop.handle(keyA, 0);
    EXPECT_EQ(shortcuts.stop(), Shortcut(keyA, 0));
}

TEST_F(KeyRecorderTest, CancelsListeningWithEscape) {
    listen.toggle();
    listen.handle(escape, 0);
    EXPECT_FALSE(listen.isRecording());
    EXPECT_EQ(shortcuts.listen(), Shortcuts::defaultListen);
    EXPECT_EQ(listen.message(), QString());
}

TEST_F(KeyRecorderTest, RefusesForListeningWhatStopsAlready) {
    shortcuts.setStop(Shortcut(keyK, Shortcut::control | Shortcut::option));
    listen.toggle();
    listen.handle(keyK, Shortcut::control | Shortcut::option);
    EXPECT_EQ(listen.message(), u"⌃⌥K already does “Stop”."_s);
    EXPECT_EQ(shortcuts.listen(), Shortcuts::defaultListen);
    EXPECT_FALSE(listen.isRecording());
    EXPECT_FALSE(shortcuts.isPaused());
}

TEST_F(KeyRecorderTest, RefusesForStoppingWhatListensAlready) {
    stop.toggle();
    stop.handle(space, Shortcut::option);
    EXPECT_EQ(stop.message(), u"⌥Space already does “Listen”."_s);
    EXPECT_EQ(shortcuts.stop(), Shortcuts::defaultStop);
}

TEST_F(KeyRecorderTest, TakesItsOwnShortcutAgain) {
    listen.toggle();
    listen.handle(space, Shortcut::option);
    EXPECT_EQ(listen.message(), QString());
    EXPECT_EQ(shortcuts.listen(), Shortcuts::defaultListen);
}

TEST_F(KeyRecorderTest, ClearsWithEitherDeleteAlone) {
    for (const auto key : {backspace, forwardDelete}) {
        for (auto *recorder : {&listen, &stop}) {
            shortcuts.setListen(Shortcuts::defaultListen);
            shortcuts.setStop(Shortcuts::defaultStop);
            recorder->toggle();
            recorder->handle(key, 0);
            EXPECT_FALSE(recorder->isRecording());
            EXPECT_EQ(recorder == &listen ? shortcuts.listen() : shortcuts.stop(), std::nullopt);
            EXPECT_TRUE(recorder->caps().isEmpty());
            EXPECT_EQ(recorder->spoken(), QString());
        }
    }
}

TEST_F(KeyRecorderTest, TakesDeleteWithAModifierAsAShortcut) {
    listen.toggle();
    listen.handle(backspace, Shortcut::command);
    EXPECT_EQ(shortcuts.listen(), Shortcut(backspace, Shortcut::command));
    stop.toggle();
    stop.handle(forwardDelete, Shortcut::shift);
    EXPECT_EQ(shortcuts.stop(), Shortcut(forwardDelete, Shortcut::shift));
}

TEST_F(KeyRecorderTest, LooksPastCapsLock) {
    listen.toggle();
    listen.handle(escape, 0x10000);
    EXPECT_FALSE(listen.isRecording());
    EXPECT_EQ(shortcuts.listen(), Shortcuts::defaultListen);
}

TEST_F(KeyRecorderTest, KeepsItsMessageUntilTheNextStart) {
    listen.toggle();
    listen.handle(keyA, 0);
    listen.toggle();
    EXPECT_EQ(listen.message(), L("recorder.needsModifier"));
    listen.toggle();
    EXPECT_EQ(listen.message(), QString());
    listen.toggle();
}

TEST_F(KeyRecorderTest, ResumesTheHotKeysWhenItEndsWhileRecording) {
    {
        KeyRecorder gone(KeyRecorder::Role::Listen, shortcuts, layout);
        gone.toggle();
    }
    EXPECT_FALSE(shortcuts.isPaused());
    Listener listener;
    QKeyEvent press(QEvent::KeyPress, Qt::Key_A, Qt::NoModifier, 38, 0, 0);
    QCoreApplication::sendEvent(&listener, &press);
    EXPECT_EQ(listener.heard, 1);
}

TEST_F(KeyRecorderTest, SwallowsEveryKeyWhileRecordingAlsoTheOneThatEndsIt) {
    Listener listener;
    const auto press = [&](Qt::Key key, quint16 evdev, Qt::KeyboardModifiers modifiers = {}, bool isRepeat = false) {
        QKeyEvent override(QEvent::ShortcutOverride, key, modifiers, evdev + 8u, 0, 0);
        QCoreApplication::sendEvent(&listener, &override);
        QKeyEvent event(QEvent::KeyPress, key, modifiers, evdev + 8u, 0, 0, {}, isRepeat);
        QCoreApplication::sendEvent(&listener, &event);
    };
    listen.toggle();
    press(Qt::Key_Control, 29, Qt::ControlModifier);
    EXPECT_TRUE(listen.isRecording()) << "a modifier alone is held, not pressed";
    press(Qt::Key_A, 30, Qt::ShiftModifier);
    EXPECT_TRUE(listen.isRecording());
    press(Qt::Key_A, 30, Qt::ControlModifier | Qt::AltModifier);
    EXPECT_FALSE(listen.isRecording());
    EXPECT_EQ(listener.heard, 0);
    EXPECT_EQ(shortcuts.listen(), Shortcut(keyA, Shortcut::control | Shortcut::option));
    press(Qt::Key_A, 30);
    EXPECT_EQ(listener.heard, 2) << "afterwards keys go where they did";
}

TEST_F(KeyRecorderTest, DoesNotTakeTheKeyThatIsStillHeldFromBefore) {
    Listener listener;
    stop.toggle();
    QKeyEvent repeated(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier, 28 + 8, 0, 0, {}, true);
    QCoreApplication::sendEvent(&listener, &repeated);
    EXPECT_TRUE(stop.isRecording());
    EXPECT_EQ(listener.heard, 0);
}

TEST_F(KeyRecorderTest, SwallowsAKeyThatNoShortcutCanName) {
    Listener listener;
    stop.toggle();
    QKeyEvent strange(QEvent::KeyPress, Qt::Key_unknown, Qt::NoModifier, 700, 0, 0);
    QCoreApplication::sendEvent(&listener, &strange);
    EXPECT_TRUE(stop.isRecording());
    EXPECT_EQ(listener.heard, 0);
    EXPECT_EQ(shortcuts.stop(), Shortcuts::defaultStop);
}

TEST_F(KeyRecorderTest, SaysThatAKeyCannotBeTakenAndGoesOnRecording) {
    Listener listener;
    // Print, Pause, and what locks.
    for (const auto &[key, evdev] : std::initializer_list<std::pair<Qt::Key, quint16>>{{Qt::Key_Print, 99},
                                                                                       {Qt::Key_Pause, 119},
                                                                                       {Qt::Key_ScrollLock, 70},
                                                                                       {Qt::Key_NumLock, 69},
                                                                                       {Qt::Key_CapsLock, 58}}) {
        for (auto *recorder : {&listen, &stop}) {
            recorder->toggle();
            QKeyEvent press(QEvent::KeyPress, key, Qt::NoModifier, evdev + 8u, 0, 0);
            QCoreApplication::sendEvent(&listener, &press);
            EXPECT_EQ(recorder->message(), L("recorder.unknownKey")) << key;
            EXPECT_TRUE(recorder->isRecording()) << key;
            recorder->toggle();
        }
    }
    EXPECT_EQ(listener.heard, 0);
    EXPECT_EQ(shortcuts.listen(), Shortcuts::defaultListen);
    EXPECT_EQ(shortcuts.stop(), Shortcuts::defaultStop);
}

TEST_F(KeyRecorderTest, IsLeftWithoutAChangeByTabWhichGoesOnToTheWindow) {
    for (auto *recorder : {&listen, &stop}) {
        for (const auto &[key, modifiers] :
             {std::pair(Qt::Key_Tab, Qt::NoModifier), std::pair(Qt::Key_Backtab, Qt::ShiftModifier)}) {
            Listener listener;
            recorder->toggle();
            QKeyEvent tab(QEvent::KeyPress, key, modifiers, 15 + 8, 0, 0);
            QCoreApplication::sendEvent(&listener, &tab);
            EXPECT_FALSE(recorder->isRecording());
            EXPECT_EQ(listener.heard, 1);
        }
    }
    EXPECT_EQ(shortcuts.listen(), Shortcuts::defaultListen);
    EXPECT_EQ(shortcuts.stop(), Shortcuts::defaultStop);
    listen.toggle();
    QKeyEvent tab(QEvent::KeyPress, Qt::Key_Tab, Qt::ControlModifier, 15 + 8, 0, 0);
    QCoreApplication::sendEvent(qApp, &tab);
    EXPECT_EQ(shortcuts.listen(), Shortcut(48, Shortcut::control)) << "with another modifier it is a key like others";
}
