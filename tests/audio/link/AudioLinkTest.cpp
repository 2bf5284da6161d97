#include "audio/link/AudioLink.h"

#include "tests/support/Eventually.h"
#include "tests/support/FakeEchoCanceller.h"
#include "tests/support/FakeSoundServer.h"
#include "tests/support/ManualScheduler.h"
#include "tests/support/QueuedWakeup.h"
#include "tests/support/ScriptedAudioBackend.h"
#include "tests/support/Speakers.h"

#include <QTemporaryDir>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <semaphore>
#include <thread>

using namespace palomet;
using namespace std::chrono_literals;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::UnorderedElementsAre;

namespace {

struct AudioLinkTest : testing::Test {
    test::ScriptedAudioBackend backend;
    test::FakeSoundServer server;
    test::Speakers speakers{server};
    test::ManualScheduler scheduler;
    test::EchoCancellerCalls calls;
    QTemporaryDir folder;
    QStringList notes;
    std::mutex formatsMutex;
    QStringList formats;
    std::unique_ptr<AudioLink> link;

    void make(const QUrl &url) {
        auto io = std::make_unique<AudioIO>(AudioIO::Parts{
            .server = server,
            .scheduler = scheduler,
            .makeWakeup = &test::QueuedWakeup::make,
            .makeEchoCanceller =
                [this] {
                    return Result(std::unique_ptr<EchoCanceller>(std::make_unique<test::FakeEchoCanceller>(calls)));
                },
            .decode = [this](const QByteArray &data, const QString &format) { return decode(data, format); },
            .chimeFile = folder.filePath(QStringLiteral("chime.aiff"))});
        link =
            std::make_unique<AudioLink>(AudioLink::Parts{.io = std::move(io),
                                                         .scheduler = scheduler,
                                                         .makeWakeup = &test::QueuedWakeup::make,
                                                         .note = [this](const QString &line) { notes.push_back(line); },
                                                         .url = url,
                                                         .timing = {10ms, 5000ms},
                                                         .maximumFile = 1000});
    }

    bool start() {
        make(backend.url());
        link->start();
        return test::eventually([&] { return !backend.received.empty(); });
    }

    Result<ClipSamples> decode(const QByteArray &data, const QString &format) {
        {
            const std::lock_guard guard(formatsMutex);
            formats.push_back(format);
        }
        return test::decodeNumber(data, format);
    }

    void sendPlay(qint64 id, const QByteArray &data, const QString &more = {}) {
        backend.send(QStringLiteral(R"({"type":"play","id":%1,"data":"%2"%3})")
                         .arg(QString::number(id), QString::fromLatin1(data.toBase64()), more));
    }
};

} // namespace

TEST_F(AudioLinkTest, ABackendSeesHelloFirstAndThenTheMicrophone) {
    ASSERT_TRUE(start());
    EXPECT_EQ(backend.received[0].event, (QJsonObject{{QStringLiteral("type"), QStringLiteral("hello")},
                                                      {QStringLiteral("device"), QStringLiteral("Mic A")}}));
    for (int i = 0; i < 100; ++i) {
        server.deliver(std::vector<float>(480, 0.25F));
        QCoreApplication::processEvents();
    }
    ASSERT_TRUE(test::eventually([&] { return backend.received.size() == 1 + 46; }));
    EXPECT_EQ(backend.audio().size(), 46U);
    qsizetype samples = 0;
    for (const auto &frame : backend.audio()) {
        EXPECT_TRUE(frame.size() == 682 || frame.size() == 684) << frame.size();
        samples += frame.size() / 2;
    }
    EXPECT_EQ(samples, (46 * 1024 + 2) / 3);
}

TEST_F(AudioLinkTest, ConnectsWhenTheFirstAttemptHasEndedSoThatHelloNamesTheDevice) {
    server.opensAtOnce = false;
    make(backend.url());
    link->start();
    scheduler.advance(999ms);
    server.finishOpening({});
    ASSERT_TRUE(test::eventually([&] { return !backend.received.empty(); }));
    EXPECT_EQ(backend.received[0].event.value(QStringLiteral("device")).toString(), QStringLiteral("Mic A"));
}

