#include "audio/speech/ClipDecoder.h"

#include "tests/support/ClipFiles.h"

#include <QtEndian>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sndfile.h>

#include <cmath>
#include <limits>
#include <numbers>
#include <numeric>

using namespace palomet;
using test::Clip;
using test::encode;
using test::sine;
using testing::Each;
using testing::FloatNear;

namespace {

constexpr int wavPcm16 = SF_FORMAT_WAV | SF_FORMAT_PCM_16;
constexpr int wavFloat = SF_FORMAT_WAV | SF_FORMAT_FLOAT;

QString named(const char *extension) {
    return QString::fromLatin1(extension);
}

ClipSamples decoded(const QByteArray &file, const char *extension) {
    auto result = decodeClip(file, named(extension));
    EXPECT_TRUE(result.isOk()) << extension << ": " << (result ? "" : result.reason().toStdString());
    return result ? std::move(*result) : ClipSamples{};
}

void expectRefused(const QByteArray &file, const char *extension) {
    const auto result = decodeClip(file, named(extension));
    EXPECT_FALSE(result.isOk()) << extension;
    EXPECT_TRUE(result || !result.reason().isEmpty()) << extension;
}

/// How much of a sine of this frequency is in the middle of the clip: 1 is all of one at half of full scale.
double sineShare(const ClipSamples &samples, double frequency) {
    double real = 0;
    double imaginary = 0;
    const auto from = samples.size() / 4;
    const auto to = samples.size() * 3 / 4;
    for (auto i = from; i < to; ++i) {
        const auto angle = 2 * std::numbers::pi * frequency * static_cast<double>(i) / 48000;
        real += static_cast<double>(samples[i]) * std::cos(angle);
        imaginary += static_cast<double>(samples[i]) * std::sin(angle);
    }
    return 4 * std::hypot(real, imaginary) / static_cast<double>(to - from);
}

/// Overwrites four bytes behind the first occurrence of `tag`.
QByteArray patched(QByteArray file, const char *tag, qsizetype behind, quint32 value, bool isBigEndian = false) {
    const auto at = file.indexOf(tag) + behind;
    const auto bytes = isBigEndian ? qToBigEndian(value) : qToLittleEndian(value);
    return file.replace(at, 4, reinterpret_cast<const char *>(&bytes), 4);
}

} // namespace

TEST(ClipDecoder, ReadsEveryFormatItPromises) {
    for (const auto &[extension, format] : test::clipFormats()) {
        const auto samples = decoded(encode(sine(24000), format), extension);
        EXPECT_EQ(samples.size(), 48000U) << extension;
        EXPECT_NEAR(sineShare(samples, 440), 1, 0.02) << extension;
    }
}

TEST(ClipDecoder, OneSecondAt24000HzBecomesExactly48000Frames) {
    EXPECT_EQ(decoded(encode(sine(24000), wavPcm16), "wav").size(), 48000U);
}

TEST(ClipDecoder, ALengthIsRoundedDownAtEveryRate) {
    for (const int rate : {1, 10, 999, 8000, 11025, 22050, 32000, 44100, 47999, 48000, 48001, 88200, 96000, 384000}) {
        for (const int frames : rate < 100 ? std::vector{1, 5} : std::vector{1, 2, 5, 1000, 1001}) {
            const Clip clip{rate, 1, std::vector<float>(static_cast<std::size_t>(frames), 0.25F)};
            EXPECT_EQ(decoded(encode(clip, wavPcm16), "wav").size(), static_cast<std::size_t>(frames) * 48000 / rate)
                << frames << " frames at " << rate << " Hz";
        }
    }
}

TEST(ClipDecoder, KeepsTheLastFramesWhateverTheRate) {
    for (const int rate : {8000, 16000, 22050, 44100, 88200, 96000, 192000, 384000}) {
        auto samples = decoded(encode(sine(rate), wavFloat), "wav");
        EXPECT_EQ(samples.size(), 48000U) << rate;
        EXPECT_NEAR(sineShare(samples, 440), 1, 0.001) << rate;
        samples.erase(samples.begin(), samples.end() - 2400); // The last 50 ms, which a cap on the output cuts.
        EXPECT_NEAR(sineShare(samples, 440), 1, 0.1) << rate;
    }
}

