#include "tests/palomet/FollowingTest.h"
#include "tests/palomet/StallProbe.h"
#include "tests/support/ClipFiles.h"
#include "tests/support/Control.h"
#include "tests/support/PrivateSoundServer.h"

#include <QDBusReply>

#include <sndfile.h>

#include <random>

using namespace palomet;
using namespace std::chrono_literals;
using namespace Qt::StringLiterals;
using test::eventually;

namespace {

constexpr qsizetype hundredMegabytes = 100'000'000;

/// One way to misbehave: `begin` sets it going, `act` is called every millisecond.
struct Misbehaviour {
    const char *name;
    void (*begin)(test::BackendAtItsPort &) = [](test::BackendAtItsPort &) {};
    void (*act)(test::BackendAtItsPort &) = [](test::BackendAtItsPort &) {};
};

void PrintTo(const Misbehaviour &misbehaviour, std::ostream *stream) {
    *stream << misbehaviour.name;
}

const QString &clip() {
    static const auto message = [] {
        const auto file = test::encode(test::sine(24000, 440, 1, 0.25), SF_FORMAT_WAV | SF_FORMAT_PCM_16);
        return u"{\"type\":\"play\",\"id\":1,\"format\":\"wav\",\"data\":\"%1\"}"_s.arg(
            QString::fromLatin1(file.toBase64()));
    }();
    return message;
}

void sendClip(test::BackendAtItsPort &backend) {
    if (backend.audio.isConnected())
        backend.audio.send(clip());
}

void neverAnswer(test::BackendAtItsPort &backend) {
    for (const auto *target : {"/state", "/history", "/options", "/events", "/listen"})
        backend.http.hang(target);
    backend.http.onUpgrade([](QTcpSocket *) {});
    backend.http.dropConnections();
}

/// Keeps the connections, and writes a byte to each.
void answerInBytes(test::BackendAtItsPort &backend) {
    for (const auto *target : {"/state", "/history", "/options"})
        backend.http.hang(target);
    backend.tell("turn");
}
void writeAByte(test::BackendAtItsPort &backend) {
    static const QByteArray answer("HTTP/1.1 200 OK\r\ncontent-length: 100000\r\n\r\n" + QByteArray(100'000, ' '));
    static qsizetype next = 0;
    const auto byte = answer.sliced(next++ % answer.size(), 1);
    for (const auto *target : {"/state", "/history", "/options"}) {
        if (const auto exchange = backend.http.last(target))
            exchange->write(byte);
    }
}

void tellTenEvents(test::BackendAtItsPort &backend) {
    static int count = 0;
    QByteArray events;
    for (int event = 0; event < 8; ++event)
        events += "event: level\ndata: 0." + QByteArray::number(++count % 1000) + "\n\n";
    backend.http.last("/events")->write(events + "event: spoken\ndata: \"uma frase\"\n\nevent: turnEnd\ndata: {}\n\n");
}

void answerAtLength(test::BackendAtItsPort &backend) {
    static const QByteArray text = "{\"state\":\"" + QByteArray(hundredMegabytes, 'x') + "\"}";
    for (const auto *target : {"/state", "/history", "/options"})
        backend.http.serve(target, text);
    backend.tell("turnEnd");
    backend.http.last("/events")->write("event: spoken\ndata: " + QByteArray(hundredMegabytes, 'x') + "\n\n");
    if (backend.audio.isConnected())
        backend.audio.send(QString(hundredMegabytes, u'x'));
}

/// It can be read, and would be shown.
void answerWithoutEnd(test::BackendAtItsPort &backend) {
    static const auto state = test::endlessState();
    backend.http.serve("/state", state);
    backend.tell("turn");
}

void sendAThousandClips(test::BackendAtItsPort &backend) {
    for (int number = 0; number < 1000; ++number)
        sendClip(backend);
}

void closeAtRandom(test::BackendAtItsPort &backend) {
    static std::mt19937 random(20261121);
    const auto happens = [] { return random() % 100 == 0; };
    if (happens())
        backend.http.last("/events")->abort();
    if (happens())
        backend.audio.drop();
    if (happens())
        backend.http.dropConnections();
    if (happens())
        backend.tell("turnEnd");
}

class MisbehavingBackend : public test::FollowingTest, public ::testing::WithParamInterface<Misbehaviour> {
protected:
    void SetUp() override {
#ifdef __SANITIZE_ADDRESS__
        GTEST_SKIP() << "the sanitizer is slow, and keeps what was freed";
#endif
        sound.start();
        sound.addSpeakers(u"speakers"_s);
        sound.addMicrophone(u"microphone"_s, u"Desk microphone"_s);
        sound.setDefaultInput(u"microphone"_s);
        setVariable("PULSE_SERVER", QString::fromStdString(sound.address()));
        setVariable("PULSE_COOKIE", sound.environment().value(u"PULSE_COOKIE"_s));
        desktop.tray.appear();
        startAndFollow();
        ASSERT_TRUE(eventually([this] { return !backend.audio.audio().empty(); }));
        ASSERT_EQ(command({u"--open"_s}).exitCode, 0);
        ASSERT_TRUE(eventually([this] { return backend.http.count("/options") > 0; }));
        ASSERT_TRUE(eventually([this] { return isShown(u"waiting"_s); }));
        // The window's first frames.
        pass(1s);
    }

    /// Lets time pass, with the test's own event loop.
    static void pass(std::chrono::milliseconds duration) {
        const QDeadlineTimer end(duration);
        eventually([&] { return end.hasExpired(); }, 2 * duration);
    }

    bool isShown(const QString &state) {
        const auto question = QDBusMessage::createMethodCall(u"org.palomet.Palomet"_s, u"/org/palomet/Palomet"_s,
                                                             u"org.palomet.Palomet.Control"_s, u"Status"_s);
        const QDBusReply<QString> json = bus.call(question);
        return QJsonDocument::fromJson(json.value().toUtf8()).object()[u"state"_s] == state;
    }

    /// As one that was started anew: it knows of no connection before.
    void recoverAs(const QString &state) {
        backend.behave();
        backend.enter(state);
        backend.http.goDown();
        backend.http.comeUp();
    }

    test::PrivateSoundServer sound{test::PrivateSoundServer::Kind::PulseAudio};
    QDBusConnection bus = desktop.bus.connect();
};

} // namespace

TEST_P(MisbehavingBackend, NeitherStallsTheWindowNorFillsTheMemoryAndIsSeenToRecover) {
    const auto atFirst = test::residentBytes(program.processId());
    qint64 most = 0;
    auto longest = 1000ms;
    // A busy machine slows everybody down now and then; what the program does itself, it does each time.
    for (int round = 0; round < 4 && longest > 50ms; ++round) {
        test::StallProbe probe(desktop.bus, program.processId());
        GetParam().begin(backend);
        QTimer clock;
        clock.setTimerType(Qt::PreciseTimer);
        clock.callOnTimeout([&] {
            GetParam().act(backend);
            most = std::max(most, test::residentBytes(program.processId()));
        });
        clock.start(1ms);
        pass(3s);
        clock.stop();
        longest = probe.end();
        EXPECT_GT(probe.answers(), 10);

        const auto truth = round % 2 == 0 ? u"speaking"_s : u"listening"_s;
        const test::SleepingControl control(3s);
        recoverAs(truth);
        EXPECT_TRUE(eventually([&] { return isShown(truth); }));
        EXPECT_TRUE(control.isAsleep());
        // The microphone is heard again, and what it sends next is no answer to the old.
        const auto heard = backend.audio.audio().size();
        EXPECT_TRUE(eventually([&] { return backend.audio.audio().size() > heard; }));
    }
    RecordProperty("stallMs", static_cast<int>(longest.count()));
    RecordProperty("memoryMiB", static_cast<int>((most - atFirst) / test::mebibyte));
    EXPECT_LE(longest, 50ms);
    EXPECT_LT(most, atFirst + 400 * test::mebibyte);
}

INSTANTIATE_TEST_SUITE_P(Ways, MisbehavingBackend,
                         ::testing::Values(Misbehaviour{"NeverAnswers", &neverAnswer},
                                           Misbehaviour{"AnswersByteByByte", &answerInBytes, &writeAByte},
                                           Misbehaviour{"SendsTenThousandEventsASecond", [](auto &) {}, &tellTenEvents},
                                           Misbehaviour{"SendsAHundredMegabytes", &answerAtLength},
                                           Misbehaviour{"AnswersWithAConversationWithoutEnd", &answerWithoutEnd},
                                           Misbehaviour{"SendsAThousandClipsAtOnce", &sendAThousandClips},
                                           Misbehaviour{"SendsAClipAMillisecond", [](auto &) {}, &sendClip},
                                           Misbehaviour{"ClosesAtRandom", [](auto &) {}, &closeAtRandom}),
                         [](const auto &tested) { return tested.param.name; });