TEST_F(AudioLinkTest, ConnectsAlsoWhenTheFirstAttemptFailed) {
    server.captureFailure = Failure{QStringLiteral("busy")};
    ASSERT_TRUE(start());
    EXPECT_EQ(backend.received[0].event.value(QStringLiteral("device")).toString(), QStringLiteral("Mic A"));
    EXPECT_EQ(notes.size(), 1);
}

TEST_F(AudioLinkTest, ConnectsASecondAfterTheStartAtTheLatest) {
    server.opensAtOnce = false;
    make(backend.url());
    link->start();
    scheduler.advance(1000ms);
    ASSERT_TRUE(test::eventually([&] { return !backend.received.empty(); }));
    EXPECT_EQ(backend.received[0].event.value(QStringLiteral("device")).toString(), QStringLiteral("Mic A"));
    server.finishOpening({});
    ASSERT_TRUE(test::eventually([&] { return backend.received.size() == 2; }));
    EXPECT_THAT(backend.devices(), ElementsAre(QStringLiteral("Mic A")));
    scheduler.advance(1min);
    EXPECT_EQ(backend.connections, 1);
}

TEST_F(AudioLinkTest, HelloNamesTheDeviceThatTheServerToldWhileItOpensTheMicrophone) {
    server.opensAtOnce = false;
    server.hasToldDevices = false;
    make(backend.url());
    link->start();
    scheduler.advance(500ms);
    server.tellDevices();
    scheduler.advance(500ms);
    ASSERT_TRUE(test::eventually([&] { return !backend.received.empty(); }));
    EXPECT_EQ(backend.received[0].event.value(QStringLiteral("device")).toString(), QStringLiteral("Mic A"));
}

TEST_F(AudioLinkTest, StartsOnlyOnce) {
    ASSERT_TRUE(start());
    link->start();
    scheduler.advance(2s);
    EXPECT_EQ(server.captureOpenings, 1);
    EXPECT_EQ(backend.connections, 1);
}

TEST_F(AudioLinkTest, ALinkThatWasNeverStartedEndsQuietly) {
    make(backend.url());
    link.reset();
    EXPECT_EQ(backend.connections, 0);
}

TEST_F(AudioLinkTest, PlaysAClipWithoutAFormatAsMp3) {
    ASSERT_TRUE(start());
    sendPlay(1, "100");
    sendPlay(2, "100", QStringLiteral(R"(,"format":"ogg")"));
    ASSERT_TRUE(speakers.speakUntil([&] { return backend.played().size() == 2; }));
    EXPECT_THAT(backend.played(), ElementsAre(1, 2));
    EXPECT_EQ(formats, (QStringList{QStringLiteral("mp3"), QStringLiteral("ogg")}));
}

TEST_F(AudioLinkTest, ReportsAClipOnlyWhenItWasHeard) {
    ASSERT_TRUE(start());
    sendPlay(1, "1000");
    ASSERT_TRUE(speakers.playUntilSound());
    const auto before = static_cast<std::int64_t>(speakers.given.size());
    speakers.pull(1000);
    server.hear(before);
    sendPlay(2, "nonsense"); // a report that comes at once
    ASSERT_TRUE(test::eventually([&] { return !backend.played().empty(); }));
    EXPECT_THAT(backend.played(), ElementsAre(2));
    speakers.hearAll();
    ASSERT_TRUE(test::eventually([&] { return backend.played().size() == 2; }));
    EXPECT_THAT(backend.played(), ElementsAre(2, 1));
}

TEST_F(AudioLinkTest, StopReportsEveryPendingClipOnce) {
    ASSERT_TRUE(start());
    sendPlay(1, "100000");
    sendPlay(2, "100000");
    sendPlay(3, "100000");
    ASSERT_TRUE(speakers.playUntilSound());
    backend.send(QStringLiteral(R"({"type":"stop"})"));
    ASSERT_TRUE(speakers.speakUntil([&] { return backend.played().size() == 3; }));
    EXPECT_THAT(backend.played(), UnorderedElementsAre(1, 2, 3));
    sendPlay(4, "100");
    ASSERT_TRUE(speakers.speakUntil([&] { return backend.played().size() == 4; }));
    EXPECT_EQ(backend.played().back(), 4);
}

