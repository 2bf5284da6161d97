#include "audio/link/AudioLink.h"
#include "base/QtScheduler.h"
#include "bench/audio/link/Peer.h"
#include "bench/audio/link/SpokenClip.h"
#include "bench/support/Row.h"
#include "platform/linux/EventWakeup.h"
#include "tests/support/FakeEchoCanceller.h"
#include "tests/support/FakeSoundServer.h"

#include <QCoreApplication>
#include <QThread>
#include <QWebSocket>

#include <algorithm>
#include <atomic>
#include <cstdio>
#include <thread>

// How long sound takes through the link, with a bare backend at its other end and the speakers and the microphone
// driven by hand. The floor of each figure is the same way without the link.

using namespace palomet;
using namespace std::chrono_literals;

namespace {

using Clock = std::chrono::steady_clock;
const WakeupFactory makeWakeup = &EventWakeup::make;

/// A buffer's bytes from a ring of the bell on one thread to a socket on another, and to the peer.
bench::Sample measureHop(int rounds) {
    bench::Peer peer;
    QThread thread;
    QObject onThread;
    onThread.moveToThread(&thread);
    thread.start();
    std::unique_ptr<QTcpSocket> socket;
    std::unique_ptr<Wakeup> bell;
    QMetaObject::invokeMethod(
        &onThread,
        [&] {
            socket = std::make_unique<QTcpSocket>();
            socket->connectToHost(QStringLiteral("127.0.0.1"), peer.port());
            socket->waitForConnected();
            socket->setSocketOption(QAbstractSocket::LowDelayOption, 1);
            bell = makeWakeup([&] {
                socket->write(QByteArray(688, 'x'));
                socket->flush();
            });
        },
        Qt::BlockingQueuedConnection);
    peer.accept(false);
    bench::Sample sample;
    for (int round = 0; round < rounds; ++round) {
        std::this_thread::sleep_for(2ms);
        const auto begin = Clock::now();
        bell->raise();
        qsizetype received = 0;
        while (received < 688)
            received += peer.take().size();
        sample.add(Clock::now() - begin);
    }
    QMetaObject::invokeMethod(
        &onThread,
        [&] {
            bell.reset();
            socket.reset();
        },
        Qt::BlockingQueuedConnection);
    thread.quit();
    thread.wait();
    return sample;
}

/// The real link between a driven sound server and a bare peer. Its main thread is the program's; everything here runs
/// on the driving thread, which is the sound server's too.
struct Driver {
    test::FakeSoundServer &server;
    bench::Peer &peer;
    std::atomic<Clock::time_point> &chunkBegan;
    std::int64_t position = 0;

    /// One millisecond of the speakers.
    std::vector<float> pull() {
        const auto samples = server.pull(48);
        position += 48;
        server.hear(position);
        return samples;
    }
    void pullFor(int milliseconds) {
        for (int i = 0; i < milliseconds; ++i) {
            pull();
            std::this_thread::sleep_for(1ms);
        }
        peer.takeNow();
    }
    static bool isSilent(const std::vector<float> &samples) {
        return std::ranges::all_of(samples, [](float sample) { return sample == 0; });
    }

    bench::Sample measureChunks(int rounds) {
        bench::Sample sample;
        const std::vector<float> samples(960, 0.25F);
        for (int round = 0; round < rounds; ++round) {
            std::this_thread::sleep_for(2ms);
            chunkBegan = Clock::time_point{};
            while (chunkBegan.load() == Clock::time_point{})
                server.deliver(samples);
            peer.take();
            sample.add(Clock::now() - chunkBegan.load());
        }
        return sample;
    }

    void measureSpeech(const QByteArray &clip, int rounds, bench::Sample &play, bench::Sample &stop) {
        const QByteArray message = R"({"type":"play","id":1,"data":")" + clip.toBase64() + "\"}";
        for (int round = 0; round < rounds; ++round) {
            pullFor(60);
            auto begin = Clock::now();
            peer.sendText(message);
            while (isSilent(pull()))
                std::this_thread::sleep_for(50us);
            play.add(Clock::now() - begin);

            pullFor(60);
            begin = Clock::now();
            peer.sendText(R"({"type":"stop"})");
            while (pull().back() != 0)
                std::this_thread::sleep_for(1ms);
            stop.add(Clock::now() - begin);
        }
    }
};

