#include "model/Documents.h"
#include "tests/model/ModelTest.h"

#include <QElapsedTimer>

using namespace palomet;
using namespace palomet::test;
using namespace std::chrono_literals;

namespace {

/// A model that fetches documents and follows no events, and a backend that answers when the test says so.
class DocumentFetchTest : public ModelTest {
protected:
    DocumentFetchTest() {
        for (const auto *target : {"/state", "/history", "/options"})
            m_backend.hang(target);
    }

    /// Asks for the state, and returns the request when it has come.
    Exchange fetchState() {
        const int count = m_backend.count("/state") + 1;
        m_model.refresh();
        m_scheduler.advance(100ms);
        EXPECT_TRUE(hasCome("/state", count));
        return m_backend.last("/state");
    }

    [[nodiscard]] bool becomes(LoopState state) {
        return eventually([&] { return m_model.state() == state; });
    }

    /// A state document of 20 MB, which takes a while to decode.
    [[nodiscard]] static QByteArray longStateDocument(const QByteArray &state) {
        QByteArray rows;
        for (int i = 0; i < 100'000; ++i)
            rows += R"({"role":"user","text":")" + QByteArray(170, 'x') + R"(","at":)" + QByteArray::number(i) + "},";
        return stateDocument(state).replace("\"rows\":[]", "\"rows\":[" + rows.chopped(1) + "]");
    }
};

} // namespace

TEST_F(DocumentFetchTest, AnOlderReplyNeverReplacesANewerOne) {
    const SignalCount changes(&m_model, &PalometModel::snapshotChanged);
    const auto older = fetchState();
    const auto newer = fetchState();
    newer->reply(stateDocument("thinking"));
    ASSERT_TRUE(becomes(LoopState::Thinking));
    older->reply(stateDocument("waiting"));
    fetchState()->reply(stateDocument("speaking"));
    ASSERT_TRUE(becomes(LoopState::Speaking));
    EXPECT_EQ(changes.count(), 2);
}

TEST_F(DocumentFetchTest, AReplyThatTakesLongToDecodeIsPublishedBeforeAShortOneThatCameLater) {
    QStringList published;
    QObject::connect(&m_model, &PalometModel::snapshotChanged, [&] { published.append(m_model.snapshot()->state); });
    const auto longer = fetchState();
    const auto shorter = fetchState();
    longer->reply(longStateDocument("speaking"));
    ASSERT_TRUE(eventually([&] { return m_scheduler.pendingCount() == 1; })) << "all of it has come";
    shorter->reply(stateDocument("thinking"));
    ASSERT_TRUE(becomes(LoopState::Thinking));
    EXPECT_EQ(published, QStringList({QStringLiteral("speaking"), QStringLiteral("thinking")}));
}

TEST_F(DocumentFetchTest, AnOlderFailureDoesNotTakeANewerReplyAway) {
    const auto older = fetchState();
    const auto newer = fetchState();
    newer->reply(stateDocument("thinking"));
    ASSERT_TRUE(becomes(LoopState::Thinking));
    const SignalCount changes(&m_model, &PalometModel::snapshotChanged);
    m_scheduler.advance(1'950ms);
    EXPECT_TRUE(eventually([&] { return !older->isOpen(); })) << "the older one took too long";
    EXPECT_EQ(changes.count(), 0);
    EXPECT_EQ(m_model.state(), LoopState::Thinking);
}

TEST_F(DocumentFetchTest, ABackendSlowerThanItsEventsStillGetsThrough) {
    const auto first = fetchState();
    for (int i = 0; i < 10; ++i)
        (void)fetchState();
    EXPECT_TRUE(first->isOpen());
    first->reply(stateDocument("hearing"));
    EXPECT_TRUE(becomes(LoopState::Hearing));
    m_backend.last("/state")->reply(stateDocument("thinking"));
    EXPECT_TRUE(becomes(LoopState::Thinking));
}

TEST_F(DocumentFetchTest, OfManyFetchesThatHangOnlyTheFirstAndTheLastAreKept) {
    for (int i = 0; i < 10; ++i)
        (void)fetchState();
    const auto open = [&] {
        int count = 0;
        for (const auto &exchange : m_backend.exchanges("/state"))
            count += exchange->isOpen() ? 1 : 0;
        return count;
    };
    EXPECT_TRUE(eventually([&] { return open() == 2; }));
    EXPECT_TRUE(m_backend.exchanges("/state").front()->isOpen());
    EXPECT_TRUE(m_backend.exchanges("/state").back()->isOpen());
}

TEST_F(DocumentFetchTest, AStateThatTakesTwoSecondsIsOffline) {
    fetchState()->reply(stateDocument("waiting"));
    ASSERT_TRUE(becomes(LoopState::Waiting));
    const auto hanging = fetchState();
    m_scheduler.advance(1'999ms);
    EXPECT_EQ(m_model.state(), LoopState::Waiting);
    EXPECT_TRUE(hanging->isOpen());
    m_scheduler.advance(1ms);
    EXPECT_EQ(m_model.state(), LoopState::Offline);
    EXPECT_EQ(m_model.snapshot(), nullptr);
}

TEST_F(DocumentFetchTest, AStateThatDripsForTwoSecondsIsOffline) {
    fetchState()->reply(stateDocument("waiting"));
    ASSERT_TRUE(becomes(LoopState::Waiting));
    const auto dripping = fetchState();
    const auto document = stateDocument("thinking");
    dripping->write("HTTP/1.1 200 OK\r\ncontent-length: " + QByteArray::number(document.size()) + "\r\n\r\n");
    for (int i = 0; i < 20; ++i) {
        dripping->write(document.mid(i * 10, 10));
        m_scheduler.advance(99ms);
    }
    EXPECT_EQ(m_model.state(), LoopState::Waiting);
    m_scheduler.advance(20ms);
    EXPECT_EQ(m_model.state(), LoopState::Offline);
    EXPECT_TRUE(eventually([&] { return !dripping->isOpen(); }));
}

TEST_F(DocumentFetchTest, AStateThatIsNotReadableIsOffline) {
    fetchState()->reply(stateDocument("waiting"));
    ASSERT_TRUE(becomes(LoopState::Waiting));
    fetchState()->reply("Internal Server Error", 500);
    EXPECT_TRUE(becomes(LoopState::Offline));
    fetchState()->reply(stateDocument("waiting"));
    ASSERT_TRUE(becomes(LoopState::Waiting));
    fetchState()->reply("{}");
    EXPECT_TRUE(becomes(LoopState::Offline));
}

TEST_F(DocumentFetchTest, TheStatusOfAReplyIsNotLookedAt) {
    for (const int status :
         {201, 302, 400, 401, 402, 403, 404, 405, 407, 409, 410, 418, 429, 499, 500, 501, 503, 599}) {
        m_model.setSnapshot(nullptr);
        fetchState()->reply(stateDocument("waiting"), status);
        EXPECT_TRUE(becomes(LoopState::Waiting)) << status;
    }
}

TEST_F(DocumentFetchTest, ARedirectIsNotFollowed) {
    const auto exchange = fetchState();
    m_model.setSnapshot(std::make_shared<const Snapshot>());
    const SignalCount changes(&m_model, &PalometModel::snapshotChanged);
    exchange->write("HTTP/1.1 302 Found\r\nlocation: /elsewhere\r\ncontent-length: 0\r\n\r\n");
    EXPECT_TRUE(eventually([&] { return changes.count() == 1; }));
    EXPECT_EQ(m_model.snapshot(), nullptr);
    EXPECT_EQ(m_backend.count("/elsewhere"), 0);
}

TEST_F(DocumentFetchTest, AStateThatIsBrokenOffIsOffline) {
    fetchState()->reply(stateDocument("waiting"));
    ASSERT_TRUE(becomes(LoopState::Waiting));
    m_backend.on("/state", [](const Exchange &exchange) {
        exchange->write("HTTP/1.1 200 OK\r\ncontent-length: 5000\r\n\r\n" + stateDocument("thinking"));
        exchange->close();
    });
    (void)fetchState();
    EXPECT_TRUE(becomes(LoopState::Offline));
}

TEST_F(DocumentFetchTest, ALaterHistoryThatCannotBeReadLeavesTheOneBefore) {
    m_model.loadHistory();
    ASSERT_TRUE(hasCome("/history"));
    m_backend.last("/history")->reply(fixture("history/three.json"));
    ASSERT_TRUE(eventually([&] { return m_model.history().size() == 3; }));
    const SignalCount changes(&m_model, &PalometModel::historyChanged);
    const ScriptedBackend::Script failures[] = {
        [](const Exchange &exchange) { exchange->reply("[{}]"); },
        [](const Exchange &exchange) { exchange->reply(""); },
        [](const Exchange &exchange) { exchange->reply("null", 500); },
        [](const Exchange &exchange) { exchange->abort(); },
    };
    for (const auto &failure : failures) {
        m_backend.on("/history", failure);
        m_model.loadHistory();
        ASSERT_TRUE(eventually([&] { return m_scheduler.pendingCount() == 0; })) << "the fetch has ended";
    }
    EXPECT_EQ(m_model.history().size(), 3U);
    m_backend.serve("/history", "[]");
    m_model.loadHistory();
    ASSERT_TRUE(eventually([&] { return m_model.history().empty(); }));
    EXPECT_EQ(changes.count(), 1);
}

TEST_F(DocumentFetchTest, OptionsThatCannotBeReadLeaveTheOnesBefore) {
    m_model.loadOptions();
    ASSERT_TRUE(hasCome("/options"));
    m_backend.last("/options")->reply(fixture("options/full.json"));
    ASSERT_TRUE(eventually([&] { return m_model.options().has_value(); }));
    const SignalCount changes(&m_model, &PalometModel::optionsChanged);
    m_model.loadOptions();
    ASSERT_TRUE(hasCome("/options", 2));
    m_backend.last("/options")->reply("{\"inputs\":[]}");
    m_model.loadOptions();
    ASSERT_TRUE(hasCome("/options", 3));
    m_backend.last("/options")->reply(fixture("options/empty.json"));
    ASSERT_TRUE(eventually([&] { return changes.count() == 1; }));
    EXPECT_TRUE(m_model.options()->inputs.empty());
}

TEST_F(DocumentFetchTest, AHistoryMayTakeAMinute) {
    m_model.loadHistory();
    ASSERT_TRUE(hasCome("/history"));
    m_scheduler.advance(59'999ms);
    EXPECT_EQ(m_scheduler.untilNext(), 1ms) << "it is still waited for";
    m_backend.last("/history")->reply(fixture("history/three.json"));
    EXPECT_TRUE(eventually([&] { return m_model.history().size() == 3; }));
    m_model.loadHistory();
    ASSERT_TRUE(hasCome("/history", 2));
    m_scheduler.advance(60s);
    EXPECT_TRUE(eventually([&] { return !m_backend.last("/history")->isOpen(); }));
}

TEST_F(DocumentFetchTest, AStateOfManyMegabytesIsDecodedWhileTheMainThreadGoesOn) {
    const auto document = longStateDocument("thinking");

    QElapsedTimer clock;
    clock.start();
    EXPECT_TRUE(decodeSnapshot(document).isOk());
    const auto control = clock.nsecsElapsed();
    // The main thread's longest absence, seen from a timer that always wants to run.
    qint64 longest = 0;
    QTimer heartbeat;
    heartbeat.callOnTimeout(&heartbeat, [&] {
        longest = std::max(longest, clock.nsecsElapsed());
        clock.restart();
    });
    // A busy machine holds up everybody now and then; what the program does itself, it does each time.
    for (int round = 0; round == 0 || (round < 5 && longest >= control); ++round) {
        const auto exchange = fetchState();
        exchange->reply(document);
        longest = 0;
        clock.restart();
        heartbeat.start(0);
        EXPECT_TRUE(becomes(LoopState::Thinking));
        heartbeat.stop();
        m_model.setSnapshot(nullptr);
    }
    EXPECT_LT(longest, control);
}
