#include "audio/link/LinkSocket.h"

#include "tests/support/Control.h"
#include "tests/support/Eventually.h"
#include "tests/support/QueuedWakeup.h"
#include "tests/support/RawAudioBackend.h"
#include "tests/support/ScriptedAudioBackend.h"

#include <QElapsedTimer>
#include <QTcpServer>
#include <QTcpSocket>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using namespace palomet;
using namespace std::chrono_literals;
using testing::ElementsAre;
using testing::IsEmpty;

// The connection alone, on the test's own thread.

namespace {

/// A bell that is heard only when the test says so.
struct HeldBell final : Wakeup {
    std::function<void()> onRaised;
    void raise() noexcept override {}
};

struct LinkSocketTest : testing::Test {
    test::ScriptedAudioBackend backend;
    std::vector<link::Message> messages;
    std::unique_ptr<LinkSocket> socket;

    ~LinkSocketTest() override {
        if (socket)
            socket->close();
    }

    void open(const QUrl &url, LinkSocket::Timing timing = {10ms, 5000ms},
              const WakeupFactory &makeWakeup = &test::QueuedWakeup::make, const AdmitPeer &admit = admitEverybody) {
        socket = std::make_unique<LinkSocket>(url, timing, LinkMessageReader::maximumFileBytes, admit);
        socket->onMessage = [this](link::Message message, quint64) { messages.push_back(std::move(message)); };
        socket->prepare(makeWakeup);
        socket->setDeviceName(QStringLiteral("Mic A"));
        socket->connectToBackend();
    }

    bool isGreeted(std::size_t times = 1) {
        return test::eventually([&] { return backend.events(QStringLiteral("hello")).size() == times; });
    }

    void offer(std::size_t count, std::int16_t value = 1) { socket->offer(std::vector<std::int16_t>(count, value)); }
};

} // namespace

TEST_F(LinkSocketTest, BeginsWithHelloAndTheDevicesName) {
    open(backend.url());
    offer(341); // before anybody listens
    ASSERT_TRUE(isGreeted());
    offer(342, 2);
    ASSERT_TRUE(test::eventually([&] { return backend.received.size() == 2; }));
    EXPECT_EQ(backend.path, QStringLiteral("/audio"));
    EXPECT_EQ(backend.received[0].event, (QJsonObject{{QStringLiteral("type"), QStringLiteral("hello")},
                                                      {QStringLiteral("device"), QStringLiteral("Mic A")}}));
    EXPECT_EQ(backend.received[1].audio.size(), 684);
}

TEST_F(LinkSocketTest, WhatWasHeardBeforeHelloIsNotSentAfterIt) {
    HeldBell *bell = nullptr;
    open(backend.url(), {10ms, 5000ms}, [&](std::function<void()> onRaised) {
        auto held = std::make_unique<HeldBell>();
        held->onRaised = std::move(onRaised);
        bell = held.get();
        return held;
    });
    offer(341);
    ASSERT_TRUE(isGreeted());
    offer(342);
    bell->onRaised();
    ASSERT_TRUE(test::eventually([&] { return !backend.audio().empty(); }));
    EXPECT_EQ(backend.audio().front().size(), 684);
}

TEST_F(LinkSocketTest, SendsSamplesAsLittleEndianBytes) {
    open(backend.url());
    ASSERT_TRUE(isGreeted());
    socket->offer(std::vector<std::int16_t>{0x1234, -2});
    ASSERT_TRUE(test::eventually([&] { return !backend.audio().empty(); }));
    EXPECT_EQ(backend.audio().front(), QByteArray("\x34\x12\xfe\xff", 4));
}

TEST_F(LinkSocketTest, SendsTheEventsAsTheProtocolHasThem) {
    open(backend.url());
    ASSERT_TRUE(isGreeted());
    socket->sendPlayed({9007199254740993, socket->connection()});
    socket->setDeviceName(QStringLiteral("Microfone \"é\""));
    socket->sendDevice();
    ASSERT_TRUE(test::eventually([&] { return backend.received.size() == 3; }));
    EXPECT_THAT(backend.played(), ElementsAre(9007199254740993));
    EXPECT_THAT(backend.devices(), ElementsAre(QStringLiteral("Microfone \"é\"")));
}

