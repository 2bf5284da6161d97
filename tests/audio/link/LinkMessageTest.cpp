#include "audio/link/LinkMessageReader.h"

#include <gtest/gtest.h>

using namespace palomet;

namespace {

std::optional<link::Message> readInPieces(QByteArrayView text, qsizetype size) {
    LinkMessageReader reader;
    for (qsizetype from = 0; from < text.size(); from += size)
        reader.add(text.sliced(from, std::min(size, text.size() - from)));
    return reader.finish();
}

/// The same whole and in pieces.
std::optional<link::Message> parsed(QByteArrayView text) {
    auto message = link::parse(text);
    EXPECT_EQ(readInPieces(text, std::max<qsizetype>(text.size(), 1)), message);
    for (qsizetype size = 1; size < 5 && text.size() < 10000; ++size)
        EXPECT_EQ(readInPieces(text, size), message) << text.toByteArray().toStdString() << " in pieces of " << size;
    return message;
}

std::optional<qint64> idOf(const QByteArray &literal) {
    const auto message = parsed(R"({"type":"play","data":"","id":)" + literal + "}");
    if (!message)
        return {};
    return std::get<link::Play>(*message).id;
}

std::optional<QByteArray> dataOf(const QByteArray &base64) {
    const auto message = parsed(R"({"type":"play","id":1,"data":")" + base64 + "\"}");
    if (!message)
        return {};
    return std::get<link::Play>(*message).data;
}

} // namespace

TEST(LinkMessage, ReadsEveryMessageOfTheTable) {
    EXPECT_EQ(parsed(R"({"type":"play","id":12,"data":"QUJD","format":"wav"})"),
              link::Message(link::Play{12, "ABC", QStringLiteral("wav")}));
    EXPECT_EQ(parsed(R"({"type":"stop"})"), link::Message(link::Stop{}));
    EXPECT_EQ(parsed(R"({"type":"chime"})"), link::Message(link::Chime{}));
    EXPECT_EQ(parsed(R"({"type":"enable","on":false})"), link::Message(link::Enable{false}));
    EXPECT_EQ(parsed(R"({"type":"enable","on":true})"), link::Message(link::Enable{true}));
    EXPECT_EQ(parsed(R"({"type":"input","device":"Microfone interno"})"),
              link::Message(link::Input{QStringLiteral("Microfone interno")}));
}

TEST(LinkMessage, FillsInWhatMayBeMissing) {
    EXPECT_EQ(parsed(R"({"type":"play","id":1,"data":""})"), link::Message(link::Play{1, "", QStringLiteral("mp3")}));
    EXPECT_EQ(parsed(R"({"type":"play","id":1,"data":"","format":7})"),
              link::Message(link::Play{1, "", QStringLiteral("mp3")}));
    EXPECT_EQ(parsed(R"({"type":"enable"})"), link::Message(link::Enable{true}));
    EXPECT_EQ(parsed(R"({"type":"enable","on":"no"})"), link::Message(link::Enable{true}));
    EXPECT_EQ(parsed(R"({"type":"input"})"), link::Message(link::Input{}));
    EXPECT_EQ(parsed(R"({"type":"input","device":null})"), link::Message(link::Input{}));
    EXPECT_EQ(parsed(R"({"type":"input","device":3})"), link::Message(link::Input{}));
    EXPECT_EQ(parsed(R"({"type":"input","device":""})"), link::Message(link::Input{QStringLiteral("")}));
}

TEST(LinkMessage, OfAKeyThatIsThereTwiceTheLastOneCounts) {
    EXPECT_EQ(parsed(R"({"type":"stop","type":"chime"})"), link::Message(link::Chime{}));
    EXPECT_EQ(parsed(R"({"id":"a","type":"play","data":"QUJD","format":"wav","id":2,"data":"","format":"ogg"})"),
              link::Message(link::Play{2, "", QStringLiteral("ogg")}));
    EXPECT_EQ(parsed(R"({"type":"play","data":"","id":1,"id":"a"})"), std::nullopt);
    EXPECT_EQ(parsed(R"({"type":"enable","on":false,"on":null})"), link::Message(link::Enable{true}));
    EXPECT_EQ(parsed(R"({"type":"enable","on":true,"on":false})"), link::Message(link::Enable{false}));
    EXPECT_EQ(parsed(R"({"type":"input","device":"a","device":null})"), link::Message(link::Input{}));
}

