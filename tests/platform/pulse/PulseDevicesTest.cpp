#include "tests/platform/pulse/PulseSoundServerTest.h"
#include "tests/support/SoundRecorder.h"

#include <gmock/gmock.h>

#include <algorithm>

using namespace palomet;
using namespace palomet::test;

TEST_P(SoundServerTest, ListsMicrophonesAndNoMonitors) {
    start();
    EXPECT_THAT(m_sound->inputDevices(), testing::ElementsAre(InputDevice{u"microphone"_s, u"Desk Microphone"_s}));
    EXPECT_EQ(m_changes, 0);
}

TEST_P(SoundServerTest, ReportsADefaultThatWasChangedFromOutsideOnce) {
    m_server->addMicrophone(u"headset"_s, u"Headset"_s);
    start();
    EXPECT_EQ(m_sound->inputDevices().size(), 2U);
    openPlayback();
    m_server->setDefaultInput(u"headset"_s);
    EXPECT_TRUE(eventually([&] { return m_changes > 0; }));
    EXPECT_EQ(m_sound->defaultInput(), u"headset"_s);
    letPlay(SoundStreams::sampleRate);
    EXPECT_EQ(m_changes, 1);
}

TEST_P(SoundServerTest, OpensTheDefaultThatItHasSetItselfAndDoesNotReportIt) {
    m_server->addMicrophone(u"headset"_s, u"Headset"_s);
    const auto speaker = m_server->play(u"headset-feed"_s, tone(10s));
    start();
    openPlayback();
    openCapture();
    EXPECT_EQ(m_probe.takePeak(), 0);
    m_sound->setDefaultInput(u"headset"_s);
    EXPECT_EQ(m_sound->defaultInput(), u"headset"_s);
    openCapture();
    EXPECT_TRUE(eventually([&] { return m_probe.takePeak() > 0.4F; }));
    EXPECT_EQ(m_server->defaultInput(), u"headset"_s);
    letPlay(3 * SoundStreams::sampleRate);
    EXPECT_EQ(m_sound->defaultInput(), u"headset"_s);
    EXPECT_EQ(m_changes, 0);
    m_server->setDefaultInput(u"microphone"_s);
    EXPECT_TRUE(eventually([&] { return m_changes == 1; }));
    EXPECT_EQ(m_sound->defaultInput(), u"microphone"_s);
}

TEST_P(SoundServerTest, ReportsItsOwnDefaultWhenSomeoneSetsItBack) {
    m_server->addMicrophone(u"headset"_s, u"Headset"_s);
    start();
    m_sound->setDefaultInput(u"headset"_s);
    ASSERT_TRUE(eventually([&] { return m_server->defaultInput() == u"headset"_s; }));
    openPlayback();
    letPlay(SoundStreams::sampleRate / 2);
    m_server->setDefaultInput(u"microphone"_s);
    EXPECT_TRUE(eventually([&] { return m_changes == 1; }));
    EXPECT_EQ(m_sound->defaultInput(), u"microphone"_s);
}

TEST_P(SoundServerTest, IgnoresADefaultThatIsNotThere) {
    start();
    m_sound->setDefaultInput(u"nothing"_s);
    EXPECT_EQ(m_sound->defaultInput(), u"microphone"_s);
    openCapture();
    EXPECT_EQ(m_sound->defaultInput(), u"microphone"_s);
}

TEST_P(SoundServerTest, ClosesTheMicrophoneThatWasUnpluggedAndOpensTheOtherOne) {
    const auto speaker = m_server->play(u"microphone-feed"_s, tone(20s));
    const int headset = m_server->addMicrophone(u"headset"_s, u"Headset"_s);
    m_server->setDefaultInput(u"headset"_s);
    m_sound = std::make_unique<PulseSoundServer>(m_scheduler, m_server->address());
    m_sound->onConfigurationChange = [this] { ++m_changes; };
    m_sound->start(m_probe);
    openCapture();
    m_server->unloadModule(headset);
    EXPECT_TRUE(eventually([&] { return m_changes > 0 && !m_sound->isCaptureOpen(); }));
    EXPECT_TRUE(eventually([&] { return m_sound->defaultInput() == u"microphone"_s; }));
    openCapture();
    EXPECT_TRUE(eventually([&] { return m_probe.takePeak() > 0.4F; }));
}

