#pragma once

#include "base/QtScheduler.h"
#include "platform/pulse/PulseSoundServer.h"
#include "tests/platform/pulse/SoundProbe.h"
#include "tests/support/Eventually.h"
#include "tests/support/ManualScheduler.h"
#include "tests/support/PrivateSoundServer.h"

#include <gtest/gtest.h>

#include <memory>
#include <optional>
#include <ostream>
#include <string>
#include <vector>

namespace palomet::test {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

inline std::string nameOf(PrivateSoundServer::Kind kind) {
    return kind == PrivateSoundServer::Kind::PulseAudio ? "PulseAudio" : "PipeWire";
}

inline void PrintTo(PrivateSoundServer::Kind kind, std::ostream *stream) {
    *stream << nameOf(kind);
}

/// The program against a server of its own, which has speakers and one microphone.
class SoundServerTest : public testing::TestWithParam<PrivateSoundServer::Kind> {
protected:
    using Kind = PrivateSoundServer::Kind;

    void SetUp() override {
        if (!PrivateSoundServer::isInstalled(GetParam()))
            GTEST_SKIP() << "not installed";
        m_server = std::make_unique<PrivateSoundServer>(GetParam());
        m_server->start();
        addDevices();
    }

    void addDevices() {
        m_speakers = m_server->addSpeakers(u"speakers"_s);
        m_microphone = m_server->addMicrophone(u"microphone"_s, u"Desk Microphone"_s);
        m_server->setDefaultInput(u"microphone"_s);
    }

    /// Connects and knows the devices.
    void start(Scheduler &scheduler) {
        m_sound = std::make_unique<PulseSoundServer>(scheduler, m_server->address());
        m_sound->onConfigurationChange = [this] { ++m_changes; };
        m_sound->onServerLost = [this] { ++m_losses; };
        m_sound->onAccessDenied = [this] { ++m_refusals; };
        m_sound->start(m_probe);
        ASSERT_TRUE(eventually([this] { return m_sound->defaultInput() == u"microphone"_s; }));
    }
    void start() { start(m_scheduler); }

    SoundServer::Done opened() {
        ++m_attempts;
        m_failure.reset();
        return [this](auto failure) {
            ++m_answers;
            m_failure = failure;
        };
    }

    /// Opens the microphone, which must work. Before a test waits for news it opens this or the playback: on a busy
    /// machine PipeWire (0.3.65) keeps some back until the program says something, as it does wherever a stream is.
    void openCapture() {
        m_sound->openCapture(opened());
        ASSERT_TRUE(eventually([this] { return m_answers == m_attempts; }));
        ASSERT_FALSE(m_failure.has_value()) << m_failure->reason.toStdString();
        ASSERT_TRUE(m_sound->isCaptureOpen());
        const auto before = m_probe.captured();
        ASSERT_TRUE(eventually([&] { return m_probe.captured() > before; }));
    }

    /// The reason why the microphone does not open.
    QString failToOpenCapture(ManualScheduler &scheduler) {
        m_sound->openCapture(opened());
        scheduler.advance(0ms);
        return m_failure ? m_failure->reason : QString();
    }
    QString failToOpenCapture() {
        m_sound->openCapture(opened());
        EXPECT_TRUE(eventually([this] { return m_answers == m_attempts; }));
        EXPECT_FALSE(m_sound->isCaptureOpen());
        return m_failure ? m_failure->reason : QString();
    }

    void openPlayback() {
        const int openings = m_probe.openings();
        m_sound->openPlayback();
        ASSERT_TRUE(eventually([&] { return m_probe.openings() > openings && m_probe.heard() > 0; }));
    }

    /// Time by the speakers, which go on whatever happens to the microphone.
    void letPlay(std::int64_t frames) {
        const auto until = m_probe.heard() + frames;
        ASSERT_TRUE(eventually([&] { return m_probe.heard() >= until; }));
    }

    static std::vector<float> tone(std::chrono::seconds duration) {
        return std::vector<float>(static_cast<std::size_t>(duration.count()) * SoundStreams::sampleRate, 0.5F);
    }

    static std::vector<float> twoChannels(std::chrono::seconds duration, float first, float second) {
        std::vector<float> samples(2 * static_cast<std::size_t>(duration.count()) * SoundStreams::sampleRate, first);
        for (std::size_t i = 1; i < samples.size(); i += 2)
            samples[i] = second;
        return samples;
    }

    std::unique_ptr<PrivateSoundServer> m_server;
    int m_speakers = 0, m_microphone = 0;
    QtScheduler m_scheduler;
    SoundProbe m_probe;
    int m_changes = 0, m_losses = 0, m_refusals = 0, m_attempts = 0, m_answers = 0;
    std::optional<Failure> m_failure;
    ManualScheduler m_manualScheduler; ///< Outlives the server that takes it.
    std::unique_ptr<PulseSoundServer> m_sound;
};

} // namespace palomet::test
