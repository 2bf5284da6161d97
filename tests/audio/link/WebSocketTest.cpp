#include "audio/link/WebSocket.h"

#include "tests/support/Eventually.h"
#include "tests/support/RawAudioBackend.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>

using namespace palomet;
using testing::ElementsAre;

namespace {

struct WebSocketTest : testing::Test {
    test::RawAudioBackend server;
    std::unique_ptr<WebSocket> socket;
    int openings = 0;
    int ends = 0;
    QByteArray text;
    std::vector<QByteArray> messages;

    void open() {
        socket = std::make_unique<WebSocket>();
        socket->onOpen = [this] { ++openings; };
        socket->onText = [this](QByteArrayView piece) { text += piece; };
        socket->onTextEnd = [this] { messages.push_back(std::exchange(text, {})); };
        socket->onEnd = [this] { ++ends; };
        socket->open(server.url());
    }
    bool isOpen() {
        return test::eventually([&] { return openings == 1; });
    }
    bool hasEnded() {
        return test::eventually([&] { return ends == 1; });
    }
    /// The bytes that the server gets until it has this many.
    QByteArray received(qsizetype size) {
        test::eventually([&] { return server.received.size() >= size; });
        return std::exchange(server.received, {});
    }
};

/// A frame as it is to be: final, masked.
QByteArray unmasked(const QByteArray &frame, qsizetype headerSize) {
    QByteArray payload = frame.sliced(headerSize + 4);
    for (qsizetype i = 0; i < payload.size(); ++i)
        payload[i] = static_cast<char>(payload[i] ^ frame[headerSize + i % 4]);
    return payload;
}

} // namespace

TEST_F(WebSocketTest, AsksAsAClientWithoutAnOriginDoes) {
    QByteArray request;
    server.answer = [&](const QByteArray &asked) {
        request = asked;
        return QByteArray("HTTP/1.1 403 Forbidden\r\n\r\n");
    };
    open();
    ASSERT_TRUE(hasEnded());
    EXPECT_TRUE(request.startsWith(
        "GET /audio HTTP/1.1\r\nHost: 127.0.0.1:" + QByteArray::number(server.server.serverPort()) + "\r\n"));
    EXPECT_TRUE(request.contains("\r\nUpgrade: websocket\r\nConnection: Upgrade\r\nSec-WebSocket-Version: 13\r\n"));
    EXPECT_FALSE(request.contains("Origin"));
    EXPECT_EQ(openings, 0);
}

TEST_F(WebSocketTest, AsksByAnotherKeyEachTime) {
    std::vector<QByteArray> requests;
    server.answer = [&](const QByteArray &asked) {
        requests.push_back(asked);
        return QByteArray("no\r\n\r\n");
    };
    open();
    ASSERT_TRUE(hasEnded());
    open();
    ASSERT_TRUE(test::eventually([&] { return ends == 2; }));
    EXPECT_NE(requests[0], requests[1]);
}

TEST_F(WebSocketTest, TakesNoAnswerThatDoesNotAgree) {
    const std::vector<std::pair<QByteArray, QByteArray>> changes{
        {"101", "200"},
        {"HTTP/1.1", "HTTP/2"},
        {"HTTP/1.1 101 Switching Protocols", "101"},
        {"websocket", "h2c"},
        {"Connection: Upgrade", "Connection: close"},
        {"Sec-WebSocket-Accept: ", "Sec-WebSocket-Accept: x"},
        {"Sec-WebSocket-Accept: ", "Sec-WebSocket-Other: "},
    };
    for (const auto &change : changes) {
        server.answer = [&](const QByteArray &request) {
            return test::RawAudioBackend::agreement(request).replace(change.first, change.second);
        };
        ends = 0;
        open();
        EXPECT_TRUE(hasEnded()) << change.second.toStdString();
        EXPECT_EQ(openings, 0) << change.second.toStdString();
    }
}