TEST(LinkMessage, IgnoresWhatItDoesNotKnow) {
    EXPECT_EQ(parsed(R"({"type":"dance"})"), std::nullopt);
    EXPECT_EQ(parsed(R"({"type":"Play","id":1,"data":""})"), std::nullopt);
    EXPECT_EQ(parsed(R"({"type":1})"), std::nullopt);
    EXPECT_EQ(parsed(R"({"type":null})"), std::nullopt);
    EXPECT_EQ(parsed(R"({"kind":"stop"})"), std::nullopt);
    EXPECT_EQ(parsed(R"({})"), std::nullopt);
    EXPECT_EQ(parsed(R"({"type":"stop","more":[{"is":"fine"}]})"), link::Message(link::Stop{}));
}

TEST(LinkMessage, IgnoresWhatIsNotJsonOrNotAnObject) {
    for (const char *text :
         {"", " ", "stop", "{", "{\"type\":\"stop\"", "{\"type\":\"stop\"}}", "{\"type\":\"stop\",}",
          "[{\"type\":\"stop\"}]", "\"stop\"", "5", "null", "true", "{'type':'stop'}", "{\"type\":\"stop\",\"x\":NaN}",
          "{\"type\":\"stop\",\"x\":\"\\ud800\"}", "{\"type\":\"stop\",\"x\":\"\xff\"}"})
        EXPECT_EQ(parsed(text), std::nullopt) << text;
    EXPECT_EQ(parsed(QByteArrayView()), std::nullopt);
    const QByteArray deep = R"({"type":"stop","x":)" + QByteArray(600, '[') + QByteArray(600, ']') + "}";
    EXPECT_EQ(parsed(deep), std::nullopt);
    const QByteArray hundreds = R"({"type":"stop","x":)" + QByteArray(400, '[') + QByteArray(400, ']') + "}";
    EXPECT_EQ(parsed(hundreds), link::Message(link::Stop{}));
}

TEST(LinkMessage, TakesAWholeNumberOfSixtyFourBitsAsAnId) {
    EXPECT_EQ(idOf("0"), 0);
    EXPECT_EQ(idOf("-1"), -1);
    EXPECT_EQ(idOf("5.0"), 5);
    EXPECT_EQ(idOf("5e2"), 500);
    EXPECT_EQ(idOf("9223372036854775807"), std::numeric_limits<qint64>::max());
    EXPECT_EQ(idOf("-9223372036854775808"), std::numeric_limits<qint64>::min());
}

TEST(LinkMessage, IgnoresAClipWhoseIdIsNoInteger) {
    for (const char *literal : {"5.5", "true", "\"5\"", "null", "[5]", "9223372036854775808", "-9223372036854775809",
                                "18446744073709551615", "18446744073709551616", "1e30", "1e400", "-1e19", "05", "+5"})
        EXPECT_EQ(idOf(literal), std::nullopt) << literal;
    EXPECT_EQ(parsed(R"({"type":"play","data":""})"), std::nullopt);
}

TEST(LinkMessage, DecodesBase64Strictly) {
    EXPECT_EQ(dataOf(""), QByteArray());
    EXPECT_EQ(dataOf("QQ=="), QByteArray("A"));
    EXPECT_EQ(dataOf("QUI="), QByteArray("AB"));
    EXPECT_EQ(dataOf("QUJD"), QByteArray("ABC"));
    EXPECT_EQ(dataOf("+/+/"), QByteArray("\xfb\xff\xbf"));
    for (const char *text : {"QQ", "QQ=", "Q===", "QUI", "QUJDQ", "-_-_", "QU JD", "QUJD\\n", " QUJD",
                             "QQ==QQ==", "QQ=A", "====", "QUJ\\u00e9", "Q\\u0000==", "=QUJ"})
        EXPECT_EQ(dataOf(text), std::nullopt) << text;
}

TEST(LinkMessage, IgnoresAClipWithoutUsableData) {
    EXPECT_EQ(parsed(R"({"type":"play","id":1})"), std::nullopt);
    EXPECT_EQ(parsed(R"({"type":"play","id":1,"data":null})"), std::nullopt);
    EXPECT_EQ(parsed(R"({"type":"play","id":1,"data":["QUJD"]})"), std::nullopt);
}

TEST(LinkMessage, HandsAStrangeFormatOnForItsNote) {
    const auto message = parsed(R"({"type":"play","id":1,"data":"","format":"../x"})");
    ASSERT_TRUE(message);
    EXPECT_EQ(std::get<link::Play>(*message).format, QStringLiteral("../x"));
}

TEST(LinkMessage, SurvivesFortyMegabytesOfNonsense) {
    const QByteArray valid(40 * 1024 * 1024, 'A');
    EXPECT_EQ(dataOf(valid)->size(), 30 * 1024 * 1024);
    QByteArray invalid = valid;
    invalid[invalid.size() / 2] = '!';
    EXPECT_EQ(dataOf(invalid), std::nullopt);
}
