#include "tests/audio/link/InPieces.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

using namespace palomet;
using namespace std::string_literals;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

/// The messages of a stream that comes in pieces of one size: "text", "ping:…", and "end" where the reader gave it up.
std::vector<std::string> eventsOf(QByteArrayView stream, qsizetype size) {
    std::vector<std::string> events;
    std::string text;
    WebSocketReader reader;
    reader.onText = [&](QByteArrayView piece) { text.append(piece.data(), static_cast<std::size_t>(piece.size())); };
    reader.onTextEnd = [&] { events.push_back(std::exchange(text, {})); };
    reader.onPing = [&](QByteArrayView payload) { events.push_back("ping:" + payload.toByteArray().toStdString()); };
    if (!test::readInPieces(reader, stream, size))
        events.emplace_back("end");
    return events;
}

std::vector<std::string> eventsOf(const std::string &stream) {
    const QByteArrayView bytes(stream.data(), static_cast<qsizetype>(stream.size()));
    auto events = eventsOf(bytes, bytes.size());
    for (qsizetype size = 1; size < 9; ++size)
        EXPECT_EQ(eventsOf(bytes, size), events) << "in pieces of " << size;
    return events;
}

std::string frame(unsigned char first, const std::string &payload) {
    std::string header{static_cast<char>(first)};
    if (payload.size() < 126) {
        header += static_cast<char>(payload.size());
    } else if (payload.size() < 65536) {
        header += static_cast<char>(126);
        header += {static_cast<char>(payload.size() >> 8), static_cast<char>(payload.size())};
    } else {
        header += static_cast<char>(127);
        for (int shift = 56; shift >= 0; shift -= 8)
            header += static_cast<char>(payload.size() >> shift);
    }
    return header + payload;
}

} // namespace

TEST(WebSocketReader, GivesTextMessagesOfEveryLength) {
    for (const std::size_t size : {0, 1, 125, 126, 127, 65535, 65536, 100000}) {
        const std::string text(size, 'a');
        EXPECT_THAT(eventsOf(frame(0x81, text) + frame(0x81, "next")), ElementsAre(text, "next")) << size;
    }
}

TEST(WebSocketReader, PutsTheFramesOfAMessageTogetherAndAnswersAPingBetweenThem) {
    const auto stream =
        frame(0x01, "one ") + frame(0x00, "") + frame(0x89, "now") + frame(0x00, "two ") + frame(0x80, "three");
    EXPECT_THAT(eventsOf(stream), ElementsAre("ping:now", "one two three"));
}

TEST(WebSocketReader, PassesOverBinaryMessagesAndPongs) {
    const auto stream =
        frame(0x02, "12") + frame(0x8a, "3") + frame(0x80, "45") + frame(0x82, "6") + frame(0x81, "text");
    EXPECT_THAT(eventsOf(stream), ElementsAre("text"));
}

TEST(WebSocketReader, GivesThePingsPayload) {
    EXPECT_THAT(eventsOf(frame(0x89, "") + frame(0x89, std::string(125, 'p')) + frame(0x89, "q")),
                ElementsAre("ping:", "ping:" + std::string(125, 'p'), "ping:q"));
}

TEST(WebSocketReader, EndsWhereTheServerCloses) {
    EXPECT_THAT(eventsOf(frame(0x81, "last") + frame(0x88, "\x03\xe8") + frame(0x81, "void")),
                ElementsAre("last", "end"));
    EXPECT_THAT(eventsOf(frame(0x88, "")), ElementsAre("end"));
}

TEST(WebSocketReader, EndsWhereTheProtocolIsBroken) {
    const std::string after = frame(0x81, "void");
    EXPECT_THAT(eventsOf("\x81\x84....text"s + after), ElementsAre("end")) << "masked";
    EXPECT_THAT(eventsOf(frame(0xc1, "x") + after), ElementsAre("end")) << "compressed";
    EXPECT_THAT(eventsOf(frame(0x91, "x") + after), ElementsAre("end")) << "reserved";
    EXPECT_THAT(eventsOf(frame(0x83, "x") + after), ElementsAre("end")) << "unknown kind";
    EXPECT_THAT(eventsOf(frame(0x8b, "x") + after), ElementsAre("end")) << "unknown control";
    EXPECT_THAT(eventsOf(frame(0x80, "x") + after), ElementsAre("end")) << "continues nothing";
    EXPECT_THAT(eventsOf(frame(0x01, "x") + after), ElementsAre("end")) << "begins within a message";
    EXPECT_THAT(eventsOf(frame(0x01, "x") + frame(0x02, "y")), ElementsAre("end")) << "begins within a message";
    EXPECT_THAT(eventsOf(frame(0x09, "x") + after), ElementsAre("end")) << "a ping in parts";
    EXPECT_THAT(eventsOf(frame(0x89, std::string(126, 'x')) + after), ElementsAre("end")) << "a long ping";
}

TEST(WebSocketReader, TakesALengthBeyondAllThatComes) {
    EXPECT_THAT(eventsOf("\x81\x7f\xff\xff\xff\xff\xff\xff\xff\xfftext"s), IsEmpty());
}