TEST_F(AudioLinkTest, AFormatThatIsNoneIsAFailedClip) {
    ASSERT_TRUE(start());
    sendPlay(5, "x", QStringLiteral(R"(,"format":"../x")"));
    ASSERT_TRUE(test::eventually([&] { return !backend.played().empty(); }));
    EXPECT_THAT(backend.played(), ElementsAre(5));
    EXPECT_EQ(notes.back(), QStringLiteral("áudio: não consegui tocar a fala 5 (no ../x)"));
}

TEST_F(AudioLinkTest, EnableReleasesAndReopensTheMicrophone) {
    ASSERT_TRUE(start());
    backend.send(QStringLiteral(R"({"type":"enable","on":true})"));
    backend.send(QStringLiteral(R"({"type":"enable","on":false})"));
    ASSERT_TRUE(test::eventually([&] { return !server.isCaptureOpen(); }));
    EXPECT_EQ(server.captureOpenings, 1);
    backend.send(QStringLiteral(R"({"type":"enable"})"));
    ASSERT_TRUE(test::eventually([&] { return server.isCaptureOpen(); }));
    EXPECT_EQ(server.captureOpenings, 2);
    ASSERT_TRUE(test::eventually([&] { return backend.devices().size() == 1; }));
}

TEST_F(AudioLinkTest, InputChoosesTheDeviceAndIsAnswered) {
    ASSERT_TRUE(start());
    backend.send(QStringLiteral(R"({"type":"input","device":"Mic B"})"));
    ASSERT_TRUE(test::eventually([&] { return backend.devices().size() == 2; }));
    EXPECT_THAT(backend.devices(), ElementsAre(QStringLiteral("Mic B"), QStringLiteral("Mic B")));
    EXPECT_EQ(server.defaultId, QStringLiteral("mic.b"));
    link->restoreDefaultInput();
    EXPECT_EQ(server.defaultId, QStringLiteral("mic.a"));
}

TEST_F(AudioLinkTest, InputIsAnsweredWhenItsConfigurationHasEnded) {
    ASSERT_TRUE(start());
    server.opensAtOnce = false;
    backend.send(QStringLiteral(R"({"type":"input"})"));
    ASSERT_TRUE(test::eventually([&] { return server.isOpening(); }));
    sendPlay(1, "nonsense");
    ASSERT_TRUE(test::eventually([&] { return !backend.played().empty(); }));
    EXPECT_THAT(backend.devices(), IsEmpty());
    server.finishOpening(Failure{QStringLiteral("busy")});
    ASSERT_TRUE(test::eventually([&] { return !backend.devices().empty(); }));
    EXPECT_THAT(backend.devices(), ElementsAre(QStringLiteral("Mic A")));
}

TEST_F(AudioLinkTest, InputOfADeviceThatIsNotPresentLeavesTheDefaultAndIsAnswered) {
    ASSERT_TRUE(start());
    backend.send(QStringLiteral(R"({"type":"input","device":"Mic Z"})"));
    ASSERT_TRUE(test::eventually([&] { return backend.devices().size() == 2; }));
    EXPECT_EQ(backend.devices().back(), QStringLiteral("Mic A"));
    EXPECT_THAT(server.defaultsSet, IsEmpty());
}

TEST_F(AudioLinkTest, InputWhileTheMicrophoneIsReleasedIsAnsweredAndKept) {
    ASSERT_TRUE(start());
    backend.send(QStringLiteral(R"({"type":"enable","on":false})"));
    backend.send(QStringLiteral(R"({"type":"input","device":"Mic B"})"));
    ASSERT_TRUE(test::eventually([&] { return backend.devices().size() == 1; }));
    EXPECT_THAT(backend.devices(), ElementsAre(QStringLiteral("Mic A")));
    EXPECT_FALSE(server.isCaptureOpen());
    backend.send(QStringLiteral(R"({"type":"enable","on":true})"));
    ASSERT_TRUE(test::eventually([&] { return backend.devices().size() == 2; }));
    EXPECT_EQ(backend.devices().back(), QStringLiteral("Mic B"));
}

TEST_F(AudioLinkTest, TheChimeIsPlayedWithoutAReport) {
    QFile file(folder.filePath(QStringLiteral("chime.aiff")));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("1000");
    file.close();
    ASSERT_TRUE(start());
    backend.send(QStringLiteral(R"({"type":"chime"})"));
    sendPlay(1, "10");
    ASSERT_TRUE(speakers.speakUntil([&] { return !backend.played().empty(); }));
    EXPECT_THAT(backend.played(), ElementsAre(1));
    EXPECT_EQ(formats, (QStringList{QStringLiteral("aiff"), QStringLiteral("mp3")}));
}