TEST_P(SoundServerTest, TakesNoMonitorForAMicrophoneThatWasUnplugged) {
    start();
    const auto player = m_server->play(u"speakers"_s, tone(20s));
    openPlayback();
    openCapture();
    m_server->unloadModule(m_microphone);
    EXPECT_TRUE(eventually([&] { return m_changes > 0 && !m_sound->isCaptureOpen(); }));
    EXPECT_THAT(m_sound->inputDevices(), testing::IsEmpty());
    EXPECT_EQ(m_sound->defaultInput(), std::nullopt);
    EXPECT_EQ(failToOpenCapture(), u"sem microfone"_s);
    letPlay(SoundStreams::sampleRate / 2);
    EXPECT_EQ(m_probe.takePeak(), 0);

    const int changes = m_changes;
    m_server->addMicrophone(u"second"_s, u"Second"_s);
    EXPECT_TRUE(eventually([&] { return m_changes > changes && m_sound->defaultInput() == u"second"_s; }));
    openCapture();
}

TEST_P(SoundServerTest, TakesNoMonitorThatWasMadeTheDefault) {
    start();
    openPlayback();
    m_server->setDefaultInput(u"speakers.monitor"_s);
    EXPECT_TRUE(eventually([&] { return m_changes == 1; }));
    EXPECT_EQ(m_sound->defaultInput(), std::nullopt);
    EXPECT_EQ(failToOpenCapture(), u"sem microfone"_s);
    EXPECT_EQ(m_probe.captured(), 0);
}

TEST_P(SoundServerTest, TellsItsDevicesOnceAndBeforeTheMicrophoneThatWasAskedForIsOpen) {
    m_sound = std::make_unique<PulseSoundServer>(m_scheduler, m_server->address());
    std::vector<QString> told;
    m_sound->onDevicesTold = [&] {
        EXPECT_EQ(m_answers, 0);
        told.push_back(m_sound->defaultInput().value_or(QString()));
    };
    m_sound->start(m_probe);
    openCapture();
    EXPECT_THAT(told, testing::ElementsAre(u"microphone"_s));
}

TEST_P(SoundServerTest, PlaysAgainWhenSpeakersAreBack) {
    start();
    openPlayback();
    const int openings = m_probe.openings();
    m_server->control({u"unload-module"_s, u"module-null-sink"_s});
    m_server->addSpeakers(u"others"_s);
    SoundRecorder recorder(m_server->address(), "others.monitor");
    EXPECT_TRUE(eventually([&] {
        if (recorder.firstLoud(0.1F))
            return true;
        m_probe.playTone(48000);
        return false;
    }));
    // PulseAudio ends the stream with the last speakers, PipeWire keeps it.
    EXPECT_EQ(m_probe.openings(), GetParam() == Kind::PulseAudio ? openings + 1 : openings);
    EXPECT_TRUE(eventually([this] { return m_changes > 0; }));
}

TEST_P(SoundServerTest, ReportsThatSpeechComesOutOfOtherSpeakers) {
    m_server->addSpeakers(u"others"_s);
    start();
    openPlayback();
    EXPECT_EQ(m_changes, 0);
    for (const auto &speakers : {u"others"_s, u"speakers"_s}) {
        m_changes = 0;
        m_server->control({u"set-default-sink"_s, speakers});
        EXPECT_TRUE(eventually([this] { return m_changes == 1; })) << m_changes;
    }
}

TEST_P(SoundServerTest, NamesItselfAndTakesNoRoleThatWouldQuietenOthers) {
    start();
    openCapture();
    openPlayback();
    for (const auto &streams : {u"sink-inputs"_s, u"source-outputs"_s}) {
        const auto told = m_server->control({u"list"_s, streams}).split(u"\n\n"_s);
        const auto ours = std::find_if(told.begin(), told.end(), [](const QString &stream) {
            return stream.contains(u"application.name = \"Palomet\""_s);
        });
        ASSERT_NE(ours, told.end());
        EXPECT_TRUE(ours->contains(u"application.icon_name = \"palomet\""_s)) << ours->toStdString();
        EXPECT_FALSE(ours->contains(u"media.role"_s)) << ours->toStdString();
    }
}

TEST_P(SoundServerTest, CannotBePutOnAMonitorByAMixer) {
    start();
    const auto player = m_server->play(u"speakers"_s, tone(20s));
    openPlayback();
    openCapture();
    // The last stream is the one that was opened last.
    const auto stream =
        m_server->control({u"list"_s, u"short"_s, u"source-outputs"_s}).section(u'\n', -1).section(u'\t', 0, 0);
    EXPECT_EQ(m_server->tryToControl({u"move-source-output"_s, stream, u"speakers.monitor"_s}), std::nullopt);
    const auto captured = m_probe.captured();
    letPlay(SoundStreams::sampleRate / 2);
    EXPECT_GT(m_probe.captured(), captured);
    EXPECT_EQ(m_probe.takePeak(), 0);
    EXPECT_TRUE(m_sound->isCaptureOpen());
}
