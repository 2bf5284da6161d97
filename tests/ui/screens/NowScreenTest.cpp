#include "ui/screens/NowScreen.h"

#include "localization/Localization.h"
#include "tests/ui/support/UiTest.h"

#include <QSignalSpy>

#include <set>

using namespace palomet;
using namespace palomet::test;

namespace {

class NowScreenTest : public UiTest {
protected:
    NowScreenTest() { screen.setActive(true); }

    [[nodiscard]] ScriptedBackend::ExchangePointer stream() { return backend().last("/events"); }

    NowScreen screen{model()};
};

} // namespace

TEST_F(NowScreenTest, SaysWhatToDoInEachState) {
    const auto note = [this](const char *state) {
        setState(state);
        return screen.stateNote();
    };
    EXPECT_EQ(note("waiting"), L("note.waiting"));
    EXPECT_EQ(note("listening"), L("note.noNameNeeded"));
    EXPECT_EQ(note("hearing"), L("note.noNameNeeded"));
    EXPECT_EQ(note("drafting"), QStringLiteral("Say “go ahead”"));
    EXPECT_EQ(note("thinking"), L("note.interrupt"));
    EXPECT_EQ(note("speaking"), L("note.interrupt"));
    EXPECT_EQ(note("offline"), L("note.offline"));
    EXPECT_EQ(note("unheard of"), L("note.offline"));
    EXPECT_EQ(screen.stateWord(), QStringLiteral("Offline"));
    model().setSnapshot(nullptr);
    EXPECT_EQ(screen.stateNote(), L("note.offline"));
}

TEST_F(NowScreenTest, TellsTheUsersMutingFromAMissingMicrophone) {
    setState("muted", [](Snapshot &snapshot) { snapshot.isMuted = true; });
    EXPECT_EQ(screen.stateNote(), L("note.mutedInMenu"));
    setState("muted");
    EXPECT_EQ(screen.stateNote(), L("note.openSettings"));
}

TEST_F(NowScreenTest, NamesTheFirstActionPhrase) {
    setState("drafting", [](Snapshot &snapshot) {
        snapshot.settings.actionPhrases = {QStringLiteral("pode fazer"), QStringLiteral("go")};
    });
    EXPECT_EQ(screen.stateNote(), QStringLiteral("Say “pode fazer”"));
    EXPECT_EQ(screen.draftNote(), QStringLiteral("Say “pode fazer” and it acts on all of it."));
    setState("drafting", [](Snapshot &snapshot) { snapshot.settings.actionPhrases = std::vector<QString>(); });
    EXPECT_EQ(screen.draftNote(), QStringLiteral("Say “go ahead” and it acts on all of it."));
    setState("drafting");
    EXPECT_EQ(screen.draftNote(), QStringLiteral("Say “go ahead” and it acts on all of it."));
}

