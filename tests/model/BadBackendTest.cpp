#include "tests/model/ModelTest.h"

using namespace palomet;
using namespace palomet::test;
using namespace std::chrono_literals;
using namespace Qt::StringLiterals;

TEST_F(ModelTest, WithTheBackendDownAndThenUpTheSnapshotIsBackWithinASecond) {
    m_backend.goDown();
    m_model.start();
    const auto start = m_scheduler.now();
    ASSERT_TRUE(runsUntil([&] { return m_scheduler.now() - start > 5s; }));
    EXPECT_EQ(m_model.state(), LoopState::Offline);
    m_backend.comeUp();
    EXPECT_TRUE(runsUntil([&] { return m_model.state() == LoopState::Speaking; }));
    EXPECT_TRUE(runsUntil([&] { return m_backend.count("/events") == 1; }));
}

TEST_F(ModelTest, ABackendThatDiesIsOfflineAndOneThatIsThereAgainAtOnceIsAskedAgain) {
    startAndSettle();
    m_backend.goDown();
    EXPECT_TRUE(runsUntil([&] { return m_model.state() == LoopState::Offline; }));
    m_backend.comeUp();
    EXPECT_TRUE(runsUntil([&] { return m_model.state() == LoopState::Speaking; }));

    // So quickly that the state is never missed.
    m_backend.serve("/state", stateDocument("thinking"));
    m_backend.goDown();
    m_backend.comeUp();
    EXPECT_TRUE(runsUntil([&] { return m_model.state() == LoopState::Thinking; }));
}

TEST_F(ModelTest, ABackendThatDiesBeforeItsStreamWasOpenIsOffline) {
    m_backend.hang("/events");
    startAndSettle();
    m_backend.goDown();
    EXPECT_TRUE(runsUntil([&] { return m_model.state() == LoopState::Offline; }));
}

TEST_F(ModelTest, WhatChangedBeforeTheStreamWasOpenAgainIsFetched) {
    startAndSettle();
    send("level", "0.5");
    const int before = m_backend.count("/state");
    m_backend.hang("/events");
    m_backend.last("/events")->abort();
    ASSERT_TRUE(runsUntil([&] { return m_backend.count("/state") > before && m_backend.count("/events") > 1; }));
    m_backend.serve("/state", stateDocument("thinking"));
    // Also where the clock ran on, and the model has given this attempt up.
    m_backend.on("/events", [](const Exchange &exchange) { exchange->beginEvents(); });
    m_backend.last("/events")->beginEvents();
    EXPECT_TRUE(runsUntil([&] { return m_model.state() == LoopState::Thinking; }));
}

TEST_F(ModelTest, ABackendThatAnswersWithAnErrorIsOffline) {
    m_backend.serve("/state", "<html>Internal Server Error</html>", 500);
    m_model.start();
    m_scheduler.advance(100ms);
    ASSERT_TRUE(hasCome("/state"));
    m_scheduler.advance(1s);
    m_scheduler.advance(100ms);
    ASSERT_TRUE(hasCome("/state", 2)) << "and is asked again every second";
    EXPECT_EQ(m_model.snapshot(), nullptr);
    EXPECT_EQ(m_model.state(), LoopState::Offline);
}

TEST_F(ModelTest, ABackendThatAcceptsAndNeverAnswersIsOfflineAndAskedAgain) {
    for (const auto *target : {"/state", "/history", "/options", "/events", "/listen", "/settings"})
        m_backend.hang(target);
    m_model.start();
    for (int second = 0; second < 30; ++second) {
        m_scheduler.advance(1s);
        m_model.listen();
        m_model.set(u"voiceSpeed"_s, second);
        ASSERT_TRUE(hasCome("/listen", second + 1));
    }
    EXPECT_EQ(m_model.state(), LoopState::Offline);
    EXPECT_EQ(m_backend.count("/events"), 1);
    const auto open = [&](const QByteArray &target) {
        int count = 0;
        for (const auto &exchange : m_backend.exchanges(target))
            count += exchange->isOpen() ? 1 : 0;
        return count;
    };
    EXPECT_TRUE(eventually([&] { return open("/state") <= 2 && open("/listen") <= 3; }));
    m_backend.serve("/state", fixture("state/full.json"));
    m_scheduler.advance(1s);
    m_scheduler.advance(100ms);
    EXPECT_TRUE(eventually([&] { return m_model.state() == LoopState::Speaking; }));
}