TEST_F(AudioLinkTest, AnUnpluggedDeviceIsNamedByTheNextHello) {
    ASSERT_TRUE(start());
    server.defaultId = QStringLiteral("mic.b");
    server.captureFailure = Failure{QStringLiteral("busy")};
    server.change();
    backend.received.clear();
    backend.drop();
    ASSERT_TRUE(test::eventually([&] { return !backend.received.empty(); }));
    EXPECT_EQ(backend.received[0].type(), QStringLiteral("hello"));
    EXPECT_EQ(backend.received[0].event.value(QStringLiteral("device")).toString(), QStringLiteral("Mic B"));
}

TEST_F(AudioLinkTest, AKilledBackendIsFoundAgainAndGreeted) {
    ASSERT_TRUE(start());
    backend.die();
    server.deliver(std::vector<float>(48000, 0.25F));
    backend.received.clear();
    backend.listen();
    ASSERT_TRUE(test::eventually([&] { return !backend.received.empty(); }));
    EXPECT_EQ(backend.received[0].type(), QStringLiteral("hello"));
    server.deliver(std::vector<float>(1920, 0.25F));
    ASSERT_TRUE(test::eventually([&] { return !backend.audio().empty(); }));
}

TEST_F(AudioLinkTest, AClipThatPlaysWhenTheBackendIsKilledIsHeardToItsEndAndNotReportedToTheNext) {
    ASSERT_TRUE(start());
    sendPlay(1, "100000");
    ASSERT_TRUE(speakers.playUntilSound());
    backend.drop();
    ASSERT_TRUE(test::eventually([&] { return backend.events(QStringLiteral("hello")).size() == 2; }));
    EXPECT_TRUE(speakers.isSounding());
    sendPlay(2, "100");
    ASSERT_TRUE(speakers.speakUntil([&] { return !backend.played().empty(); }));
    EXPECT_THAT(backend.played(), ElementsAre(2));
}

TEST_F(AudioLinkTest, AClipOfAnEarlierConnectionDoesNotReportANewOneOfTheSameId) {
    ASSERT_TRUE(start());
    sendPlay(1, "100");
    ASSERT_TRUE(speakers.playUntilSound());
    speakers.pull(100);
    const auto endOfTheFirst = static_cast<std::int64_t>(speakers.given.size());
    backend.drop();
    ASSERT_TRUE(test::eventually([&] { return backend.events(QStringLiteral("hello")).size() == 2; }));
    sendPlay(1, "1000");
    ASSERT_TRUE(speakers.playUntilSound());
    server.hear(endOfTheFirst);
    sendPlay(2, "nonsense"); // a report that comes behind any that was caused before
    ASSERT_TRUE(test::eventually([&] { return !backend.played().empty(); }));
    EXPECT_THAT(backend.played(), ElementsAre(2));
    ASSERT_TRUE(speakers.speakUntil([&] { return backend.played().size() == 2; }));
    EXPECT_THAT(backend.played(), ElementsAre(2, 1));
}

TEST_F(AudioLinkTest, AStopReportsWhatThisConnectionAskedForAndSilencesTheRestToo) {
    ASSERT_TRUE(start());
    sendPlay(1, "100000");
    ASSERT_TRUE(speakers.playUntilSound());
    backend.drop();
    ASSERT_TRUE(test::eventually([&] { return backend.events(QStringLiteral("hello")).size() == 2; }));
    sendPlay(2, "100000");
    backend.send(QStringLiteral(R"({"type":"stop"})"));
    ASSERT_TRUE(test::eventually([&] { return !backend.played().empty(); }));
    sendPlay(3, "100");
    ASSERT_TRUE(speakers.speakUntil([&] { return backend.played().size() == 2; }));
    EXPECT_THAT(backend.played(), ElementsAre(2, 3));
}

