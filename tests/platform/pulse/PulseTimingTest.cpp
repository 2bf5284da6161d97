#include "tests/platform/pulse/PulseSoundServerTest.h"
#include "tests/support/SoundRecorder.h"

#include <algorithm>

using namespace palomet;
using namespace palomet::test;

// What a server does in time is seen where nothing keeps it from it: these tests run alone, and not where the program
// is slowed down several times.

namespace {

class SoundTimingTest : public SoundServerTest {
protected:
    void SetUp() override {
#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
        GTEST_SKIP() << "what is measured would be the sanitizer";
#endif
        SoundServerTest::SetUp();
    }
};

} // namespace

TEST_P(SoundTimingTest, DeliversFortyEightThousandSamplesASecond) {
    start();
    openCapture();
    ASSERT_TRUE(eventually([&] { return m_probe.captured() > SoundStreams::sampleRate / 2; }));
    // A busy machine holds a server up for a moment, and what comes then is of another time: some three seconds fit.
    double rate = 0;
    for (int attempt = 0; attempt < 5 && std::abs(rate - SoundStreams::sampleRate) > 1000; ++attempt) {
        const auto since = pa_rtclock_now();
        const auto before = m_probe.captured();
        ASSERT_TRUE(eventually([&] { return m_probe.captured() > before + 3 * SoundStreams::sampleRate; }));
        rate = static_cast<double>(m_probe.captured() - before) * 1e6 / static_cast<double>(pa_rtclock_now() - since);
    }
    EXPECT_NEAR(rate, SoundStreams::sampleRate, 1000);
    EXPECT_TRUE(m_probe.isOneThread());
}

TEST_P(SoundTimingTest, PlaysWhatItIsGivenAndTellsWhenItWasHeard) {
    start();
    openCapture();
    openPlayback();
    SoundRecorder recorder(m_server->address(), "speakers.monitor");
    letPlay(SoundStreams::sampleRate);
    constexpr std::size_t toneFrames = 4800;
    // On a busy machine the server serves its streams late now and then: five tones that came whole are enough, and the
    // least disturbed of all counts.
    auto difference = std::chrono::microseconds::max();
    auto delay = difference;
    int whole = 0;
    const auto isShown = [&] { return whole >= 5 && difference < 15ms && delay < 100ms; };
    for (int tone = 0; tone < 60 && !isShown(); ++tone) {
        const auto from = recorder.count();
        m_probe.playTone(toneFrames);
        ASSERT_TRUE(eventually([&] { return m_probe.toneHeardAt() > 0us; }));
        const auto told = recorder.count();
        ASSERT_TRUE(eventually([&] { return recorder.count() > told + 2 * toneFrames; }));
        const auto first = recorder.firstLoud(0.1F, from);
        const auto last = recorder.lastLoud(0.1F, from);
        const bool isThere = first && last;
        whole += isThere && *last - *first + 1 == toneFrames ? 1 : 0;
        if (isThere)
            difference = std::min(difference, std::chrono::abs(m_probe.toneHeardAt() - recorder.timeOf(*last)));
        delay = std::min(delay, m_probe.delay());
    }
    EXPECT_GE(whole, 5) << "a tone that came too late has lost a piece";
    // Two milliseconds late with PulseAudio and five early with PipeWire where nothing disturbs.
    EXPECT_LT(difference, 15ms);
    EXPECT_GT(delay, 0ms);
    EXPECT_LT(delay, 100ms);
    EXPECT_TRUE(m_probe.isOneThread());
    EXPECT_EQ(m_probe.openings(), 1);
}

TEST_P(SoundTimingTest, TheDelayThatItTellsFitsWhatWasPlayedWhateverTheServersPeriod) {
    start();
    // How much later than told the least disturbed of nine tones came back.
    const auto lateness = [this](const QString &source) {
        // The microphone hears the speakers.
        const int echo =
            m_server->loadModule({u"module-remap-source"_s, u"master=speakers.monitor"_s, u"source_name="_s + source});
        m_server->setDefaultInput(source);
        EXPECT_TRUE(eventually([&] { return m_sound->defaultInput() == source; }));
        m_sound->closePlayback();
        openPlayback();
        openCapture();
        letPlay(2 * SoundStreams::sampleRate);
        auto least = std::chrono::microseconds::max();
        for (int tone = 0; tone < 9; ++tone) {
            m_probe.playTone(480);
            EXPECT_TRUE(eventually([this] { return m_probe.toneHeardAt() > 0us; }));
            letPlay(SoundStreams::sampleRate / 5);
            if (const auto told = m_probe.toneLateness())
                least = std::min(least, std::chrono::abs(*told));
        }
        m_server->unloadModule(echo);
        return least;
    };
    int sources = 0;
    for (const int frames : {1024, 480, 2048, 240}) {
        const auto period = m_server->setPeriod(u"speakers"_s, frames);
        // PipeWire tells a stream's position once in a period, and what it tells may be as old as that and a little
        // more. A delay that was taken a write too early is out by two periods.
        const auto limit = std::max<std::chrono::microseconds>(30ms, frames * 1'500'000us / SoundStreams::sampleRate);
        // On a busy machine a server that was late keeps what it has missed in the way from speakers to microphone, for
        // good and untold: another way is made.
        auto least = std::chrono::microseconds::max();
        for (int attempt = 0; attempt < 12 && least >= limit; ++attempt)
            least = lateness(u"echo%1"_s.arg(sources++));
        EXPECT_LT(least, limit) << frames;
    }
}

INSTANTIATE_TEST_SUITE_P(Servers, SoundTimingTest,
                         testing::Values(PrivateSoundServer::Kind::PulseAudio, PrivateSoundServer::Kind::PipeWire),
                         [](const auto &kind) { return nameOf(kind.param); });
