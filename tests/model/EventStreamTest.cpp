#include "model/EventStream.h"

#include "tests/model/ModelTest.h"

#include <QTcpServer>
#include <QTcpSocket>

#include <algorithm>
#include <utility>
#include <vector>

using namespace palomet;
using namespace palomet::test;
using namespace std::chrono_literals;
using namespace Qt::StringLiterals;

TEST_F(ModelTest, AStreamOneNameAndTwoDataLinesAreTwoEvents) {
    startAndSettle();
    m_backend.last("/events")->write("event: level\n\ndata: 0.25\ndata: 0.5\n");
    const SignalCount changes(&m_model, &PalometModel::inLevelChanged);
    EXPECT_TRUE(eventually([&] { return m_model.inLevel() == 0.5; }));
    EXPECT_EQ(changes.count(), 2);
}

namespace {

using EndStream = void (test::Exchange::*)();

/// The stream alone.
class ReopeningTest : public ::testing::TestWithParam<EndStream> {
protected:
    ReopeningTest() {
        m_backend.on("/events", [](const ScriptedBackend::ExchangePointer &exchange) { exchange->beginEvents(); });
        m_stream.start();
    }

    /// Ends the stream and waits until that was noticed, and it is going to be opened again.
    [[nodiscard]] bool hasNoticedTheEnd() {
        (*m_backend.last("/events").*GetParam())();
        return eventually([&] { return m_scheduler.pendingCount() == 1; });
    }

    /// Whether events arrive again. The network manager may have tried the old stream once more by itself, so it is
    /// not the first new request that counts.
    [[nodiscard]] bool isFollowing(const QByteArray &data) {
        return eventually([&] {
            if (const auto stream = m_backend.last("/events"))
                stream->event("level", data);
            return !m_events.empty() && m_events.back() == std::pair(QByteArray("level"), data);
        });
    }

    ManualScheduler m_scheduler;
    ScriptedBackend m_backend;
    std::vector<std::pair<QByteArray, QByteArray>> m_events;
    int m_gaps = 0;
    HttpClient m_http{m_backend.base(), m_scheduler};
    EventStream m_stream{m_http, m_scheduler,
                         [this](QByteArrayView name, QByteArrayView data) {
                             m_events.emplace_back(name.toByteArray(), data.toByteArray());
                         },
                         [this] { ++m_gaps; }};
};

} // namespace

TEST_P(ReopeningTest, AStreamThatEndsIsOpenedAgainAfterOneSecond) {
    for (int times = 1; times <= 3; ++times) {
        EXPECT_TRUE(isFollowing(QByteArray::number(times)));
        ASSERT_TRUE(hasNoticedTheEnd());
        m_scheduler.advance(999ms);
        EXPECT_EQ(m_scheduler.pendingCount(), 1U);
        m_scheduler.advance(1ms);
        EXPECT_EQ(m_scheduler.pendingCount(), 0U);
    }
    EXPECT_TRUE(isFollowing("4"));
}

TEST_P(ReopeningTest, AGapInTheStreamIsToldAtBothItsEndsAndAtEveryAttempt) {
    ASSERT_TRUE(isFollowing("1"));
    EXPECT_EQ(m_gaps, 0);
    ASSERT_TRUE(hasNoticedTheEnd());
    EXPECT_EQ(m_gaps, 1);
    m_backend.goDown();
    for (int attempt = 1; attempt <= 3; ++attempt) {
        m_scheduler.advance(1s);
        ASSERT_TRUE(eventually([this] { return m_scheduler.pendingCount() == 1; }));
        EXPECT_EQ(m_gaps, 1 + attempt);
    }
    m_backend.comeUp();
    m_scheduler.advance(1s);
    ASSERT_TRUE(isFollowing("2"));
    EXPECT_EQ(m_gaps, 5);
}

TEST_P(ReopeningTest, AStreamThatIsRefusedLeavesNoGap) {
    ASSERT_TRUE(isFollowing("1"));
    ASSERT_TRUE(hasNoticedTheEnd());
    const int gaps = m_gaps;
    m_backend.on("/events", [](const ScriptedBackend::ExchangePointer &exchange) { exchange->reply("no", 404); });
    for (int attempt = 0; attempt < 3; ++attempt) {
        m_scheduler.advance(1s);
        ASSERT_TRUE(eventually([this] { return m_scheduler.pendingCount() == 1; }));
    }
    EXPECT_EQ(m_gaps, gaps);
}

TEST_P(ReopeningTest, AnEventsNameIsForgottenWithItsStream) {
    ASSERT_TRUE(isFollowing("1"));
    m_backend.last("/events")->write("event: level\n");
    ASSERT_TRUE(hasNoticedTheEnd());
    m_scheduler.advance(1s);
    EXPECT_TRUE(eventually([&] {
        m_backend.last("/events")->write("data: 2\nevent: outLevel\ndata: 3\n");
        return m_events.back() == std::pair(QByteArray("outLevel"), QByteArray("3"));
    }));
    EXPECT_TRUE(std::ranges::count(m_events, std::pair(QByteArray(), QByteArray("2"))) > 0);
    EXPECT_EQ(std::ranges::count(m_events, std::pair(QByteArray("level"), QByteArray("2"))), 0);
}

