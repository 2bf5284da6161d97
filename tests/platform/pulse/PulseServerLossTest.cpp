#include "tests/platform/pulse/PulseSoundServerTest.h"

#include <gmock/gmock.h>

using namespace palomet;
using namespace palomet::test;

TEST_P(SoundServerTest, SaysAtOnceThatThereIsNoServer) {
    m_server->kill();
    ManualScheduler scheduler;
    PulseSoundServer sound(scheduler, m_server->address());
    sound.start(m_probe);
    // The first attempt to connect ends by itself, what comes after it needs no time at all.
    std::optional<QString> reason;
    sound.openCapture([&](const auto &failure) { reason = failure->reason; });
    EXPECT_FALSE(reason);
    ASSERT_TRUE(eventually([&] { return reason.has_value(); }));
    EXPECT_EQ(*reason, u"sem servidor de som"_s);
    reason.reset();
    sound.openCapture([&](const auto &failure) { reason = failure->reason; });
    scheduler.advance(0ms);
    EXPECT_EQ(reason, u"sem servidor de som"_s);
    EXPECT_THAT(sound.inputDevices(), testing::IsEmpty());
    EXPECT_EQ(sound.defaultInput(), std::nullopt);
}

TEST_P(SoundServerTest, OpensWhatWasAskedForBeforeTheServerAnswered) {
    m_sound = std::make_unique<PulseSoundServer>(m_scheduler, m_server->address());
    m_sound->onConfigurationChange = [this] { ++m_changes; };
    m_sound->start(m_probe);
    m_sound->openPlayback();
    openCapture();
    EXPECT_TRUE(eventually([&] { return m_probe.heard() > 0; }));
    EXPECT_EQ(m_changes, 0);
}

TEST_P(SoundServerTest, ComesBackTenTimesAfterTheServerWasKilled) {
    auto &scheduler = m_manualScheduler;
    start(scheduler);
    // The two seconds between attempts need not be waited for.
    const auto hurriedly = [&](const auto &holds) {
        return eventually([&] {
            scheduler.advance(50ms);
            return holds();
        });
    };
    for (int i = 1; i <= 10; ++i) {
        openCapture();
        openPlayback();
        const int changes = m_changes;
        m_server->kill();
        ASSERT_TRUE(hurriedly([&] { return m_losses == i; }));
        EXPECT_EQ(m_changes, changes);
        EXPECT_FALSE(m_sound->isCaptureOpen());
        EXPECT_THAT(m_sound->inputDevices(), testing::IsEmpty());
        EXPECT_EQ(failToOpenCapture(scheduler), u"sem servidor de som"_s);
        const auto captured = m_probe.captured();
        const auto filled = m_probe.filled();

        m_server->start();
        addDevices();
        ASSERT_TRUE(hurriedly([&] { return m_changes > changes && m_sound->defaultInput() == u"microphone"_s; }));
        EXPECT_EQ(m_losses, i);
        EXPECT_FALSE(m_sound->isCaptureOpen());
        EXPECT_EQ(m_probe.captured(), captured);
        EXPECT_EQ(m_probe.filled(), filled);
    }
    openCapture();
    EXPECT_TRUE(m_probe.isOneThread());
}

TEST_P(SoundServerTest, NeitherHangsWithTheServerNorWaitsForItForEver) {
    auto &scheduler = m_manualScheduler;
    start(scheduler);
    openPlayback();
    m_server->freeze();
    m_sound->openCapture(opened());
    m_sound->setDefaultInput(u"microphone"_s);
    m_sound->closePlayback();
    m_sound->openPlayback();
    scheduler.advance(5s);
    ASSERT_EQ(m_answers, m_attempts);
    ASSERT_TRUE(m_failure);
    EXPECT_EQ(m_failure->reason, u"o servidor de som não respondeu"_s);
    EXPECT_FALSE(m_sound->isCaptureOpen());
    m_server->thaw();
    openCapture();
}

TEST_P(SoundServerTest, EndsWhileTheServerHangs) {
    start();
    openPlayback();
    openCapture();
    m_server->freeze();
    m_sound->setDefaultInput(u"microphone"_s);
    m_sound.reset();
    EXPECT_EQ(m_losses, 0);
}

TEST_P(SoundServerTest, ConnectsToAServerThatHungAndGoesOn) {
    m_server->freeze();
    auto &scheduler = m_manualScheduler;
    m_sound = std::make_unique<PulseSoundServer>(scheduler, m_server->address());
    m_sound->start(m_probe);
    m_sound->openCapture(opened());
    scheduler.advance(5s);
    ASSERT_TRUE(m_failure);
    EXPECT_EQ(m_failure->reason, u"o servidor de som não respondeu"_s);
    m_server->thaw();
    EXPECT_TRUE(eventually([this] { return m_sound->defaultInput() == u"microphone"_s; }));
    openCapture();
}

TEST_P(SoundServerTest, BringsItsLastWishToTheServerWhenItEnds) {
    m_server->addMicrophone(u"headset"_s, u"Headset"_s);
    start();
    m_sound->setDefaultInput(u"headset"_s);
    m_sound.reset();
    EXPECT_TRUE(eventually([&] { return m_server->defaultInput() == u"headset"_s; }));
}

TEST_P(SoundServerTest, SaysThatAccessWasRefused) {
    if (GetParam() != Kind::PulseAudio)
        GTEST_SKIP() << "pipewire-pulse lets everybody in";
    m_sound = std::make_unique<PulseSoundServer>(m_scheduler, m_server->addressForStrangers());
    m_sound->onAccessDenied = [this] { ++m_refusals; };
    m_sound->onServerLost = [this] { ++m_losses; };
    m_sound->start(m_probe);
    EXPECT_EQ(failToOpenCapture(), u"acesso ao microfone recusado"_s);
    EXPECT_EQ(m_refusals, 1);
    EXPECT_EQ(m_losses, 0);
}

TEST_P(SoundServerTest, SaysThatAccessWasGrantedAfterItHadBeenRefused) {
    if (GetParam() != Kind::PulseAudio)
        GTEST_SKIP() << "pipewire-pulse lets everybody in";
    int grants = 0;
    m_sound = std::make_unique<PulseSoundServer>(m_scheduler, m_server->addressForStrangers());
    m_sound->onAccessGranted = [&] { ++grants; };
    m_sound->start(m_probe);
    EXPECT_EQ(failToOpenCapture(), u"acesso ao microfone recusado"_s);
    m_server->letStrangersIn();
    ASSERT_TRUE(eventually([this] { return m_sound->defaultInput() == u"microphone"_s; }));
    EXPECT_EQ(grants, 0);
    openCapture();
    EXPECT_EQ(grants, 1);
    openCapture();
    EXPECT_EQ(grants, 1);
}
