#include "audio/link/LinkMessageReader.h"

#include <gtest/gtest.h>

using namespace palomet;

namespace {

std::optional<link::Message> read(QByteArrayView text, qsizetype maximumFile = LinkMessageReader::maximumFileBytes) {
    LinkMessageReader reader(maximumFile);
    reader.add(text);
    return reader.finish();
}

link::Message play(const QByteArray &data) {
    return link::Play{1, data, QStringLiteral("mp3")};
}

/// A message with a clip of so many megabytes of zeros, as the link gets it: in pieces.
std::optional<link::Message> readMegabytes(int count, LinkMessageReader &reader) {
    reader.add(R"({"type":"play","data":")");
    const QByteArray piece(64 * 1024, 'A');
    for (int i = 0; i < count * 16 * 4 / 3; ++i)
        reader.add(piece);
    reader.add(R"(","id":1})");
    return reader.finish();
}

} // namespace

TEST(LinkMessageReader, ReadsBase64ThatWasEscaped) {
    EXPECT_EQ(read(R"({"type":"play","id":1,"data":"+\/+\/"})"), play("\xfb\xff\xbf"));
    EXPECT_EQ(read(R"({"type":"play","id":1,"data":"\u0051\u0055JD"})"), play("ABC"));
    EXPECT_EQ(read(R"({"type":"play","id":1,"data":"QQ\u003d\u003D"})"), play("A"));
    for (const char *data : {R"(\QUJD)", R"(QUJ\n)", R"(QUJ\")", R"(QUJ\\)", R"(QU\u00J)", R"(QUJ\u0151)", R"(QU\u)"}) {
        const auto text = R"({"type":"play","id":1,"data":")" + QByteArray(data) + "\"}";
        EXPECT_EQ(read(text), std::nullopt) << data;
    }
}

TEST(LinkMessageReader, TakesNoOtherStringForTheClip) {
    EXPECT_EQ(
        read(R"({"type":"play","id":1,"more":{"data":"!"},"list":["data","!"],"x":"data","y":"!","data":"QUJD"})"),
        play("ABC"));
    EXPECT_EQ(read(R"({"data":"QUJD","type":"play","id":1,"z":{"data":"!"}})"), play("ABC"));
    EXPECT_EQ(read(R"([{"type":"play","id":1,"data":"QUJD"}])"), std::nullopt);
    EXPECT_EQ(read(R"({"type":"play","id":1,"metadata":"QUJD"})"), std::nullopt);
    EXPECT_EQ(read(R"({"type":"play","id":1,"\"data":"QUJD"})"), std::nullopt);
}

TEST(LinkMessageReader, ReadsAMessageWhoseDataIsNoClip) {
    EXPECT_EQ(read(R"({"type":"stop","data":"no base64, for nobody reads it"})"), link::Message(link::Stop{}));
    EXPECT_EQ(read(R"({"data":"\"}","type":"chime"})"), link::Message(link::Chime{}));
}

TEST(LinkMessageReader, OfTwoClipsInOneMessageTheLastCounts) {
    EXPECT_EQ(read(R"({"type":"play","id":1,"data":"!","data":"QUJD"})"), play("ABC"));
    EXPECT_EQ(read(R"({"type":"play","id":1,"data":"QUJD","data":"!"})"), std::nullopt);
}

TEST(LinkMessageReader, BeginsAnewWithEveryMessage) {
    LinkMessageReader reader;
    for (const char *unfinished :
         {R"({"type":"play","id":1,"data":"QUJ)", R"({"type":"st)", R"({"x":[[[)", R"({"x":"\)"}) {
        reader.add(unfinished);
        EXPECT_EQ(reader.finish(), std::nullopt) << unfinished;
        reader.add(R"({"type":"play","id":1,"data":"QUJD"})");
        EXPECT_EQ(reader.finish(), play("ABC"));
    }
}

TEST(LinkMessageReader, KeepsNoFileThatIsTooLargeButSaysWhichClipItWas) {
    EXPECT_EQ(read(R"({"type":"play","id":1,"data":"QUJD"})", 3), play("ABC"));
    EXPECT_EQ(read(R"({"type":"play","data":"QUJDRA==","id":7})", 3), link::Message(link::OversizedClip{7}));
    EXPECT_EQ(read(R"({"type":"stop","data":"QUJDRA=="})", 3), link::Message(link::Stop{}));
    LinkMessageReader reader(qsizetype{32} * 1024 * 1024);
    EXPECT_EQ(readMegabytes(33, reader), link::Message(link::OversizedClip{1}));
    EXPECT_EQ(readMegabytes(30, reader), play(QByteArray(30 * 1024 * 1024, '\0')));
}

TEST(LinkMessageReader, HoldsAnyWaveFileOfWhatFitsDecodedUpToOneOf192KilohertzAnd32Bits) {
    constexpr auto seconds = static_cast<qsizetype>(maximumClipBytes / sizeof(float) / 48000);
    EXPECT_GE(LinkMessageReader::maximumFileBytes, seconds * 192000 * 4 + 44);
    EXPECT_GE(LinkMessageReader::maximumFileBytes, seconds * 48000 * 2 * 4 + 44);
}

TEST(LinkMessageReader, HoldsLittleOfWhatIsNoClip) {
    const QByteArray blanks(4 * 1024 * 1024, '\n');
    EXPECT_EQ(read("{" + blanks + "\"type\"" + blanks + ":\"stop\"}" + blanks), link::Message(link::Stop{}));
    EXPECT_EQ(read(R"({"type":"stop","x":")" + QByteArray(1000 * 1024, 'x') + "\"}"), link::Message(link::Stop{}));
    EXPECT_EQ(read(R"({"type":"stop","x":")" + QByteArray(1024 * 1024, 'x') + "\"}"), std::nullopt);
    LinkMessageReader reader;
    reader.add(QByteArray(2 * 1024 * 1024, '['));
    EXPECT_EQ(reader.finish(), std::nullopt);
    reader.add(R"({"type":"stop"})");
    EXPECT_EQ(reader.finish(), link::Message(link::Stop{}));
}

TEST(LinkMessageReader, JoinsNoNumbersByTheBlanksThatItLeavesOut) {
    EXPECT_EQ(read("{\"type\":\"play\",\"data\":\"\",\"id\":1 \n\t2}"), std::nullopt);
}
