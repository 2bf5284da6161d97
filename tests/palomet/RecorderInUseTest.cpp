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
    [[nodiscard]] bool isListening() const {
        return eventually([this] { return state()[u"state"_s] == u"listening"_s; });
    }
    [[nodiscard]] bool isWaiting() const {
        return eventually([this] { return state()[u"state"_s] == u"waiting"_s; });
    }
};

} // namespace

TEST_F(RecorderInUse, TakesAShortcutForListeningThatThenWorks) {
    record("Listen");
    key("ctrl+alt+j");
    EXPECT_TRUE(says("Listen", u"Ctrl + Alt + J"_s)) << qPrintable(tree.description(recorder("Listen")));
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
    record("Stop");
    key("ctrl+alt+k");
    EXPECT_TRUE(says("Stop", u"Ctrl + Alt + K"_s));
    record("Listen");
    key("ctrl+alt+k");
    EXPECT_TRUE(says("Listen", u"already does “Stop”."_s)) << qPrintable(tree.description(recorder("Listen")));
    EXPECT_TRUE(says("Listen", u"Alt + Space"_s)) << "it keeps its own";
    key("alt+space");
    EXPECT_TRUE(isListening()) << "which works again";
}

TEST_F(RecorderInUse, RefusesForStoppingWhatListensAlready) {
    record("Stop");
    key("alt+space");
    EXPECT_TRUE(says("Stop", u"already does “Listen”."_s)) << qPrintable(tree.description(recorder("Stop")));
    EXPECT_TRUE(says("Stop", u"Esc"_s));
}

TEST_F(RecorderInUse, TakesAKeyAloneForStopping) {
    record("Stop");
    key("F9");
    EXPECT_TRUE(says("Stop", u"F9. "_s));
    record("Stop");
    key("Escape");
    EXPECT_TRUE(says("Stop", u"Esc. "_s));
}

TEST_F(RecorderInUse, LeavesListeningAsItWasWithEscape) {
    record("Listen");
    key("Escape");
    EXPECT_TRUE(says("Listen", u"Alt + Space. "_s));
    key("alt+space");
    EXPECT_TRUE(isListening());
}

TEST_F(RecorderInUse, ClearsAShortcutWithDelete) {
    record("Listen");
    key("Delete");
    EXPECT_TRUE(says("Listen", u"None. "_s));
    record("Stop");
    key("BackSpace");
    EXPECT_TRUE(says("Stop", u"None. "_s));
}

TEST_F(RecorderInUse, KeepsWhatItRecordedInTheNextRun) {
    record("Listen");
    key("super+l");
    EXPECT_TRUE(says("Listen", u"Super + L"_s));
    program.terminate();
    ASSERT_TRUE(eventually([this] { return program.state() == QProcess::NotRunning; }));
    program.start(QStringLiteral(PALOMET_EXECUTABLE));
    ASSERT_TRUE(isWaiting());
    open("listening");
    EXPECT_TRUE(says("Listen", u"Super + L"_s));
}