TEST_P(ReopeningTest, AnEventsNameIsForgottenWithAStreamThatIsBrokenOff) {
    ASSERT_TRUE(isFollowing("1"));
    // Its last chunk is missing, so that there is an end which is none.
    m_backend.on("/events", [](const ScriptedBackend::ExchangePointer &exchange) {
        exchange->write(
            "HTTP/1.1 200 OK\r\ntransfer-encoding: chunked\r\n\r\nf\r\nevent: chunked\n\r\n8\r\ndata: 1\n\r\n");
    });
    ASSERT_TRUE(hasNoticedTheEnd());
    m_scheduler.advance(1s);
    ASSERT_TRUE(eventually(
        [&] { return !m_events.empty() && m_events.back() == std::pair(QByteArray("chunked"), QByteArray("1")); }));
    m_backend.on("/events", [](const ScriptedBackend::ExchangePointer &exchange) {
        exchange->beginEvents();
        exchange->write("data: 2\n");
    });
    ASSERT_TRUE(hasNoticedTheEnd());
    m_scheduler.advance(1s);
    EXPECT_TRUE(eventually([&] { return m_events.back().second == "2"; }));
    EXPECT_EQ(m_events.back().first, QByteArray());
}

INSTANTIATE_TEST_SUITE_P(Ends, ReopeningTest, ::testing::Values(&test::Exchange::close, &test::Exchange::abort),
                         [](const auto &tested) { return tested.index == 0 ? "Closed" : "Reset"; });

TEST_F(ModelTest, TheLastEventOfAStreamNeedsNoLineEnd) {
    startAndSettle();
    m_backend.last("/events")->write("event: level\ndata: 0.75");
    m_backend.last("/events")->close();
    EXPECT_TRUE(eventually([&] { return m_model.inLevel() == 0.75; }));
}

TEST_F(ModelTest, AStreamMayBeSilentForDays) {
    startAndSettle();
    m_scheduler.advance(48h);
    send("level", "0.5");
    EXPECT_EQ(m_backend.count("/events"), 1);
}

TEST_F(ModelTest, EventsAreReadWhateverCutsThemAndEndsTheirLines) {
    startAndSettle();
    for (const char byte : QByteArray("event: spoken\r\ndata: \"Ol\xc3\xa1\"\r\n\r\nevent: level\rdata: 0.5\r"))
        m_backend.last("/events")->write(QByteArray(1, byte));
    EXPECT_TRUE(eventually([&] { return m_model.inLevel() == 0.5; }));
    EXPECT_EQ(m_model.spokenLine(), u"Olá"_s);
}

TEST_F(ModelTest, AnOpenStreamDelaysNoOtherRequest) {
    startAndSettle();
    m_backend.serve("/listen", "{}");
    m_model.listen();
    EXPECT_TRUE(hasCome("/listen"));
    EXPECT_TRUE(m_backend.last("/events")->isOpen());
}

TEST_F(ModelTest, AFloodOfEventsLeavesTheMainThreadToOthersInBetween) {
    startAndSettle();
    constexpr int count = 50'000;
    QByteArray flood = "event: level\n";
    for (int i = 1; i <= count; ++i)
        flood += "data: " + QByteArray::number(i) + "\n";
    int turns = 0;
    QTimer others;
    others.callOnTimeout(&others, [&turns] { ++turns; });
    others.start(0);
    const SignalCount levels(&m_model, &PalometModel::inLevelChanged);
    int most = 0;
    int before = 0;
    others.callOnTimeout(&others, [&] {
        most = std::max(most, levels.count() - before);
        before = levels.count();
    });
    m_backend.last("/events")->write(flood);
    ASSERT_TRUE(eventually([&] { return m_model.inLevel() == count; }));
    EXPECT_EQ(levels.count(), count);
    EXPECT_LE(most, 16 * 1024 / 8) << "events between two turns of the others";
    EXPECT_GT(turns, count / (16 * 1024 / 8));
}

TEST_F(ModelTest, AFloodThatNobodyReadsWaitsAtTheSender) {
    startAndSettle();
    const QByteArray flood = (": " + QByteArray(64 * 1024, 'x') + "\n").repeated(1024);
    const auto stream = m_backend.last("/events");
    stream->write(flood);
    // The main thread is this one: while the test does not run the event loop, nobody reads. That is as long as it
    // takes to send as much to somebody who does.
    QTcpServer server;
    ASSERT_TRUE(server.listen(QHostAddress::LocalHost));
    QTcpSocket reader;
    reader.connectToHost(QHostAddress(QHostAddress::LocalHost), server.serverPort());
    ASSERT_TRUE(server.waitForNewConnection(20'000));
    auto *sender = server.nextPendingConnection();
    sender->write(flood);
    for (qsizetype read = 0; read < flood.size(); read += reader.readAll().size()) {
        sender->flush();
        ASSERT_GT(stream->unsent(), flood.size() / 2);
        ASSERT_TRUE(reader.bytesAvailable() > 0 || reader.waitForReadyRead(20'000));
    }
    send("level", "0.5");
    EXPECT_EQ(m_model.inLevel(), 0.5);
    EXPECT_EQ(m_backend.count("/events"), 1);
}

TEST_F(ModelTest, AnEventLongerThanAMebibyteIsDroppedAndTheStreamGoesOn) {
    startAndSettle();
    m_backend.last("/events")->event("spoken", '"' + QByteArray(EventStreamParser::maximumLineLength, 'x') + '"');
    send("level", "0.5");
    EXPECT_EQ(m_model.spokenLine(), QString());
    EXPECT_EQ(m_backend.count("/events"), 1);
}
