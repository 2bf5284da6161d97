#include "tests/palomet/FollowingTest.h"
#include "tests/support/ClipFiles.h"
#include "tests/support/Control.h"
#include "tests/support/PrivateSoundServer.h"
#include "tests/support/SoundRecorder.h"

#include <sndfile.h>

#include <algorithm>
#include <chrono>

using namespace palomet;
using namespace std::chrono_literals;
using namespace Qt::StringLiterals;
using test::eventually;

namespace {

using Clock = std::chrono::steady_clock;

/// The program between a real sound server and a backend that writes down what comes, and when.
class TimingTest : public test::FollowingTest {
protected:
    TimingTest() {
        startSound();
        setVariable("PULSE_SERVER", QString::fromStdString(sound.address()));
        setVariable("PULSE_COOKIE", sound.environment().value(u"PULSE_COOKIE"_s));
    }

    void startSound() {
        sound.start();
        sound.addSpeakers(u"speakers"_s);
        sound.addMicrophone(u"microphone"_s, u"Desk microphone"_s);
        sound.control({u"set-default-sink"_s, u"speakers"_s});
        sound.setDefaultInput(u"microphone"_s);
    }

    bool isHeard(std::size_t chunks = 1) {
        return eventually([&] { return backend.audio.audio().size() >= chunks; });
    }

    void play(int id, double seconds, float level) {
        auto clip = test::sine(48000, 440, 1, seconds);
        for (auto &sample : clip.samples)
            sample *= 2 * level; // It comes at half of full scale.
        const auto file = test::encode(clip, SF_FORMAT_WAV | SF_FORMAT_PCM_16);
        backend.audio.send(u"{\"type\":\"play\",\"id\":%1,\"format\":\"wav\",\"data\":\"%2\"}"_s.arg(id).arg(
            QString::fromLatin1(file.toBase64())));
    }

    /// When a clip was reported; never, if it was not.
    Clock::time_point reported(int id) const {
        for (const auto &message : backend.audio.received) {
            if (message.type() == u"played"_s && message.event[u"id"_s] == id)
                return message.arrived;
        }
        return Clock::time_point::max();
    }

    test::PrivateSoundServer sound{test::PrivateSoundServer::Kind::PulseAudio};
};

} // namespace