TEST_F(LinkSocketTest, WhatIsSentWithoutAConnectionIsLostAndHelloNamesTheNewestDevice) {
    open(backend.url());
    ASSERT_TRUE(isGreeted());
    backend.die();
    socket->sendPlayed({0, socket->connection()});
    ASSERT_TRUE(test::eventually([&] { return socket->waitingBytes() == 0; }));
    // Until the loss is noticed, a send is only a send that fails.
    ASSERT_TRUE(test::eventually([&] {
        socket->sendPlayed({1, socket->connection()});
        return !socket->isConnected();
    }));
    socket->setDeviceName(QStringLiteral("Mic B"));
    socket->sendDevice();
    socket->sendPlayed({2, socket->connection()});
    offer(341);
    backend.received.clear();
    backend.listen();
    ASSERT_TRUE(isGreeted());
    EXPECT_EQ(backend.received[0].event.value(QStringLiteral("device")).toString(), QStringLiteral("Mic B"));
    socket->sendPlayed({3, socket->connection()});
    ASSERT_TRUE(test::eventually([&] { return backend.received.size() >= 2; }));
    EXPECT_THAT(backend.played(), ElementsAre(3));
    EXPECT_THAT(backend.audio(), IsEmpty());
}

TEST_F(LinkSocketTest, ConnectsAgainOneSecondAfterTheConnectionBroke) {
    open(backend.url(), {});
    ASSERT_TRUE(isGreeted());
    const test::SleepingControl control(3s);
    QElapsedTimer timer;
    timer.start();
    backend.drop();
    ASSERT_TRUE(isGreeted(2));
    EXPECT_GE(timer.elapsed(), 1000);
    EXPECT_TRUE(control.isAsleep());
}

TEST_F(LinkSocketTest, GoesOnTryingUntilABackendListens) {
    backend.die();
    open(backend.url());
    for (int round = 0; round < 20; ++round)
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    EXPECT_EQ(backend.connections, 0);
    backend.listen();
    ASSERT_TRUE(isGreeted());
}

TEST_F(LinkSocketTest, GivesUpOnAPeerThatTakesTheConnectionAndSaysNothing) {
    QTcpServer mute;
    ASSERT_TRUE(mute.listen(QHostAddress::LocalHost));
    int connections = 0;
    QObject::connect(&mute, &QTcpServer::newConnection, &mute, [&] { ++connections; });
    open(QUrl(QStringLiteral("ws://127.0.0.1:%1/audio").arg(mute.serverPort())), {1ms, 20ms});
    EXPECT_TRUE(test::eventually([&] { return connections >= 3; }));
}

TEST_F(LinkSocketTest, TheHandshakesLimitIsOverWithTheHandshake) {
    constexpr auto limit = 200ms;
    open(backend.url(), {10ms, limit});
    ASSERT_TRUE(test::eventually([&] { return socket->isConnected(); }));
    const auto connections = backend.connections;
    bool isOver = false;
    QTimer::singleShot(2 * limit, [&] { isOver = true; });
    ASSERT_TRUE(test::eventually([&] { return isOver; }));
    EXPECT_TRUE(socket->isConnected());
    EXPECT_EQ(backend.connections, connections);
}

TEST_F(LinkSocketTest, GivesUpOnAPeerThatTalksSomethingElse) {
    QTcpServer stranger;
    ASSERT_TRUE(stranger.listen(QHostAddress::LocalHost));
    int connections = 0;
    QObject::connect(&stranger, &QTcpServer::newConnection, &stranger, [&] {
        ++connections;
        QTcpSocket *peer = stranger.nextPendingConnection();
        const char *answers[] = {"220 mail.example ESMTP\r\n", "HTTP/1.1 404 Not Found\r\nContent-Length: 0\r\n\r\n",
                                 "HTTP/1.1 101 Switching Protocols\r\n\r\n", "\r\n\r\n", ""};
        peer->write(answers[connections % 5]);
        peer->disconnectFromHost();
    });
    open(QUrl(QStringLiteral("ws://127.0.0.1:%1/audio").arg(stranger.serverPort())), {1ms, 5000ms});
    EXPECT_TRUE(test::eventually([&] { return connections >= 10; }));
}

TEST_F(LinkSocketTest, DropsFramesOfTheMicrophoneInsteadOfPilingThemUp) {
    test::RawAudioBackend mute;
    open(mute.url());
    ASSERT_TRUE(test::eventually([&] { return socket->isConnected(); }));

    // First the system's own buffers fill, then ours.
    qint64 most = 0;
    for (int frames = 0; frames < 100000 && most <= LinkSocket::maximumWaitingBytes; frames += 64) {
        for (int i = 0; i < 64; ++i)
            offer(342);
        QCoreApplication::processEvents();
        most = std::max(most, socket->waitingBytes());
    }
    EXPECT_GT(most, LinkSocket::maximumWaitingBytes);
    for (int frames = 0; frames < 1000; ++frames) {
        offer(342);
        QCoreApplication::processEvents();
        most = std::max(most, socket->waitingBytes());
    }
    EXPECT_LE(most, LinkSocket::maximumWaitingBytes + 700);
    EXPECT_TRUE(socket->isConnected());
}

