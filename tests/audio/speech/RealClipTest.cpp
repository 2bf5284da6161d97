#include "audio/AudioIO.h"
#include "tests/support/ClipFiles.h"
#include "tests/support/FakeEchoCanceller.h"
#include "tests/support/FakeSoundServer.h"
#include "tests/support/ManualScheduler.h"
#include "tests/support/QueuedWakeup.h"
#include "tests/support/Speakers.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sndfile.h>

using namespace palomet;
using testing::ElementsAre;

// Clips as they come from a backend, decoded by what the program decodes with.

namespace {

struct RealClipTest : testing::Test {
    test::FakeSoundServer server;
    test::Speakers speakers{server};
    test::ManualScheduler scheduler;
    test::EchoCancellerCalls calls;
    QStringList notes;
    std::vector<qint64> played;

    AudioIO io{{.server = server,
                .scheduler = scheduler,
                .makeWakeup = &test::QueuedWakeup::make,
                .makeEchoCanceller =
                    [this] {
                        return Result(std::unique_ptr<EchoCanceller>(std::make_unique<test::FakeEchoCanceller>(calls)));
                    },
                .chimeFile = {}}};

    RealClipTest() {
        io.onNote = [this](const QString &note) { notes.push_back(note); };
        io.onPlayed = [this](ClipId id) { played.push_back(id.number); };
        io.startReporting();
        io.start({});
        notes.clear();
    }
    ~RealClipTest() override {
        io.close();
        io.stopReporting();
    }

    bool speakUntilPlayed(std::size_t count) {
        return speakers.speakUntil([&] { return played.size() == count; });
    }

    static QByteArray wav(const std::vector<float> &samples) {
        return test::encode({.rate = 24000, .channels = 1, .samples = samples}, SF_FORMAT_WAV | SF_FORMAT_FLOAT);
    }
};

} // namespace

TEST_F(RealClipTest, TwoClipsSentBackToBackSoundWithoutAGapForExactlyTheirLength) {
    const auto clip = wav(std::vector<float>(24000, 0.25F));
    io.play({1}, clip, QStringLiteral("wav"));
    io.play({2}, clip, QStringLiteral("wav"));
    // These speakers are faster than any clip: they begin when all three were decoded.
    io.play({3}, clip, QStringLiteral("mp3"));
    ASSERT_TRUE(test::eventually([&] { return !played.empty(); }));
    ASSERT_TRUE(speakUntilPlayed(3));
    EXPECT_THAT(played, ElementsAre(3, 1, 2));
    const auto &given = speakers.given;
    const auto isSound = [](float sample) { return sample != 0; };
    const auto first = std::find_if(given.begin(), given.end(), isSound);
    const auto last = std::find_if(given.rbegin(), given.rend(), isSound).base();
    EXPECT_EQ(std::distance(first, last), 2 * 48000);
    EXPECT_TRUE(std::all_of(first, last, isSound));
}

TEST_F(RealClipTest, EveryKindOfFileIsPlayed) {
    qint64 id = 0;
    for (const auto &format : test::clipFormats())
        io.play({id++}, test::encode(test::sine(48000, 440, 1, 0.2), format.format),
                QString::fromLatin1(format.extension));
    ASSERT_TRUE(speakUntilPlayed(static_cast<std::size_t>(id)));
    EXPECT_TRUE(notes.isEmpty()) << notes.join(u'\n').toStdString();
}

TEST_F(RealClipTest, WhatIsNotWhatItSaysIsNotedAndReported) {
    const auto clip = wav(std::vector<float>(2400, 0.25F));
    io.play({1}, clip, QStringLiteral("../x"));
    io.play({2}, clip, QStringLiteral("mp3"));
    io.play({3}, {}, QStringLiteral("mp3"));
    io.play({4}, QByteArray(30 * 1024 * 1024, '\0'), QStringLiteral("mp3"));
    ASSERT_TRUE(speakUntilPlayed(4));
    EXPECT_THAT(played, ElementsAre(1, 2, 3, 4));
    ASSERT_EQ(notes.size(), 4);
    for (qint64 id = 1; id <= 4; ++id) {
        EXPECT_TRUE(notes[id - 1].startsWith(QStringLiteral("áudio: não consegui tocar a fala %1 (").arg(id)))
            << notes[id - 1].toStdString();
    }
    EXPECT_EQ(notes[0], QStringLiteral("áudio: não consegui tocar a fala 1 (formato inválido)"));
}

TEST_F(RealClipTest, AClipOfZeroFramesIsPlayedAtOnce) {
    io.play({1}, wav({}), QStringLiteral("wav"));
    ASSERT_TRUE(speakUntilPlayed(1));
    EXPECT_TRUE(notes.isEmpty());
}