TEST_F(TimingTest, TheBackendSeesHelloFirstAndThenSixteenThousandSamplesASecond) {
    startAndFollow();
    ASSERT_TRUE(isHeard(50));
    const auto &received = backend.audio.received;
    EXPECT_EQ(received[0].event, (QJsonObject{{u"type"_s, u"hello"_s}, {u"device"_s, u"Desk microphone"_s}}));
    const auto since = received.size();
    // A busy machine delays what it delivers: the longer it is looked at, the less that counts.
    const auto isRightRate = [&] {
        qsizetype bytes = 0;
        for (auto message = received.begin() + static_cast<std::ptrdiff_t>(since); message != received.end(); ++message)
            bytes += message->audio.size();
        const std::chrono::duration<double> time = received.back().arrived - received[since - 1].arrived;
        return time > 5s && std::abs(static_cast<double>(bytes) / 2 / time.count() - 16'000) < 160;
    };
    EXPECT_TRUE(eventually(isRightRate, 60s));
    for (const auto &chunk : backend.audio.audio())
        EXPECT_TRUE(chunk.size() == 682 || chunk.size() == 684) << chunk.size();
    EXPECT_EQ(backend.audio.connections, 1);
    EXPECT_EQ(backend.audio.path, u"/audio"_s);
}

TEST_F(TimingTest, TwentyEventsCostOneFetchATenthOfASecondLater) {
    startAndFollow();
    ASSERT_TRUE(eventually([this] { return command({u"--status"_s}).output.startsWith("waiting"); }));
    const int before = backend.http.count("/state");
    // The second round shows that the first has cost nothing more.
    for (int round = 1; round <= 2; ++round) {
        const test::SleepingControl control(1s);
        const auto begin = Clock::now();
        for (int i = 0; i < 20; ++i)
            backend.tell("turn");
        ASSERT_TRUE(eventually([&] { return backend.http.count("/state") > before + round - 1; }));
        EXPECT_GE(Clock::now() - begin, 99ms);
        EXPECT_TRUE(control.isAsleep());
        EXPECT_EQ(backend.http.count("/state"), before + round);
    }
}

TEST_F(TimingTest, ClipsAreReportedInOrderWhenTheyWereHeard) {
    startAndFollow();
    ASSERT_TRUE(isHeard());
    test::SoundRecorder recorder(sound.address(), "speakers.monitor");
    play(1, 0.7, 0.8F);
    play(2, 0.5, 0.3F);
    play(3, 0.5, 0.1F);
    ASSERT_TRUE(eventually([this] { return backend.audio.played().size() == 3; }));
    EXPECT_EQ(backend.audio.played(), (std::vector<qint64>{1, 2, 3}));
    // The newest samples are at most a piece old.
    const auto count = recorder.count();
    ASSERT_TRUE(eventually([&] { return recorder.count() > count + 4'800; }));
    const auto first = recorder.firstLoud(0.05F);
    const auto endOfFirst = recorder.lastLoud(0.5F);
    const auto endOfSecond = recorder.lastLoud(0.2F);
    const auto endOfThird = recorder.lastLoud(0.05F);
    ASSERT_TRUE(first && endOfFirst && endOfSecond && endOfThird);
    // The server leaves out what a busy machine gives it too late, a piece of 20 ms at a time.
    constexpr double pieces = 0.1 * 48000;
    EXPECT_NEAR(static_cast<double>(*endOfFirst - *first), 0.7 * 48000, pieces);
    EXPECT_NEAR(static_cast<double>(*endOfSecond - *endOfFirst), 0.5 * 48000, pieces);
    EXPECT_NEAR(static_cast<double>(*endOfThird - *endOfSecond), 0.5 * 48000, pieces);
    const auto heard = [&](std::size_t sample) { return Clock::time_point(recorder.timeOf(sample)); };
    constexpr auto precision = 15ms;
    EXPECT_GT(reported(1), heard(*endOfFirst) - precision);
    EXPECT_LT(reported(1), heard(*endOfSecond));
    EXPECT_GT(reported(2), heard(*endOfSecond) - precision);
    EXPECT_LT(reported(2), heard(*endOfThird));
    EXPECT_GT(reported(3), heard(*endOfThird) - precision);
}

TEST_F(TimingTest, StopReportsEachPendingClipOnce) {
    startAndFollow();
    ASSERT_TRUE(isHeard());
    test::SoundRecorder recorder(sound.address(), "speakers.monitor");
    for (const int id : {7, 3, 5})
        play(id, 10, 0.5F);
    ASSERT_TRUE(eventually([&] { return recorder.firstLoud(0.1F).has_value(); }));
    backend.audio.send(u"{\"type\":\"stop\"}"_s);
    ASSERT_TRUE(eventually([this] { return backend.audio.played().size() == 3; }));
    // A clip behind them shows that nothing more comes of the others.
    play(9, 0.1, 0.5F);
    ASSERT_TRUE(eventually([this] { return reported(9) != Clock::time_point::max(); }));
    auto ids = backend.audio.played();
    EXPECT_EQ(ids.back(), 9);
    std::ranges::sort(ids);
    EXPECT_EQ(ids, (std::vector<qint64>{3, 5, 7, 9}));
}

TEST_F(TimingTest, ADroppedLinkIsBackAfterASecond) {
    startAndFollow();
    ASSERT_TRUE(isHeard());
    const auto before = backend.audio.received.size();
    const test::SleepingControl control(2s);
    const auto begin = Clock::now();
    backend.audio.drop();
    ASSERT_TRUE(eventually([this] { return backend.audio.connections == 2; }));
    EXPECT_GE(Clock::now() - begin, 990ms);
    EXPECT_TRUE(control.isAsleep());
    ASSERT_TRUE(eventually([&] { return backend.audio.received.size() > before + 1; }));
    EXPECT_EQ(backend.audio.received[before].type(), u"hello"_s);
}

TEST_F(TimingTest, AfterASuspendTheMicrophoneTheStreamAndTheLinkAreBack) {
    startAndFollow();
    ASSERT_TRUE(isHeard());
    // Nothing is said to anybody: what was open is gone, and after a while the other ends are there again.
    sound.kill();
    backend.audio.drop();
    backend.http.goDown();
    ASSERT_TRUE(eventually([this] { return command({u"--status"_s}).output.startsWith("offline"); }));
    const auto before = backend.audio.received.size();
    const int streams = backend.http.count("/events");
    backend.http.comeUp();
    startSound();
    EXPECT_TRUE(eventually([this] { return command({u"--status"_s}).output.startsWith("waiting"); }));
    EXPECT_TRUE(eventually([&] { return backend.http.count("/events") > streams; }));
    EXPECT_TRUE(eventually(
        [&] { return backend.audio.received.size() > before + 1 && !backend.audio.received.back().audio.isNull(); }));
    EXPECT_EQ(backend.audio.received[before].type(), u"hello"_s);
    play(1, 0.1, 0.5F);
    EXPECT_TRUE(eventually([this] { return reported(1) != Clock::time_point::max(); }));
    EXPECT_EQ(test::processesNamed("pronto", log()).size(), 1) << "the backend's process was never ended";
}

TEST_F(TimingTest, AKilledBackendIsBackAfterTwoSeconds) {
    startAndFollow();
    const auto process = static_cast<pid_t>(awaitBackend());
    const test::SleepingControl control(3s);
    const auto begin = Clock::now();
    kill(process, SIGKILL);
    ASSERT_TRUE(eventually([this] { return test::processesNamed("pronto", log()).size() == 2; }));
    EXPECT_GE(Clock::now() - begin, 1990ms);
    EXPECT_TRUE(control.isAsleep());
    EXPECT_EQ(log().count(" iniciando ---\n"), 2);
}

TEST_F(TimingTest, NonsenseOnTheLinkHarmsNobody) {
    startAndFollow();
    ASSERT_TRUE(isHeard());
    const auto clip =
        QString::fromLatin1(test::encode(test::sine(24000, 440, 1, 0.1), SF_FORMAT_WAV | SF_FORMAT_PCM_16).toBase64());
    const auto playing = [&](const QString &id, const QString &format = u"wav"_s) {
        return u"{\"type\":\"play\",\"id\":%1,\"format\":\"%2\",\"data\":\"%3\"}"_s.arg(id, format, clip);
    };
    const QString manyLetters(40 * 1024 * 1024, u'A');
    for (const auto &message :
         {u"no json"_s, u"[]"_s, u"{\"type\":7}"_s, u"{\"type\":\"dance\"}"_s, playing(u"18446744073709551616"_s),
          playing(u"1.5"_s), u"{\"type\":\"play\",\"id\":1}"_s,
          u"{\"type\":\"play\",\"id\":2,\"data\":\"%1!\"}"_s.arg(manyLetters)})
        backend.audio.send(message);
    backend.audio.sendBinary(QByteArray(100'000, '\1'));
    // Not nonsense in form, but nothing that can be played.
    backend.audio.send(u"{\"type\":\"play\",\"id\":3,\"data\":\"%1\"}"_s.arg(manyLetters));
    backend.audio.send(playing(u"4"_s, u"../x"_s));
    backend.audio.send(playing(u"5"_s));
    EXPECT_EQ(command({u"--status"_s}).exitCode, 0);
    // Eighty megabytes take a busy machine a while.
    ASSERT_TRUE(eventually([&] { return reported(5) != Clock::time_point::max(); }, 90s));
    // Each once: what fails at once, the other when it was heard.
    EXPECT_EQ(backend.audio.played(), (std::vector<qint64>{3, 4, 5}));
    EXPECT_EQ(log().count("áudio: não consegui tocar a fala "), 2);
    EXPECT_EQ(backend.audio.connections, 1);
}