TEST_F(WebSocketTest, TakesAnAnswerInSmallPiecesAndInAnyCase) {
    QByteArray answer;
    server.answer = [&](const QByteArray &request) {
        answer = test::RawAudioBackend::agreement(request);
        answer.replace("Upgrade: websocket", "upgrade:  WebSocket ");
        answer.replace("Connection: Upgrade", "connection: keep-alive, upgrade");
        answer += "\x81\x04text";
        return QByteArray();
    };
    open();
    ASSERT_TRUE(test::eventually([&] { return !answer.isEmpty(); }));
    for (const char byte : answer) {
        server.peers.front()->write(&byte, 1);
        server.peers.front()->flush();
        QCoreApplication::processEvents();
    }
    ASSERT_TRUE(test::eventually([&] { return !messages.empty(); }));
    EXPECT_THAT(messages, ElementsAre("text"));
}

TEST_F(WebSocketTest, GivesUpOnAnAnswerThatNeverEnds) {
    server.answer = [](const QByteArray &) {
        return "HTTP/1.1 101 Switching Protocols\r\nX-Endless: " + QByteArray(WebSocket::maximumAnswerBytes, 'x');
    };
    open();
    EXPECT_TRUE(hasEnded());
}

TEST_F(WebSocketTest, TakesALongAnswerThatEnds) {
    server.answer = [](const QByteArray &request) {
        return test::RawAudioBackend::agreement(request).replace("Upgrade: w",
                                                                 "X: " + QByteArray(15000, 'x') + "\r\nUpgrade: w");
    };
    open();
    EXPECT_TRUE(isOpen());
}

TEST_F(WebSocketTest, SendsMaskedFramesOfEveryLength) {
    server.isReading = true;
    open();
    ASSERT_TRUE(isOpen());
    struct Size {
        qsizetype payload;
        QByteArray header;
    };
    for (const auto &[size, header] :
         {Size{0, QByteArray("\x80", 1)}, Size{125, "\xfd"}, Size{126, QByteArray("\xfe\x00\x7e", 3)},
          Size{65535, "\xfe\xff\xff"}, Size{65536, QByteArray("\xff\x00\x00\x00\x00\x00\x01\x00\x00", 9)}}) {
        const QByteArray payload(size, 'a');
        socket->sendText(payload);
        const auto frame = received(1 + header.size() + 4 + size);
        EXPECT_TRUE(frame.startsWith("\x81" + header)) << size;
        EXPECT_EQ(unmasked(frame, 1 + header.size()), payload) << size;
    }
    socket->sendBinary("12");
    const auto first = received(8);
    socket->sendBinary("12");
    const auto second = received(8);
    EXPECT_TRUE(first.startsWith("\x82\x82"));
    EXPECT_EQ(unmasked(first, 2), "12");
    EXPECT_NE(first, second); // by another mask
}

TEST_F(WebSocketTest, TellsTheEndsOfItsConnection) {
    open();
    ASSERT_TRUE(isOpen());
    EXPECT_EQ(socket->peerPort(), server.server.serverPort());
    EXPECT_EQ(socket->localPort(), server.peers.front()->peerPort());
}

TEST_F(WebSocketTest, AnswersAPing) {
    server.isReading = true;
    open();
    ASSERT_TRUE(isOpen());
    server.peers.front()->write("\x89\x04ping");
    const auto frame = received(10);
    EXPECT_TRUE(frame.startsWith("\x8a\x84"));
    EXPECT_EQ(unmasked(frame, 2), "ping");
}

TEST_F(WebSocketTest, TakesLeaveWhenTheServerDoes) {
    server.isReading = true;
    open();
    ASSERT_TRUE(isOpen());
    server.peers.front()->write("\x81\x04last\x88\x02\x03\xe8\x81\x04void");
    ASSERT_TRUE(hasEnded());
    EXPECT_THAT(messages, ElementsAre("last"));
    const auto frame = received(8);
    EXPECT_TRUE(frame.startsWith("\x88\x82"));
    EXPECT_EQ(unmasked(frame, 2), "\x03\xe9");
}

TEST_F(WebSocketTest, SaysOnceThatTheServerIsGone) {
    open();
    ASSERT_TRUE(isOpen());
    server.peers.front()->abort();
    ASSERT_TRUE(hasEnded());
    socket->sendText("nobody hears this");
    socket.reset();
    EXPECT_EQ(ends, 1);
}