TEST_F(AudioLinkTest, EachOfTwoClipsOfOneIdIsReportedAtItsOwnEnd) {
    ASSERT_TRUE(start());
    sendPlay(1, "1000");
    ASSERT_TRUE(speakers.playUntilSound());
    sendPlay(1, "nonsense");
    ASSERT_TRUE(test::eventually([&] { return backend.played().size() == 1; }));
    ASSERT_TRUE(speakers.speakUntil([&] { return backend.played().size() == 2; }));
    EXPECT_THAT(backend.played(), ElementsAre(1, 1));
}

TEST_F(AudioLinkTest, AClipLargerThanAnyCanNeedToBeIsNotedAndReportedAndTheLinkGoesOn) {
    ASSERT_TRUE(start());
    sendPlay(5, QByteArray(1000, ' '));
    sendPlay(6, QByteArray(1001, ' '));
    sendPlay(7, "100");
    ASSERT_TRUE(speakers.speakUntil([&] { return backend.played().size() == 3; }));
    EXPECT_THAT(backend.played(), UnorderedElementsAre(5, 6, 7));
    EXPECT_TRUE(notes.contains(QStringLiteral("áudio: não consegui tocar a fala 5 (no mp3)")));
    EXPECT_TRUE(notes.contains(QStringLiteral("áudio: não consegui tocar a fala 6 (o arquivo é grande demais)")));
    EXPECT_EQ(backend.connections, 1);
}

TEST_F(AudioLinkTest, AThousandClipsAtOnceAreReportedInOrder) {
    ASSERT_TRUE(start());
    std::vector<qint64> expected;
    for (qint64 id = 0; id < 1000; ++id) {
        sendPlay(id, "100");
        expected.push_back(id);
    }
    ASSERT_TRUE(speakers.speakUntil([&] { return backend.played().size() == 1000; }));
    EXPECT_EQ(backend.played(), expected);
}

TEST_F(AudioLinkTest, FramesAndReportsReachTheBackendWhileTheMainThreadIsBusy) {
    QThread backendThread;
    QObject onBackendThread;
    onBackendThread.moveToThread(&backendThread);
    backendThread.start();
    std::unique_ptr<QWebSocketServer> listener;
    std::unique_ptr<QWebSocket> peer;
    int frames = 0;
    bool isPlayed = false;
    std::atomic<int> greetings{0};
    std::binary_semaphore hasHeardEnough{0};
    QUrl url;
    const auto listen = [&] {
        listener = std::make_unique<QWebSocketServer>(QString(), QWebSocketServer::NonSecureMode);
        listener->listen(QHostAddress::LocalHost);
        url = QUrl(QStringLiteral("ws://127.0.0.1:%1/audio").arg(listener->serverPort()));
        QObject::connect(listener.get(), &QWebSocketServer::newConnection, listener.get(), [&] {
            peer.reset(listener->nextPendingConnection());
            const auto check = [&] {
                if (frames == 50 && isPlayed)
                    hasHeardEnough.release();
            };
            QObject::connect(peer.get(), &QWebSocket::binaryMessageReceived, peer.get(),
                             [&, check](const QByteArray &) {
                                 ++frames;
                                 check();
                             });
            QObject::connect(peer.get(), &QWebSocket::textMessageReceived, peer.get(), [&, check](const QString &text) {
                greetings += text.contains(QStringLiteral("hello")) ? 1 : 0;
                if (text.contains(QStringLiteral("played"))) {
                    isPlayed = true;
                    check();
                }
            });
        });
    };
    QMetaObject::invokeMethod(&onBackendThread, listen, Qt::BlockingQueuedConnection);

    make(url);
    link->start();
    ASSERT_TRUE(test::eventually([&] { return greetings == 1; }));
    link->io().play({1, 1}, "1000", QStringLiteral("mp3"));
    ASSERT_TRUE(speakers.playUntilSound());
    std::thread realTime([&] {
        speakers.pull(4800);
        speakers.hearAll();
        for (int i = 0; i < 50; ++i) {
            server.deliver(std::vector<float>(1024, 0.25F));
            std::this_thread::yield();
        }
        server.deliver(std::vector<float>(1024, 0.25F)); // what is not a whole 10 ms stays inside
    });
    // This thread runs no event loop here.
    EXPECT_TRUE(hasHeardEnough.try_acquire_for(20s));
    realTime.join();

    QMetaObject::invokeMethod(
        &onBackendThread, [&] { listener.reset(); }, Qt::BlockingQueuedConnection);
    link.reset();
    backendThread.quit();
    backendThread.wait();
}
