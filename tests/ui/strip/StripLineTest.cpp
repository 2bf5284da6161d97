#include "ui/strip/StripLine.h"

#include "tests/ui/support/UiTest.h"

#include <gtest/gtest.h>

using namespace palomet;

namespace {

QString line(LoopState state, const Snapshot &snapshot) {
    return stripLine(state, &snapshot, u"Hello."_qs);
}

} // namespace

TEST(StripLine, HasNothingToSayAtRest) {
    const Snapshot snapshot;
    EXPECT_EQ(line(LoopState::Waiting, snapshot), QString());
    EXPECT_EQ(line(LoopState::Offline, snapshot), QString());
}

TEST(StripLine, SaysThatNoNameIsNeededWhileListening) {
    EXPECT_EQ(line(LoopState::Listening, {}), u"Go ahead, no name needed");
}

TEST(StripLine, IsAnEllipsisWhileHearing) {
    EXPECT_EQ(line(LoopState::Hearing, {}), u"…");
}

TEST(StripLine, CountsThePartsOfADraftAndNamesThePhraseThatCarriesItOut) {
    Snapshot snapshot;
    snapshot.settings.actionPhrases = {{u"do it"_qs, u"go"_qs}};
    EXPECT_EQ(line(LoopState::Drafting, snapshot), u"0 parts · say “do it”");
    snapshot.draft = {{1, u"a"_qs}};
    EXPECT_EQ(line(LoopState::Drafting, snapshot), u"1 part · say “do it”");
    snapshot.draft = {{1, u"a"_qs}, {2, u"b"_qs}};
    EXPECT_EQ(line(LoopState::Drafting, snapshot), u"2 parts · say “do it”");
}

TEST(StripLine, NamesTheDefaultPhraseWhereThereIsNone) {
    Snapshot snapshot;
    EXPECT_EQ(line(LoopState::Drafting, snapshot), u"0 parts · say “go ahead”");
    snapshot.settings.actionPhrases.emplace();
    EXPECT_EQ(line(LoopState::Drafting, snapshot), u"0 parts · say “go ahead”");
    EXPECT_EQ(stripLine(LoopState::Drafting, nullptr, {}), u"0 parts · say “go ahead”");
}

TEST(StripLine, ShowsTheToolAtWorkWhileThinking) {
    Snapshot snapshot;
    snapshot.conversation.rows = {test::row("user", u"How is it?"_qs), test::row("tool", u"Bash: ls"_qs)};
    EXPECT_EQ(line(LoopState::Thinking, snapshot), u"Bash: ls");
}

TEST(StripLine, ShowsTheLastQuestionWhileThinkingWithoutATool) {
    Snapshot snapshot;
    snapshot.conversation.rows = {test::row("user", u"First"_qs), test::row("user", u"Second"_qs),
                                  test::row("tool", u"Bash: ls"_qs), test::row("agent", u"Done."_qs)};
    EXPECT_EQ(line(LoopState::Thinking, snapshot), u"Second");
}

TEST(StripLine, IsEmptyWhileThinkingAboutNothingThatWasAsked) {
    Snapshot snapshot;
    EXPECT_EQ(line(LoopState::Thinking, snapshot), QString());
    snapshot.conversation.rows = {test::row("agent", u"Hello."_qs)};
    EXPECT_EQ(line(LoopState::Thinking, snapshot), QString());
    EXPECT_EQ(stripLine(LoopState::Thinking, nullptr, {}), QString());
}

TEST(StripLine, IsWhatIsBeingSaidWhileSpeaking) {
    EXPECT_EQ(line(LoopState::Speaking, {}), u"Hello.");
}

TEST(StripLine, TellsWhyItIsMuted) {
    Snapshot snapshot;
    snapshot.isMuted = true;
    EXPECT_EQ(line(LoopState::Muted, snapshot), u"Muted in the menu");
    snapshot.isMuted = false;
    EXPECT_EQ(line(LoopState::Muted, snapshot), u"Palomet needs the microphone");
    EXPECT_EQ(stripLine(LoopState::Muted, nullptr, {}), u"Palomet needs the microphone");
}
