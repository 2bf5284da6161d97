#include "tests/palomet/WindowInUse.h"

using namespace palomet;
using namespace Qt::StringLiterals;
using test::eventually;

namespace {

class RecorderInUse : public test::WindowInUse {
protected:
    RecorderInUse() { open("listening"); }

    [[nodiscard]] Node recorder(const char *name) { return node("push button", QString::fromLatin1(name)); }
    [[nodiscard]] bool says(const char *name, const QString &words) {
        return eventually([&] { return tree.description(recorder(name)).contains(words); });
    }
    /// Presses the recorder, which then waits for keys.
    void record(const char *name) {
        focus(recorder(name));
        EXPECT_TRUE(tree.press(recorder(name)));
        EXPECT_TRUE(says(name, u"Press the keys"_s));
    }
    /// Records those keys, which the recorder then answers with these words.
    void record(const char *name, const char *keys, const QString &words) {
        record(name);
        key(keys);
        EXPECT_TRUE(says(name, words)) << qPrintable(tree.description(recorder(name)));
    }
    [[nodiscard]] bool isListening() const {
        return eventually([this] { return state()[u"state"_s] == u"listening"_s; });
    }
    [[nodiscard]] bool isWaiting() const {
        return eventually([this] { return state()[u"state"_s] == u"waiting"_s; });
    }
};

} // namespace

TEST_F(RecorderInUse, TakesAShortcutForListeningThatThenWorks) {
    record("Listen", "ctrl+alt+j", u"Ctrl + Alt + J"_s);
    key("ctrl+alt+j");
    EXPECT_TRUE(isListening());
}

TEST_F(RecorderInUse, RefusesAKeyAloneForListeningAndGoesOnRecording) {
    record("Listen");
    for (const auto *alone : {"j", "shift+j"}) {
        key(alone);
        EXPECT_TRUE(says("Listen", u"Press the keys. Add Ctrl, Alt or Super."_s)) << alone;
    }
    key("F6");
    EXPECT_TRUE(says("Listen", u"F6. "_s));
}

TEST_F(RecorderInUse, RefusesForListeningWhatStopsAlready) {
    record("Stop", "ctrl+alt+k", u"Ctrl + Alt + K"_s);
    record("Listen", "ctrl+alt+k", u"already does “Stop”."_s);
    EXPECT_TRUE(says("Listen", u"Alt + Space"_s)) << "it keeps its own";
    key("alt+space");
    EXPECT_TRUE(isListening()) << "which works again";
}

TEST_F(RecorderInUse, RefusesForStoppingWhatListensAlready) {
    record("Stop", "alt+space", u"already does “Listen”."_s);
    EXPECT_TRUE(says("Stop", u"Esc"_s));
}

TEST_F(RecorderInUse, TakesAKeyAloneForStopping) {
    record("Stop", "F9", u"F9. "_s);
    record("Stop", "Escape", u"Esc. "_s);
}

TEST_F(RecorderInUse, LeavesListeningAsItWasWithEscape) {
    record("Listen", "Escape", u"Alt + Space. "_s);
    key("alt+space");
    EXPECT_TRUE(isListening());
}

TEST_F(RecorderInUse, ClearsAShortcutWithDelete) {
    record("Listen", "Delete", u"None. "_s);
    record("Stop", "BackSpace", u"None. "_s);
}

TEST_F(RecorderInUse, KeepsWhatItRecordedInTheNextRun) {
    record("Listen", "super+l", u"Super + L"_s);
    program.terminate();
    ASSERT_TRUE(eventually([this] { return program.state() == QProcess::NotRunning; }));
    program.start(u"" PALOMET_EXECUTABLE ""_s);
    ASSERT_TRUE(isWaiting());
    open("listening");
    EXPECT_TRUE(says("Listen", u"Super + L"_s));
}

TEST_F(RecorderInUse, IsLeftWithoutAChangeByTabWithEitherRecorder) {
    record("Listen", "Tab", u"Alt + Space. "_s);
    record("Stop", "Tab", u"Esc. "_s);
    key("alt+space");
    EXPECT_TRUE(isListening());
}

TEST_F(RecorderInUse, CallsItsKeyAsTheLayoutThatIsActiveDoes) {
    record("Listen", "ctrl+alt+q", u"Ctrl + Alt + Q. "_s);
    desktop.display.run(u"setxkbmap"_s, {u"fr"_s});
    EXPECT_TRUE(says("Listen", u"Ctrl + Alt + A. "_s));
    key("ctrl+alt+a");
    EXPECT_TRUE(isListening()) << "it is the same key";
}
