#include "ui/strip/StripLine.h"

#include "tests/ui/support/UiTest.h"

using namespace palomet;
using namespace Qt::StringLiterals;

namespace {

class StripLineTest : public test::UiTest {
protected:
    [[nodiscard]] QString line(LoopState state, Snapshot snapshot) {
        snapshot.state = rawValue(state);
        setSnapshot(std::move(snapshot));
        return stripLine(model());
    }
};

} // namespace

TEST_F(StripLineTest, HasNothingToSayAtRest) {
    const Snapshot snapshot;
    EXPECT_EQ(line(LoopState::Waiting, snapshot), QString());
    EXPECT_EQ(line(LoopState::Offline, snapshot), QString());
    model().setSnapshot(nullptr);
    EXPECT_EQ(stripLine(model()), QString());
}

TEST_F(StripLineTest, SaysThatNoNameIsNeededWhileListening) {
    EXPECT_EQ(line(LoopState::Listening, {}), u"Go ahead, no name needed");
}

TEST_F(StripLineTest, IsAnEllipsisWhileHearing) {
    EXPECT_EQ(line(LoopState::Hearing, {}), u"…");
}

TEST_F(StripLineTest, CountsThePartsOfADraftAndNamesThePhraseThatCarriesItOut) {
    Snapshot snapshot;
    snapshot.settings.actionPhrases = {{u"do it"_s, u"go"_s}};
    EXPECT_EQ(line(LoopState::Drafting, snapshot), u"0 parts · say “do it”");
    snapshot.draft = {{1, u"a"_s}};
    EXPECT_EQ(line(LoopState::Drafting, snapshot), u"1 part · say “do it”");
    snapshot.draft = {{1, u"a"_s}, {2, u"b"_s}};
    EXPECT_EQ(line(LoopState::Drafting, snapshot), u"2 parts · say “do it”");
}

TEST_F(StripLineTest, NamesTheDefaultPhraseWhereThereIsNone) {
    Snapshot snapshot;
    EXPECT_EQ(line(LoopState::Drafting, snapshot), u"0 parts · say “go ahead”");
    snapshot.settings.actionPhrases.emplace();
    EXPECT_EQ(line(LoopState::Drafting, snapshot), u"0 parts · say “go ahead”");
}

TEST_F(StripLineTest, ShowsTheToolAtWorkWhileThinking) {
    Snapshot snapshot;
    snapshot.conversation.rows = {test::row("user", u"How is it?"_s), test::row("tool", u"Bash: ls"_s)};
    EXPECT_EQ(line(LoopState::Thinking, snapshot), u"Bash: ls");
}

TEST_F(StripLineTest, ShowsTheLastQuestionWhileThinkingWithoutATool) {
    Snapshot snapshot;
    snapshot.conversation.rows = {test::row("user", u"First"_s), test::row("user", u"Second"_s),
                                  test::row("tool", u"Bash: ls"_s), test::row("agent", u"Done."_s)};
    EXPECT_EQ(line(LoopState::Thinking, snapshot), u"Second");
}

TEST_F(StripLineTest, IsEmptyWhileThinkingAboutNothingThatWasAsked) {
    Snapshot snapshot;
    EXPECT_EQ(line(LoopState::Thinking, snapshot), QString());
    snapshot.conversation.rows = {test::row("agent", u"Hello."_s)};
    EXPECT_EQ(line(LoopState::Thinking, snapshot), QString());
}

TEST_F(StripLineTest, IsWhatIsBeingSaidWhileSpeaking) {
    backend().on("/events", [](auto exchange) { exchange->beginEvents(); });
    model().start();
    ASSERT_TRUE(test::eventually([this] { return backend().last("/events") != nullptr; }));
    backend().last("/events")->event("spoken", R"("Hello.")");
    ASSERT_TRUE(test::eventually([this] { return !model().spokenLine().isEmpty(); }));
    EXPECT_EQ(line(LoopState::Speaking, {}), u"Hello.");
}

TEST_F(StripLineTest, TellsWhyItIsMuted) {
    Snapshot snapshot;
    snapshot.isMuted = true;
    EXPECT_EQ(line(LoopState::Muted, snapshot), u"Muted in the menu");
    snapshot.isMuted = false;
    EXPECT_EQ(line(LoopState::Muted, snapshot), u"Palomet needs the microphone");
}
