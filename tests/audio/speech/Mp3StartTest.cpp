#include "audio/speech/Mp3Start.h"

#include <gtest/gtest.h>

#include <array>

using namespace palomet;

namespace {

enum Version : unsigned { Mpeg25 = 0, Mpeg2 = 2, Mpeg1 = 3 };
constexpr unsigned layer3 = 1;

struct Header {
    unsigned version = Mpeg1;
    unsigned rateIndex = 0;
    unsigned bitRateIndex = 9;
    unsigned padding = 0;
    unsigned layer = layer3;

    [[nodiscard]] QByteArray bytes() const {
        const std::array<unsigned, 4> all{0xff, 0xe1U | version << 3 | layer << 1,
                                          bitRateIndex << 4 | rateIndex << 2 | padding << 1, 0};
        QByteArray text;
        for (const unsigned byte : all)
            text.append(static_cast<char>(byte));
        return text;
    }

    /// So many frames of that length.
    [[nodiscard]] QByteArray frames(qsizetype length, int count) const {
        return bytes().leftJustified(length, '\0').repeated(count);
    }
};

constexpr qsizetype lengthAt128Kilobits = 417;

} // namespace

TEST(Mp3Start, KnowsTheLengthOfAFrameAtEveryBitRate) {
    const std::pair<Version, std::array<int, 14>> lengths[] = {
        {Mpeg1, {104, 130, 156, 182, 208, 261, 313, 365, 417, 522, 626, 731, 835, 1044}},
        {Mpeg2, {26, 52, 78, 104, 130, 156, 182, 208, 261, 313, 365, 417, 470, 522}},
        {Mpeg25, {52, 104, 156, 208, 261, 313, 365, 417, 522, 626, 731, 835, 940, 1044}},
    };
    for (const auto &[version, ofVersion] : lengths) {
        for (unsigned index = 1; index <= ofVersion.size(); ++index) {
            const Header header{.version = version, .bitRateIndex = index};
            const auto length = ofVersion.at(index - 1);
            EXPECT_EQ(findMp3(header.frames(length, 4)), 0) << version << ' ' << index;
            EXPECT_EQ(findMp3(header.frames(length + 1, 4)), std::nullopt) << version << ' ' << index;
        }
    }
}

TEST(Mp3Start, KnowsTheLengthOfAFrameAtEverySampleRateAndWithPadding) {
    for (unsigned rateIndex = 0; rateIndex < 3; ++rateIndex) {
        const auto length = std::array{417, 384, 576}.at(rateIndex);
        EXPECT_EQ(findMp3(Header{.rateIndex = rateIndex}.frames(length, 4)), 0) << rateIndex;
        EXPECT_EQ(findMp3(Header{.rateIndex = rateIndex, .padding = 1}.frames(length + 1, 4)), 0) << rateIndex;
    }
}

TEST(Mp3Start, TakesNothingElseForAFrame) {
    const std::pair<const char *, Header> others[] = {
        {"no version", {.version = 1}},       {"layer I", {.layer = 3}},
        {"layer II", {.layer = 2}},           {"no layer", {.layer = 0}},
        {"no sample rate", {.rateIndex = 3}}, {"a bit rate of its own", {.bitRateIndex = 0}},
        {"no bit rate", {.bitRateIndex = 15}}};
    for (const auto &[name, header] : others) {
        for (qsizetype length = 4; length < 1500; ++length)
            ASSERT_EQ(findMp3(header.frames(length, 4)), std::nullopt) << name << ' ' << length;
    }
    const auto frames = Header().frames(lengthAt128Kilobits, 4);
    EXPECT_EQ(findMp3(QByteArray(frames).replace('\xfb', '\xdb')), std::nullopt) << "no beginning of a frame";
}

TEST(Mp3Start, NeedsThreeFramesInARowOrTwoOfWhichTheLastMayBeCutOff) {
    const Header header;
    const auto frame = header.frames(lengthAt128Kilobits, 1);
    EXPECT_EQ(findMp3(frame), std::nullopt);
    EXPECT_EQ(findMp3(frame + header.bytes().first(3)), std::nullopt);
    EXPECT_EQ(findMp3(frame + header.bytes()), 0);
    EXPECT_EQ(findMp3(frame + frame), 0);
    EXPECT_EQ(findMp3(frame + frame + QByteArray(500, '\0')), std::nullopt);
    EXPECT_EQ(findMp3(frame + frame + frame + QByteArray(500, '\0')), 0);
    EXPECT_EQ(findMp3("ID3\xff\xfb" + frame + frame), 5);
    EXPECT_EQ(findMp3(QByteArray()), std::nullopt);
    EXPECT_EQ(findMp3("\xff"), std::nullopt);
}

TEST(Mp3Start, TakesFramesOfAnotherRateOrVersionForTheStartOfSomethingElse) {
    const auto frame = Header().frames(lengthAt128Kilobits, 1);
    const auto ofAnotherRate = Header{.rateIndex = 1}.frames(384, 2);
    const auto ofAnotherVersion = Header{.version = Mpeg2}.frames(261, 2);
    EXPECT_EQ(findMp3(frame + ofAnotherRate), lengthAt128Kilobits);
    EXPECT_EQ(findMp3(frame + ofAnotherVersion), lengthAt128Kilobits);
}