TEST(ClipDecoder, What48000HzHoldsIsNotTouched) {
    const auto clip = sine(48000);
    EXPECT_EQ(decoded(encode(clip, wavFloat), "wav"), clip.samples);
}

TEST(ClipDecoder, AveragesTheChannels) {
    Clip stereo{48000, 2, {0.5F, -0.25F, 1, 1, -1, 1}};
    EXPECT_EQ(decoded(encode(stereo, wavFloat), "wav"), (ClipSamples{0.125F, 1, 0}));

    Clip eight{48000, 8, {0.8F, 0, 0, 0, 0, 0, 0, 0, 0.1F, 0.1F, 0.1F, 0.1F, 0.1F, 0.1F, 0.1F, 0.1F}};
    for (const int format : {wavFloat, SF_FORMAT_FLAC | SF_FORMAT_PCM_24, SF_FORMAT_AIFF | SF_FORMAT_PCM_24}) {
        const char *extension = format == wavFloat                                ? "wav"
                                : (format & SF_FORMAT_TYPEMASK) == SF_FORMAT_FLAC ? "flac"
                                                                                  : "aiff";
        EXPECT_THAT(decoded(encode(eight, format), extension), Each(FloatNear(0.1F, 1e-6F))) << extension;
    }
    EXPECT_NEAR(sineShare(decoded(encode(sine(24000, 440, 2), test::clipFormats().front().format), "mp3"), 440), 1,
                0.02);
}

TEST(ClipDecoder, AClipWithoutFramesIsEmpty) {
    // The formats whose header is written even when no frame follows it.
    for (const int type : {SF_FORMAT_WAV, SF_FORMAT_WAVEX, SF_FORMAT_RF64})
        EXPECT_TRUE(decoded(encode({24000, 1, {}}, type | SF_FORMAT_PCM_16), "wav").empty());
    EXPECT_TRUE(decoded(encode({24000, 1, {}}, SF_FORMAT_AIFF | SF_FORMAT_PCM_16), "aiff").empty());
}

TEST(ClipDecoder, TheExtensionIsOneToEightLettersOrDigits) {
    const auto file = encode(sine(24000), wavPcm16);
    EXPECT_TRUE(decodeClip(file, QStringLiteral("wav")).isOk());
    EXPECT_TRUE(decodeClip(file, QStringLiteral("WAV")).isOk());
    for (const auto *extension : {"", ".wav", "wav ", " wav", "wa/v", "../wav", "wavwavwav", "w\0v", "wàv", "wav\n"})
        EXPECT_FALSE(decodeClip(file, QString::fromUtf8(extension)).isOk()) << extension;
    EXPECT_FALSE(decodeClip(file, QStringLiteral("ｗａｖ")).isOk());
    EXPECT_FALSE(decodeClip(file, QStringLiteral("wav") + QChar(0)).isOk());
    EXPECT_FALSE(decodeClip(file, QString()).isOk());
}

TEST(ClipDecoder, AnExtensionThatItDoesNotKnowIsRefused) {
    const auto file = encode(sine(24000), wavPcm16);
    for (const auto *extension : {"txt", "m4a", "raw", "au", "12345678", "w"})
        expectRefused(file, extension);
}

TEST(ClipDecoder, TheDataMustBeWhatTheExtensionSays) {
    const auto formats = test::clipFormats();
    for (const auto &[extension, format] : formats) {
        const auto file = encode(sine(24000), format);
        for (const auto *other : {"mp3", "wav", "aiff", "flac", "ogg", "opus"}) {
            const bool isSame =
                std::any_of(formats.begin(), formats.end(), [&, format = format](const auto &candidate) {
                    return candidate.format == format && named(candidate.extension) == named(other);
                });
            if (!isSame && !(named(extension) == QStringLiteral("aif") && named(other) == QStringLiteral("aiff")))
                expectRefused(file, other);
        }
    }
    expectRefused(encode(sine(24000), SF_FORMAT_AU | SF_FORMAT_PCM_16), "wav");
}

