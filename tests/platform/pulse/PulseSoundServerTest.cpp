#include "tests/platform/pulse/PulseSoundServerTest.h"

#include <gmock/gmock.h>

#include <array>

using namespace palomet;
using namespace palomet::test;

TEST_P(SoundServerTest, HearsWhatIsSpokenIntoTheMicrophone) {
    start();
    openCapture();
    EXPECT_EQ(m_probe.takePeak(), 0);
    const auto speaker = m_server->play(u"microphone-feed"_s, tone(2s));
    EXPECT_TRUE(eventually([&] { return m_probe.takePeak() > 0.4F; }));
}

TEST_P(SoundServerTest, HearsTheFirstChannelAloneOfAMicrophoneWhoseChannelsDiffer) {
    const std::array maps{u"front-left,front-right"_s, u"front-right,front-left"_s, u"aux0,aux1"_s};
    for (std::size_t i = 0; i < maps.size(); ++i)
        m_server->addMicrophone(u"stereo%1"_s.arg(i), u"Stereo Microphone"_s, maps[i]);
    start();
    openCapture();
    for (std::size_t i = 0; i < maps.size(); ++i) {
        const auto source = u"stereo%1"_s.arg(i);
        m_server->setDefaultInput(source);
        ASSERT_TRUE(eventually([&] { return m_sound->defaultInput() == source; }));
        openCapture();
        // Another level for each microphone: what the one before it has left behind is not taken for it.
        const float first = 0.1F * static_cast<float>(i + 1);
        const auto speaker = m_server->play(source + u"-feed"_s, twoChannels(20s, first, 0.75F), maps[i]);
        // Mixed they would be more than that, the second one alone 0.75.
        EXPECT_TRUE(eventually([&] { return std::abs(m_probe.takePeak() - first) < 0.001F; }))
            << maps[i].toStdString() << ": " << m_probe.takePeak();
    }
}

TEST_P(SoundServerTest, AnswersAnAbandonedAttemptBeforeTheNextIsMade) {
    start();
    std::vector<int> answers;
    m_sound->openCapture([&](const auto &failure) { answers.push_back(failure ? -1 : 1); });
    m_sound->openCapture([&](const auto &failure) { answers.push_back(failure ? -2 : 2); });
    EXPECT_THAT(answers, testing::ElementsAre(-1));
    EXPECT_TRUE(eventually([&] { return answers.size() == 2; }));
    EXPECT_THAT(answers, testing::ElementsAre(-1, 2));
    m_sound->openCapture([&](const auto &failure) { answers.push_back(failure ? -3 : 3); });
    m_sound->closeCapture();
    EXPECT_THAT(answers, testing::ElementsAre(-1, 2, -3));
    openCapture();
    EXPECT_EQ(answers.size(), 3U);
}

TEST_P(SoundServerTest, LeavesNoStreamOfAnAbandonedAttemptOnTheServer) {
    start();
    for (int i = 0; i < 10; ++i) {
        m_sound->openCapture(opened());
        m_sound->openPlayback();
        m_sound->closePlayback();
    }
    ASSERT_TRUE(eventually([this] { return m_answers == m_attempts; }));
    EXPECT_FALSE(m_failure);
    const auto count = [this](const QString &streams) {
        return m_server->control({u"list"_s, streams}).count(u"application.name = \"Palomet\""_s);
    };
    EXPECT_TRUE(eventually([&] { return count(u"source-outputs"_s) == 1 && count(u"sink-inputs"_s) == 0; }));
    m_sound->closeCapture();
    EXPECT_TRUE(eventually([&] { return count(u"source-outputs"_s) == 0; }));
}

TEST_P(SoundServerTest, GivesNoSampleAfterTheMicrophoneWasClosed) {
    start();
    openPlayback();
    for (int i = 0; i < 10; ++i) {
        openCapture();
        m_sound->closeCapture();
        EXPECT_FALSE(m_sound->isCaptureOpen());
        const auto captured = m_probe.captured();
        letPlay(SoundStreams::sampleRate / 20);
        EXPECT_EQ(m_probe.captured(), captured);
    }
}

TEST_P(SoundServerTest, AsksForNoSampleAfterTheSpeakersWereClosed) {
    start();
    openCapture();
    for (int i = 1; i <= 10; ++i) {
        openPlayback();
        EXPECT_EQ(m_probe.openings(), i);
        m_sound->closePlayback();
        const auto filled = m_probe.filled();
        const auto until = m_probe.captured() + SoundStreams::sampleRate / 20;
        ASSERT_TRUE(eventually([&] { return m_probe.captured() >= until; }));
        EXPECT_EQ(m_probe.filled(), filled);
    }
}

INSTANTIATE_TEST_SUITE_P(Servers, SoundServerTest,
                         testing::Values(PrivateSoundServer::Kind::PulseAudio, PrivateSoundServer::Kind::PipeWire),
                         [](const auto &kind) { return nameOf(kind.param); });