/// Runs `action` on the program's main thread and waits for its end.
template <typename Action>
void onMain(Action action) {
    QMetaObject::invokeMethod(QCoreApplication::instance(), action, Qt::BlockingQueuedConnection);
}

/// A text message from the peer to a bare socket on the main thread.
bench::Sample measureMessage(const QByteArray &text, int rounds) {
    bench::Peer peer;
    std::unique_ptr<QWebSocket> socket;
    std::atomic<bool> hasArrived{false};
    onMain([&] {
        socket = std::make_unique<QWebSocket>();
        QObject::connect(socket.get(), &QWebSocket::textMessageReceived, socket.get(), [&] { hasArrived = true; });
        socket->open(peer.url());
    });
    peer.accept(true);
    bench::Sample sample;
    for (int round = 0; round < rounds; ++round) {
        std::this_thread::sleep_for(10ms);
        hasArrived = false;
        const auto begin = Clock::now();
        peer.sendText(text);
        while (!hasArrived)
            std::this_thread::sleep_for(20us);
        sample.add(Clock::now() - begin);
    }
    onMain([&] { socket.reset(); });
    return sample;
}

bench::Sample measureDecoding(const QByteArray &clip, int rounds) {
    bench::Sample sample;
    for (int round = 0; round < rounds; ++round) {
        const auto begin = Clock::now();
        if (!decodeClip(clip, QStringLiteral("mp3")))
            std::exit(1);
        sample.add(Clock::now() - begin);
    }
    return sample;
}

void measureAll(const QByteArray &clip, int rounds) {
    bench::Peer peer;
    test::FakeSoundServer server;
    std::atomic<Clock::time_point> chunkBegan;
    std::unique_ptr<QtScheduler> scheduler;
    std::unique_ptr<AudioLink> link;
    onMain([&] {
        scheduler = std::make_unique<QtScheduler>();
        auto io = std::make_unique<AudioIO>(AudioIO::Parts{
            .server = server,
            .scheduler = *scheduler,
            .makeWakeup = makeWakeup,
            .makeEchoCanceller =
                [] { return Result(std::unique_ptr<EchoCanceller>(std::make_unique<test::PassingEchoCanceller>())); },
            .chimeFile = {}});
        link = std::make_unique<AudioLink>(AudioLink::Parts{.io = std::move(io),
                                                            .scheduler = *scheduler,
                                                            .makeWakeup = makeWakeup,
                                                            .note = [](const QString &) {},
                                                            .url = peer.url()});
        const auto send = link->io().onPCM;
        link->io().onPCM = [&chunkBegan, send](PcmSamples samples) {
            chunkBegan = Clock::now();
            send(samples);
        };
        link->start();
    });
    peer.accept(true);
    peer.take(); // hello

    Driver driver{server, peer, chunkBegan};
    print("tap buffer full to its bytes on the socket", driver.measureChunks(10 * rounds), "one bell and a bare socket",
          measureHop(10 * rounds), 1);
    bench::Sample play;
    bench::Sample stop;
    driver.measureSpeech(clip, rounds, play, stop);
    print("play of a 5 s mp3 to the first sample written", play, "decoding alone", measureDecoding(clip, rounds), 12);
    // The server has up to 20 ms of earlier samples queued.
    print("stop to the first silent sample written", stop, "the message to the main thread",
          measureMessage(R"({"type":"stop"})", rounds), 10);
    onMain([&] { link.reset(); });
}

} // namespace

/// Usage: audio-link-bench [ROUNDS], each some 150 ms
int main(int argc, char **argv) {
    QCoreApplication application(argc, argv);
    const int rounds = std::max(1, application.arguments().value(1, QStringLiteral("50")).toInt());
    const auto clip = bench::spokenClip(5);
    if (clip.isEmpty()) {
        std::fprintf(stderr, "no mp3 can be written here\n");
        return 1;
    }
    std::thread driver([&] {
        measureAll(clip, rounds);
        QMetaObject::invokeMethod(&application, &QCoreApplication::quit, Qt::QueuedConnection);
    });
    const int status = QCoreApplication::exec();
    driver.join();
    return status;
}