TEST(ClipDecoder, NonsenseIsRefusedInEveryFormat) {
    QByteArray noise(100000, '\0');
    std::uint32_t seed = 5;
    for (auto &byte : noise)
        byte = static_cast<char>((seed = seed * 1664525U + 1013904223U) >> 24);
    for (const auto *extension : {"mp3", "wav", "aiff", "flac", "ogg", "opus"}) {
        expectRefused({}, extension);
        expectRefused("x", extension);
        expectRefused(QByteArray(4096, '\0'), extension);
        expectRefused("<html>404 not found</html>", extension);
        expectRefused(noise, extension);
    }
}

TEST(ClipDecoder, AnMp3IsPlayedWhateverStandsInFrontOfIt) {
    for (const int rate : {8000, 22050, 24000, 44100, 48000}) {
        const auto file = encode(sine(rate), test::clipFormats().front().format);
        const auto clean = decoded(file, "mp3");
        // The last one looks like a frame, but none follows it.
        for (const QByteArray &junk : {QByteArray("x"), QByteArray("<!-- cached -->\r\n"), QByteArray(5000, '\0'),
                                       QByteArray(3000, '\xff'), QByteArray("\xff\xfb\x90\x64 is no frame")}) {
            const auto samples = decoded(junk + file, "mp3");
            // The frame that tells of the others may go by as silence.
            EXPECT_NEAR(static_cast<double>(samples.size()), static_cast<double>(clean.size()), 0.2 * 48000);
            EXPECT_NEAR(sineShare(samples, 440), 1, 0.02) << rate;
            expectRefused(junk + file, "wav");
        }
    }
}

TEST(ClipDecoder, AFileCutOffInTheMiddleGivesWhatItHolds) {
    auto clip = sine(24000, 440, 1, 10);
    std::uint32_t seed = 3;
    for (auto &sample : clip.samples) // Noise, for a sine alone packs so well that one Ogg page would hold it all.
        sample += static_cast<float>((seed = seed * 1664525U + 1013904223U) >> 8) * 0x1p-26F - 0.125F;
    for (const auto &[extension, format] : test::clipFormats()) {
        auto file = encode(clip, format);
        file.truncate(file.size() / 2);
        const auto samples = decoded(file, extension);
        EXPECT_GT(samples.size(), 3U * 48000U) << extension;
        EXPECT_LE(samples.size(), 6U * 48000U) << extension;
        EXPECT_NEAR(sineShare(samples, 440), 1, 0.05) << extension;
    }
}

TEST(ClipDecoder, AFileCutOffAnywhereNeverDoesHarm) {
    for (const auto &[extension, format] : test::clipFormats()) {
        const auto file = encode(sine(24000, 440, 1, 0.2), format);
        for (qsizetype size = 0; size < file.size(); size += size < 200 ? 1 : 97) {
            const auto result = decodeClip(file.left(size), named(extension));
            EXPECT_LE(result ? result->size() : 0, 48000U) << extension << " cut to " << size;
        }
    }
}

TEST(ClipDecoder, TenMinutesOfSpeechFit) {
    // At one frame a second a short file stands for a long one.
    const Clip clip{1, 1, std::vector<float>(600, 0.5F)};
    EXPECT_EQ(decoded(encode(clip, wavPcm16), "wav").size(), 600U * 48000U);
}

TEST(ClipDecoder, RefusesWhatDecodesToMoreThan256MiB) {
    constexpr auto limit = maximumClipBytes / sizeof(float) / 48000; // In seconds, rounded down.
    const Clip clip{1, 1, std::vector<float>(limit + 1, 0.5F)};
    expectRefused(encode(clip, wavPcm16), "wav");
    expectRefused(encode(clip, SF_FORMAT_AIFF | SF_FORMAT_PCM_16), "aiff");
}