namespace {

/// A program on the backend's port that does not speak HTTP.
class StrangerTest : public ModelTest, public ::testing::WithParamInterface<std::pair<const char *, QByteArray>> {};

const std::pair<const char *, QByteArray> strangers[] = {
    {"ThatGreetsFirst", "SSH-2.0-Stranger_1.0\r\n"},
    {"OfAnotherProtocol", QByteArray("\x15\x03\x01\x00\x02\x02\x28\x00\x00", 9)},
    {"ThatSaysNothingAndLeaves", ""},
    {"WithZeros", QByteArray(100'000, '\0')},
    {"WithOneLongLine", QByteArray(4'000'000, 'a')},
    {"WithAHeadThatNeverEnds", "HTTP/1.1 200 OK\r\n" + QByteArray("x-header: value\r\n").repeated(5'000)},
    {"WithABadChunk", "HTTP/1.1 200 OK\r\ntransfer-encoding: chunked\r\n\r\nzz\r\nabc\r\n"},
    {"WithAChunkTooLarge", "HTTP/1.1 200 OK\r\ntransfer-encoding: chunked\r\n\r\nffffffffffffffffff\r\nabc\r\n"},
    {"WithANegativeLength", "HTTP/1.1 200 OK\r\ncontent-length: -5\r\n\r\nabc"},
    {"WithAnOldStatusLine", "HTTP/0.9 abc\r\n\r\n"},
    {"WithZippedNonsense", "HTTP/1.1 200 OK\r\ncontent-encoding: gzip\r\ncontent-length: 5\r\n\r\nabcde"},
};

/// A state that is larger than any that is read.
class HugeStateTest : public ModelTest {
protected:
    void expectGivenUp() {
        m_model.setSnapshot(std::make_shared<const Snapshot>());
        m_model.refresh();
        m_scheduler.advance(100ms);
        EXPECT_TRUE(eventually([&] { return !m_model.snapshot(); }));
        EXPECT_TRUE(eventually([&] { return !m_backend.last("/state")->isOpen(); }));
    }
};

} // namespace

TEST_P(StrangerTest, IsOfflineAndNothingMore) {
    const auto &greeting = GetParam().second;
    m_backend.onConnection([&greeting](QTcpSocket &socket) {
        socket.write(greeting);
        socket.disconnectFromHost();
    });
    m_model.start();
    m_model.listen();
    m_model.set(u"voiceSpeed"_s, 1);
    ASSERT_TRUE(eventually([&] { return !m_model.applying(); }));
    const auto start = m_scheduler.now();
    ASSERT_TRUE(runsUntil([&] { return m_scheduler.now() - start > 3s; }));
    EXPECT_EQ(m_model.state(), LoopState::Offline);
    EXPECT_TRUE(m_model.history().empty());
    EXPECT_EQ(m_model.options(), std::nullopt);

    m_backend.onConnection(nullptr);
    EXPECT_TRUE(runsUntil([&] { return m_model.state() == LoopState::Speaking; })) << "the backend gets its port back";
}

INSTANTIATE_TEST_SUITE_P(APort, StrangerTest, ::testing::ValuesIn(strangers),
                         [](const auto &tested) { return tested.param.first; });

TEST_F(HugeStateTest, ThatSaysItIsBeyondItsLimitIsGivenUpAtItsFirstByte) {
    m_backend.on("/state", [](const Exchange &exchange) {
        exchange->write("HTTP/1.1 200 OK\r\ncontent-length: " + QByteArray::number(maximumDocumentSize + 1) +
                        "\r\n\r\n{");
    });
    expectGivenUp();
}

TEST_F(HugeStateTest, WithoutEndIsGivenUpAtItsLimit) {
    m_backend.on("/state", [](const Exchange &exchange) {
        exchange->write("HTTP/1.1 200 OK\r\n\r\n");
        for (int i = 0; i <= 64; ++i)
            exchange->write(QByteArray(1024 * 1024, ' '));
    });
    expectGivenUp();
}