TEST_F(NowScreenTest, ShowsMicrophoneSessionConversationAndTimings) {
    setFull([](Snapshot &snapshot) { snapshot.session.startedAt = 1'800'000'000'000 - 42 * 60'000.0; });
    EXPECT_EQ(screen.microphone(), QStringLiteral("USB Audio"));
    EXPECT_EQ(screen.microphoneNote(), L("note.microphone"));
    EXPECT_EQ(screen.session(), QStringLiteral("07:18"));
    EXPECT_EQ(screen.sessionNote(), QStringLiteral("Open for 42 min"));
    EXPECT_EQ(screen.cost(), QStringLiteral("US$ 0.01"));
    EXPECT_EQ(screen.costNote(), QStringLiteral("in 1 answer"));
    EXPECT_EQ(screen.transcription(), QStringLiteral("0.3 s"));
    EXPECT_EQ(screen.brain(), QStringLiteral("1.2 s"));
    EXPECT_EQ(screen.voice(), QStringLiteral("0.5 s"));
    EXPECT_EQ(screen.untilHeard(), QStringLiteral("2.0 s"));
}

TEST_F(NowScreenTest, LeavesOpenWhatIsNotKnown) {
    EXPECT_EQ(screen.loopState(), QStringLiteral("offline"));
    EXPECT_EQ(screen.microphone(), QString());
    EXPECT_EQ(screen.microphoneNote(), QString());
    EXPECT_EQ(screen.session(), QString());
    EXPECT_EQ(screen.sessionNote(), L("note.session.reopening"));
    EXPECT_EQ(screen.cost(), QString());
    EXPECT_EQ(screen.costNote(), QStringLiteral("in 0 answers"));
    EXPECT_EQ(screen.transcription(), QString());
    EXPECT_EQ(screen.brain(), QString());
    setFull([](Snapshot &snapshot) {
        snapshot.session.startedAt = 0;
        snapshot.timings->transcribeMs.reset();
    });
    EXPECT_EQ(screen.sessionNote(), L("note.session.reopening"));
    EXPECT_EQ(screen.transcription(), QString());
    EXPECT_EQ(screen.brain(), QStringLiteral("1.2 s"));
}

TEST_F(NowScreenTest, NotesWhetherTheLastRequestWasSpokenOrTyped) {
    setFull();
    EXPECT_EQ(screen.transcriptionNote(), L("now.transcription.note"));
    EXPECT_EQ(screen.untilHeardNote(), L("now.untilHeard.note"));
    setFull([](Snapshot &snapshot) { snapshot.timings->isSpoken = false; });
    EXPECT_EQ(screen.transcriptionNote(), L("now.transcription.typed"));
    EXPECT_EQ(screen.untilHeardNote(), L("now.untilHeard.typed"));
    setFull([](Snapshot &snapshot) { snapshot.timings.reset(); });
    EXPECT_EQ(screen.transcriptionNote(), L("now.transcription.note"));
    EXPECT_EQ(screen.untilHeardNote(), L("now.untilHeard.note"));
}

TEST_F(NowScreenTest, MovesOnWithTheClock) {
    model().start();
    // The backend is silent, and so the snapshot is the test's, over and over.
    const auto after = [this](std::chrono::seconds span) {
        scheduler().advance(span);
        setState("waiting", [](Snapshot &snapshot) {
            snapshot.session.startedAt = 1'800'000'000'000;
            snapshot.heard = {{.at = 1'800'000'000'000, .text = {}, .action = {}, .reason = {}}};
        });
    };
    after(std::chrono::seconds{59});
    EXPECT_EQ(screen.sessionNote(), QStringLiteral("Open for a moment"));
    after(std::chrono::seconds{1});
    EXPECT_EQ(screen.sessionNote(), QStringLiteral("Open for 1 min"));
    after(std::chrono::seconds{59});
    EXPECT_EQ(screen.heardRows()->rowCount(), 1);
    after(std::chrono::seconds{1});
    EXPECT_EQ(screen.heardRows()->rowCount(), 0);
}

TEST_F(NowScreenTest, AnnouncesNothingWhileASecondChangesNothingThatIsShown) {
    model().start();
    setState("waiting", [](Snapshot &snapshot) { snapshot.session.startedAt = 1'800'000'000'000; });
    const QSignalSpy changed(&screen, &NowScreen::changed);
    scheduler().advance(std::chrono::seconds{2});
    EXPECT_EQ(changed.count(), 0);
}

TEST_F(NowScreenTest, AsksForSomethingByTheFirstName) {
    EXPECT_EQ(screen.emptyText(), QStringLiteral("Say “palomet”, then ask for something."));
    setState("waiting", [](Snapshot &snapshot) {
        snapshot.settings.wakeWords = {QStringLiteral("alma"), QStringLiteral("palomet")};
    });
    EXPECT_EQ(screen.emptyText(), QStringLiteral("Say “alma”, then ask for something."));
    setState("waiting");
    EXPECT_EQ(screen.emptyText(), QStringLiteral("Say “palomet”, then ask for something."));
    setState("waiting", [](Snapshot &snapshot) { snapshot.settings.wakeWords = {QString()}; });
    EXPECT_EQ(screen.emptyText(), QStringLiteral("Say “palomet”, then ask for something."));
}

TEST_F(NowScreenTest, SaysThatItRemembersWhenThereIsSomething) {
    setState("waiting", [](Snapshot &snapshot) { snapshot.memory = {.isResumed = true, .journalDays = 1}; });
    EXPECT_EQ(screen.rememberedText(), L("now.empty.remembers"));
    setState("waiting", [](Snapshot &snapshot) { snapshot.memory = {.isResumed = true, .journalDays = 0}; });
    EXPECT_EQ(screen.rememberedText(), QString());
    setState("waiting");
    EXPECT_EQ(screen.rememberedText(), QString());
}

TEST_F(NowScreenTest, SendsATypedRequestWithoutTheBlanksAroundItAndEmptiesTheField) {
    screen.setDraft(QStringLiteral("  run the tests \n "));
    screen.send();
    EXPECT_EQ(told("/say"), R"({"text":"run the tests"})");
    EXPECT_EQ(screen.draft(), QString());
}

TEST_F(NowScreenTest, IgnoresABlankRequestAndLeavesItInPlace) {
    screen.setDraft(QStringLiteral(" \t\n "));
    screen.send();
    EXPECT_EQ(screen.draft(), QStringLiteral(" \t\n "));
    screen.setDraft({});
    screen.send();
    screen.setDraft(QStringLiteral("x"));
    screen.send();
    EXPECT_EQ(told("/say"), R"({"text":"x"})");
    EXPECT_EQ(backend().count("/say"), 1);
}

TEST_F(NowScreenTest, KeepsARequestThatCannotBeSentYet) {
    backend().hang("/say");
    while (!model().isBusy())
        model().say(QStringLiteral("again"));
    screen.setDraft(QStringLiteral("run the tests"));
    screen.send();
    EXPECT_EQ(screen.draft(), QStringLiteral("run the tests"));
    scheduler().advance(std::chrono::seconds{3});
    screen.send();
    EXPECT_EQ(screen.draft(), QString());
}

TEST_F(NowScreenTest, KeepsWhatIsBeingTypedThroughSnapshotsAndOtherPanes) {
    screen.setDraft(QStringLiteral("half a requ"));
    setFull();
    screen.setActive(false);
    screen.setActive(true);
    model().setSnapshot(nullptr);
    EXPECT_EQ(screen.draft(), QStringLiteral("half a requ"));
}

TEST_F(NowScreenTest, RunsAndClearsTheDraft) {
    screen.act();
    EXPECT_EQ(told("/act"), "");
    screen.clearDraft();
    EXPECT_EQ(told("/draft/clear"), "");
}

TEST_F(NowScreenTest, ShowsTheInputsLevelWhileHearingTheOutputsWhileSpeakingAndElseNone) {
    backend().on("/events", [](auto exchange) { exchange->beginEvents(); });
    model().start();
    ASSERT_TRUE(eventually([&] { return stream() != nullptr; }));
    stream()->event("level", "0.25");
    stream()->event("outLevel", "0.75");
    ASSERT_TRUE(eventually([&] { return model().outLevel() == 0.75; }));
    for (const auto &[state, level] : {std::pair{"hearing", 0.25}, {"speaking", 0.75}, {"waiting", 0.0}, {"?", 0.0}}) {
        setState(state);
        EXPECT_EQ(screen.level(), level) << state;
    }
}

TEST_F(NowScreenTest, AnnouncesOnlyTheLevelThatItShows) {
    backend().on("/events", [](auto exchange) { exchange->beginEvents(); });
    model().start();
    ASSERT_TRUE(eventually([&] { return stream() != nullptr; }));
    setState("hearing");
    const QSignalSpy announced(&screen, &NowScreen::levelChanged);
    stream()->event("outLevel", "0.75");
    stream()->event("level", "0.25");
    ASSERT_TRUE(eventually([&] { return model().inLevel() == 0.25; }));
    EXPECT_EQ(announced.count(), 1);
    screen.setActive(false);
    stream()->event("level", "0.5");
    ASSERT_TRUE(eventually([&] { return model().inLevel() == 0.5; }));
    EXPECT_EQ(announced.count(), 1) << "none while it cannot be seen";
}

TEST_F(NowScreenTest, TellsTheHoursOfTheZoneThatATravellerHasComeTo) {
    setFull();
    model().start();
    std::set<QAbstractItemModel *> changed;
    for (auto *rows : {screen.rows(), screen.draftRows(), screen.heardRows()}) {
        QObject::connect(rows, &QAbstractItemModel::dataChanged, &screen, [&changed, rows] { changed.insert(rows); });
    }
    const auto clock = [&] { return screen.rows()->index(0, 0).data(ConversationRows::Clock).toString(); };
    EXPECT_EQ(clock(), QStringLiteral("19:46"));
    const Journey journey(QStringLiteral("Asia/Kolkata"));
    scheduler().advance(std::chrono::seconds{1});
    EXPECT_EQ(clock(), QStringLiteral("01:16"));
    EXPECT_TRUE(changed.contains(screen.rows()));
    EXPECT_TRUE(changed.contains(screen.draftRows()));
}