TEST_F(LinkSocketTest, DropsABackendThatAsksForAnswersAndDoesNotReadThem) {
    test::RawAudioBackend mute;
    open(mute.url());
    ASSERT_TRUE(test::eventually([&] { return socket->isConnected(); }));
    QByteArray pings;
    for (int i = 0; i < 500; ++i)
        pings += "\x89\x7d" + QByteArray(125, 'p');
    qint64 most = 0;
    // The answers fill the buffers of the system first.
    for (int round = 0; round < 2000 && socket->isConnected(); ++round) {
        mute.peers.front()->write(pings);
        mute.peers.front()->flush();
        QCoreApplication::processEvents();
        most = std::max(most, socket->waitingBytes());
    }
    EXPECT_TRUE(test::eventually([&] { return mute.peers.size() == 2; }));
    EXPECT_LE(most, WebSocket::maximumWaitingBytes);
}

TEST_F(LinkSocketTest, TakesTenMinutesOfSpeechAsAWaveFile) {
    open(backend.url());
    ASSERT_TRUE(isGreeted());
    constexpr qsizetype bytes = 600 * 44100 * 2 + 44;
    backend.send(QStringLiteral(R"({"type":"play","id":1,"data":"%1","format":"wav"})")
                     .arg(QString::fromLatin1(QByteArray(bytes, '\0').toBase64())));
    ASSERT_TRUE(test::eventually([&] { return !messages.empty(); }));
    EXPECT_EQ(std::get<link::Play>(messages.front()).data.size(), bytes);
    EXPECT_EQ(backend.connections, 1);
}

TEST_F(LinkSocketTest, IgnoresBinaryMessagesAndWhatItDoesNotUnderstand) {
    open(backend.url());
    ASSERT_TRUE(isGreeted());
    backend.sendBinary(R"({"type":"stop"})");
    for (const char *text :
         {"", "no json", "[]", "{\"type\":\"dance\"}", "{\"type\":\"play\",\"id\":1e30,\"data\":\"\"}"})
        backend.send(QString::fromLatin1(text));
    backend.send(QStringLiteral(R"({"type":"play","id":1,"data":"%1"})").arg(QString(40 * 1024 * 1024, u'!')));
    backend.send(QStringLiteral(R"({"type":"chime"})"));
    ASSERT_TRUE(test::eventually([&] { return !messages.empty(); }));
    EXPECT_THAT(messages, ElementsAre(link::Message(link::Chime{})));
    EXPECT_EQ(backend.connections, 1);
}

TEST_F(LinkSocketTest, AMessageCutOffByTheEndOfItsConnectionIsForgotten) {
    open(backend.url());
    ASSERT_TRUE(isGreeted());
    backend.send(QString(20 * 1024 * 1024, u' '));
    backend.drop();
    ASSERT_TRUE(isGreeted(2));
    backend.send(QStringLiteral(R"({"type":"stop"})"));
    ASSERT_TRUE(test::eventually([&] { return !messages.empty(); }));
    EXPECT_THAT(messages, ElementsAre(link::Message(link::Stop{})));
}

TEST_F(LinkSocketTest, DoesNotConnectToOneWhoIsNotAdmittedAndTriesAgain) {
    int questions = 0;
    open(backend.url(), {10ms, 5000ms}, &test::QueuedWakeup::make, [&](quint16 port, quint16) {
        EXPECT_EQ(port, backend.url().port());
        return ++questions > 3;
    });
    ASSERT_TRUE(isGreeted());
    EXPECT_EQ(backend.connections, 1);
    // Three refusals, one admission before the connection and one after it.
    EXPECT_EQ(questions, 5);
}

TEST_F(LinkSocketTest, SaysNothingToOneWhoIsNotAdmittedOnceItIsConnected) {
    std::vector<quint16> connectedFrom;
    open(backend.url(), {10ms, 5000ms}, &test::QueuedWakeup::make, [&](quint16, quint16 from) {
        if (from != 0)
            connectedFrom.push_back(from);
        return from == 0;
    });
    ASSERT_TRUE(test::eventually([&] {
        offer(341);
        return connectedFrom.size() >= 3;
    }));
    EXPECT_THAT(backend.received, IsEmpty());
}
