#include "tests/platform/pulse/PulseSoundServerTest.h"

#include <algorithm>
#include <cmath>

using namespace palomet;
using namespace palomet::test;

namespace {

/// What half of a volume control's way is, as a factor of the amplitude: it goes by the third power.
constexpr float half = 0.125F;

} // namespace

class VolumeTest : public SoundServerTest {
protected:
    void SetUp() override {
        SoundServerTest::SetUp();
        if (IsSkipped())
            return;
        start();
        openPlayback();
        openCapture();
        letPlay(SoundStreams::sampleRate / 2);
    }

    bool becomes(float loudness) {
        return eventually([&] { return std::abs(m_probe.loudness() - loudness) < 0.02F * loudness; });
    }

    /// The number of one of the server's streams of a kind: the program's, or another's.
    QString stream(const QString &kind, bool isOwn) const {
        const auto told = m_server->control({u"list"_s, kind}).split(u"\n\n"_s);
        const auto found = std::find_if(told.begin(), told.end(), [&](const QString &text) {
            return text.contains(u"application.name = \"Palomet\""_s) == isOwn && text.contains(u'#');
        });
        return found == told.end() ? QString() : found->section(u'#', 1).section(u'\n', 0, 0);
    }
    QString ownStream(const QString &kind) const { return stream(kind, true); }
};

TEST_P(VolumeTest, TellsByHowMuchTheSpeakersOrItsOwnSpeechWereTurned) {
    m_server->control({u"set-sink-volume"_s, u"speakers"_s, u"50%"_s});
    EXPECT_TRUE(becomes(half)) << m_probe.loudness();
    m_server->control({u"set-sink-input-volume"_s, ownStream(u"sink-inputs"_s), u"50%"_s});
    EXPECT_TRUE(becomes(half * half)) << m_probe.loudness();
    m_server->control({u"set-sink-volume"_s, u"speakers"_s, u"100%"_s});
    EXPECT_TRUE(becomes(half)) << m_probe.loudness();
    EXPECT_TRUE(m_probe.isOneThread());
}

TEST_P(VolumeTest, TellsByHowMuchTheMicrophoneOrWhatItRecordsOfThatWereTurned) {
    m_server->control({u"set-source-volume"_s, u"microphone"_s, u"50%"_s});
    EXPECT_TRUE(becomes(half)) << m_probe.loudness();
    m_server->control({u"set-source-output-volume"_s, ownStream(u"source-outputs"_s), u"50%"_s});
    EXPECT_TRUE(becomes(half * half)) << m_probe.loudness();
}

TEST_P(VolumeTest, IsAsLoudAsBeforeAfterSpeakersWereMutedAndTellsWhatWasTurnedMeanwhile) {
    m_server->control({u"set-sink-mute"_s, u"speakers"_s, u"1"_s});
    m_server->control({u"set-sink-mute"_s, u"speakers"_s, u"0"_s});
    m_server->control({u"set-sink-mute"_s, u"speakers"_s, u"1"_s});
    m_server->control({u"set-sink-volume"_s, u"speakers"_s, u"50%"_s});
    letPlay(SoundStreams::sampleRate / 2);
    EXPECT_EQ(m_probe.loudness(), 1);
    m_server->control({u"set-sink-mute"_s, u"speakers"_s, u"0"_s});
    EXPECT_TRUE(becomes(half)) << m_probe.loudness();
}

TEST_P(VolumeTest, DoesNotCareForOtherDevicesOrStreams) {
    m_server->addSpeakers(u"others"_s);
    const auto player = m_server->play(u"speakers"_s, tone(10s));
    ASSERT_TRUE(eventually([&] { return !stream(u"sink-inputs"_s, false).isEmpty(); }));
    m_server->control({u"set-sink-input-volume"_s, stream(u"sink-inputs"_s, false), u"30%"_s});
    m_server->control({u"set-sink-volume"_s, u"others"_s, u"30%"_s});
    m_server->control({u"set-sink-volume"_s, u"speakers"_s, u"50%"_s});
    EXPECT_TRUE(becomes(half)) << m_probe.loudness();
}

INSTANTIATE_TEST_SUITE_P(Servers, VolumeTest,
                         testing::Values(PrivateSoundServer::Kind::PulseAudio, PrivateSoundServer::Kind::PipeWire),
                         [](const auto &about) { return nameOf(about.param); });