TEST(ClipDecoder, AHeaderThatClaimsFarTooManyFramesIsRefusedOrDisbelieved) {
    const auto expectBounded = [](const QByteArray &file, const char *extension) {
        const auto result = decodeClip(file, named(extension));
        EXPECT_LE(result ? result->size() : 0, 50000U) << extension;
    };
    const auto wav = encode(sine(24000), wavPcm16);
    expectBounded(patched(wav, "data", 4, 0xffffffffU), "wav");
    expectBounded(patched(wav, "data", 4, 0x7fffffffU), "wav");
    expectBounded(patched(patched(wav, "data", 4, 0xfffffff0U), "RIFF", 4, 0xffffffffU), "wav");

    // RF64 and FLAC have room for 2^40 and 2^36 frames, AIFF for 2^32.
    const auto rf64 = encode(sine(24000), SF_FORMAT_RF64 | SF_FORMAT_PCM_16);
    expectBounded(patched(patched(rf64, "ds64", 20, 256), "ds64", 28, 256), "wav");
    const auto flac = encode(sine(24000), SF_FORMAT_FLAC | SF_FORMAT_PCM_16);
    expectBounded(patched(flac, "fLaC", 22, 0xffffffffU), "flac");
    const auto aiff = encode(sine(24000), SF_FORMAT_AIFF | SF_FORMAT_PCM_16);
    expectBounded(patched(aiff, "COMM", 10, 0xffffffffU, true), "aiff");
    expectBounded(patched(aiff, "SSND", 4, 0x7fffffffU, true), "aiff");
}

TEST(ClipDecoder, AWavWhoseLengthWasNeverFilledInIsReadToItsEnd) {
    const auto wav = encode(sine(24000), wavPcm16);
    EXPECT_EQ(decoded(patched(patched(wav, "data", 4, 0xffffffffU), "RIFF", 4, 0xffffffffU), "wav").size(), 48000U);
}

TEST(ClipDecoder, AHeaderWithAnImpossibleRateIsRefused) {
    const auto wav = encode(sine(24000), wavPcm16);
    for (const quint32 rate : {0U, 768001U, 0x7fffffffU, 0x80000000U, 0xffffffffU})
        expectRefused(patched(wav, "fmt ", 12, rate), "wav");
}

TEST(ClipDecoder, WhatIsNotANumberIsSilence) {
    for (const int rate : {24000, 48000}) {
        Clip clip = sine(rate);
        for (std::size_t i = 1000; i < 1100; ++i)
            clip.samples[i] = i % 3 == 0   ? std::numeric_limits<float>::quiet_NaN()
                              : i % 3 == 1 ? std::numeric_limits<float>::infinity()
                                           : -std::numeric_limits<float>::infinity();
        const auto samples = decoded(encode(clip, wavFloat), "wav");
        ASSERT_EQ(samples.size(), 48000U);
        EXPECT_TRUE(std::all_of(samples.begin(), samples.end(), [](float sample) { return std::isfinite(sample); }));
        const auto scale = static_cast<std::size_t>(48000 / rate);
        EXPECT_NEAR(samples[1050 * scale], 0, 0.01);
        EXPECT_NEAR(sineShare(samples, 440), 1, 0.01);
    }
    Clip nothing{24000, 1, std::vector<float>(24000, std::numeric_limits<float>::quiet_NaN())};
    EXPECT_THAT(decoded(encode(nothing, wavFloat), "wav"), Each(0.0F));
}

TEST(ClipDecoder, ASampleFarBeyondFullScaleDoesNotDrownTheRest) {
    Clip clip = sine(24000);
    clip.samples[100] = 1e38F;
    clip.samples[101] = -3e38F;
    const auto samples = decoded(encode(clip, wavFloat), "wav");
    EXPECT_TRUE(std::all_of(samples.begin(), samples.end(), [](float sample) { return std::abs(sample) < 1.5F; }));
    EXPECT_NEAR(sineShare(samples, 440), 1, 0.01);
}
