#include "tests/model/ModelTest.h"

using namespace palomet;
using namespace palomet::test;
using namespace std::chrono_literals;
using namespace Qt::StringLiterals;

// What the events of the stream do.

TEST_F(ModelTest, TwentyEventsWithinATenthOfASecondCostOneFetch) {
    startAndSettle();
    for (int i = 0; i < 20; ++i)
        m_backend.last("/events")->event("state", "{}");
    send("any", "{}");
    const SignalCount replies(&m_model, &PalometModel::snapshotChanged);
    m_scheduler.advance(100ms);
    ASSERT_TRUE(eventually([&] { return replies.count() == 1; }));
    m_scheduler.advance(10s);
    send("level", "0");
    EXPECT_EQ(m_backend.count("/state"), 2);
}

TEST_F(ModelTest, AnEventThatComesWhileTheStateIsFetchedCostsOneMore) {
    startAndSettle();
    m_backend.hang("/state");
    send("state", "{}");
    m_scheduler.advance(100ms);
    ASSERT_TRUE(hasCome("/state", 2));
    send("state", "{}");
    send("state", "{}");
    m_scheduler.advance(100ms);
    ASSERT_TRUE(hasCome("/state", 3));
    send("level", "0");
    EXPECT_EQ(m_backend.count("/state"), 3);
}

TEST_F(ModelTest, ALevelIsItsNumberOrNothing) {
    startAndSettle();
    const SignalCount changes(&m_model, &PalometModel::inLevelChanged);
    const std::pair<const char *, double> levels[] = {
        {"0.42", 0.42},   {"abc", 0}, {"1e-2", 0.01}, {"", 0},     {"+1.5", 1.5}, {"+", 0},
        {"inf", 0},       {"nan", 0}, {"0.5 ", 0},    {".5", 0.5}, {" 0.5", 0},   {"1e999", 0},
        {"-0.25", -0.25}, {"+-1", 0}, {"0x10", 0},    {"7", 7},    {"0,5", 0}};
    for (const auto &[data, level] : levels) {
        send("level", data);
        EXPECT_EQ(m_model.inLevel(), level) << data;
    }
    EXPECT_GT(changes.count(), 0);
    EXPECT_EQ(m_scheduler.pendingCount(), 1U) << "a level costs no fetch";
}

TEST_F(ModelTest, TheOutputHasItsOwnLevel) {
    startAndSettle();
    const SignalCount changes(&m_model, &PalometModel::outLevelChanged);
    m_backend.last("/events")->event("outLevel", "0.81");
    EXPECT_TRUE(eventually([&] { return m_model.outLevel() == 0.81; }));
    EXPECT_EQ(m_model.inLevel(), 0);
    EXPECT_EQ(changes.count(), 1);
    EXPECT_EQ(m_scheduler.pendingCount(), 1U);
}

TEST_F(ModelTest, ASpokenLineIsAJsonText) {
    startAndSettle();
    send("spoken", "\"Olá\"");
    EXPECT_EQ(m_model.spokenLine(), u"Olá"_s);
    send("spoken", "Olá!");
    EXPECT_EQ(m_model.spokenLine(), u"Olá"_s);
    send("spoken", R"("\ud83d")");
    EXPECT_EQ(m_model.spokenLine(), u"Olá"_s);
    send("spoken", R"("\"Sim\", disse.")");
    EXPECT_EQ(m_model.spokenLine(), u"\"Sim\", disse."_s);
}

TEST_F(ModelTest, EverySpokenEventIsToldOfAndCostsAFetch) {
    startAndSettle();
    const SignalCount changes(&m_model, &PalometModel::spokenLineChanged);
    send("spoken", "\"Olá\"");
    send("spoken", "\"Olá\"");
    send("spoken", "Olá");
    EXPECT_EQ(changes.count(), 3);
    m_scheduler.advance(100ms);
    EXPECT_TRUE(hasCome("/state", 2));
}

TEST_F(ModelTest, TheEndOfATurnFetchesStateAndHistory) {
    startAndSettle();
    m_backend.serve("/history", "[]");
    send("turnEnd", "{}");
    EXPECT_TRUE(eventually([&] { return m_model.history().empty(); }));
    m_scheduler.advance(100ms);
    EXPECT_TRUE(hasCome("/state", 2));
    EXPECT_EQ(m_backend.count("/history"), 2);
    EXPECT_EQ(m_backend.count("/options"), 1);
}

TEST_F(ModelTest, EventNamesAreComparedToTheLetter) {
    startAndSettle();
    send("Level", "0.5");
    EXPECT_EQ(m_model.inLevel(), 0);
    send("turnend", "{}");
    send("Spoken", "\"a\"");
    EXPECT_EQ(m_model.spokenLine(), QString());
    m_scheduler.advance(100ms);
    EXPECT_TRUE(hasCome("/state", 2)) << "but each of them is an event";
    EXPECT_EQ(m_backend.count("/history"), 1);
}

TEST_F(ModelTest, AnUnknownPhaseIsOffline) {
    for (const auto *phase : {"Listening", "", "paused"}) {
        auto snapshot = *decodeSnapshot(fixture("state/full.json"));
        snapshot.state = QString::fromLatin1(phase);
        m_model.setSnapshot(std::make_shared<const Snapshot>(snapshot));
        EXPECT_EQ(m_model.state(), LoopState::Offline) << phase;
    }
}

TEST_F(ModelTest, TheMutedPhaseComesFromThePhaseAlone) {
    auto snapshot = *decodeSnapshot(fixture("state/full.json"));
    snapshot.state = u"muted"_s;
    snapshot.isMuted = false;
    m_model.setSnapshot(std::make_shared<const Snapshot>(snapshot));
    EXPECT_EQ(m_model.state(), LoopState::Muted);
    snapshot.state = u"waiting"_s;
    snapshot.isMuted = true;
    m_model.setSnapshot(std::make_shared<const Snapshot>(snapshot));
    EXPECT_EQ(m_model.state(), LoopState::Waiting);
}
