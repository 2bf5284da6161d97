#include "audio/AudioLink.h"
#include "base/QtScheduler.h"
#include "bench/audio-link/Peer.h"
#include "bench/support/Figure.h"
#include "platform/posix/EventWakeup.h"
#include "tests/support/FakeEchoCanceller.h"
#include "tests/support/FakeSoundServer.h"

#include <QCoreApplication>
#include <QFile>
#include <QThread>
#include <QWebSocket>

#include <algorithm>
#include <atomic>
#include <cstdio>
#include <thread>

// How long sound takes through the link, with a bare backend at its other end and the speakers and the microphone
// driven by hand. Prints each figure beside its floor, taken in the same run: the same way without the link.

using namespace palomet;
using namespace std::chrono_literals;
using bench::Figure;
using bench::print;

namespace {

using Clock = std::chrono::steady_clock;
const WakeupFactory makeWakeup = &EventWakeup::make;

/// A buffer's bytes from a ring of the bell on one thread to a socket on another, and to the peer.
Figure measureHop(int rounds) {
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
    Figure figure;
    for (int round = 0; round < rounds; ++round) {
        std::this_thread::sleep_for(2ms);
        const auto begin = Clock::now();
        bell->raise();
        qsizetype received = 0;
        while (received < 688)
            received += peer.take().size();
        figure.add(Clock::now() - begin);
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
    return figure;
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

    Figure measureChunks(int rounds) {
        Figure figure;
        const std::vector<float> samples(960, 0.25F);
        for (int round = 0; round < rounds; ++round) {
            std::this_thread::sleep_for(2ms);
            chunkBegan = Clock::time_point{};
            while (chunkBegan.load() == Clock::time_point{})
                server.deliver(samples);
            peer.take();
            figure.add(Clock::now() - chunkBegan.load());
        }
        return figure;
    }

    void measureSpeech(const QByteArray &clip, int rounds, Figure &play, Figure &stop) {
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
Figure measureMessage(const QByteArray &text, int rounds) {
    bench::Peer peer;
    std::unique_ptr<QWebSocket> socket;
    std::atomic<bool> hasArrived{false};
    onMain([&] {
        socket = std::make_unique<QWebSocket>();
        QObject::connect(socket.get(), &QWebSocket::textMessageReceived, socket.get(), [&] { hasArrived = true; });
        socket->open(peer.url());
    });
    peer.accept(true);
    Figure figure;
    for (int round = 0; round < rounds; ++round) {
        std::this_thread::sleep_for(10ms);
        hasArrived = false;
        const auto begin = Clock::now();
        peer.sendText(text);
        while (!hasArrived)
            std::this_thread::sleep_for(20us);
        figure.add(Clock::now() - begin);
    }
    onMain([&] { socket.reset(); });
    return figure;
}

Figure measureDecoding(const QByteArray &clip, int rounds) {
    Figure figure;
    for (int round = 0; round < rounds; ++round) {
        const auto begin = Clock::now();
        if (!decodeClip(clip, QStringLiteral("mp3")))
            std::exit(1);
        figure.add(Clock::now() - begin);
    }
    return figure;
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
    auto chunks = driver.measureChunks(10 * rounds);
    Figure play;
    Figure stop;
    driver.measureSpeech(clip, rounds, play, stop);
    onMain([&] { link.reset(); });

    auto hop = measureHop(10 * rounds);
    auto decoding = measureDecoding(clip, rounds);
    auto message = measureMessage(R"({"type":"stop"})", rounds);
    print("tap buffer full to bytes on socket", chunks, "bell and bare socket", hop, "p99 1 ms");
    print("play to the first sample written", play, "decoding alone", decoding, "12 ms");
    print("stop to the first silent sample", stop, "message to the main thread", message,
          "30 ms, with 20 ms that the server has queued");
}

} // namespace

/// Usage: audio-link-bench CLIP.mp3 [ROUNDS]
int main(int argc, char **argv) {
    QCoreApplication application(argc, argv);
    const auto arguments = QCoreApplication::arguments();
    QFile file(arguments.value(1));
    if (!file.open(QIODevice::ReadOnly)) {
        std::fprintf(stderr, "usage: audio-link-bench CLIP.mp3 [ROUNDS]\n");
        return 2;
    }
    const QByteArray clip = file.readAll();
    const int rounds = std::max(1, arguments.value(2, QStringLiteral("50")).toInt());
    std::thread driver([&] {
        measureAll(clip, rounds);
        QMetaObject::invokeMethod(&application, &QCoreApplication::quit, Qt::QueuedConnection);
    });
    const int status = QCoreApplication::exec();
    driver.join();
    return status;
}
