#include "base/QtScheduler.h"
#include "bench/support/Row.h"
#include "platform/pulse/PulseSoundServer.h"
#include "tests/platform/pulse/SoundProbe.h"
#include "tests/support/Eventually.h"
#include "tests/support/PrivateSoundServer.h"
#include "tests/support/SoundRecorder.h"

#include <QCoreApplication>
#include <QTimer>

#include <sys/resource.h>

#include <algorithm>
#include <array>
#include <cstdio>
#include <optional>
#include <string>

// The cost of the sound server's client, and the time that sound takes through a server of each kind, on speakers and a
// microphone that are made of nothing. The floor of the cost is the same connection without a stream.

using namespace palomet;
using namespace palomet::test;
using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

/// The program's side at its cheapest.
class Nothing final : public SoundStreams {
public:
    void captured(std::span<const float>, std::chrono::microseconds) noexcept override {}
    void fill(std::span<float> samples) noexcept override { std::fill(samples.begin(), samples.end(), 0.0F); }
    void heard(std::int64_t) noexcept override {}
    void turned(float) noexcept override {}
    void playbackOpened() noexcept override {}
};

double processorSeconds() {
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    const auto seconds = [](const timeval &time) {
        return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_usec) / 1e6;
    };
    return seconds(usage.ru_utime) + seconds(usage.ru_stime);
}

/// Per cent of a core, while nothing but the streams is at work.
double costOf(std::chrono::seconds duration) {
    const double before = processorSeconds();
    QTimer::singleShot(duration, [] { QCoreApplication::quit(); });
    QCoreApplication::exec();
    return (processorSeconds() - before) / static_cast<double>(duration.count()) * 100;
}

void print(const std::string &what, const bench::Sample &sample, std::optional<double> reach) {
    bench::print({what + ", p50", {}, 0, sample.percentile(0.5), reach});
    bench::print({what + ", p90", {}, 0, sample.percentile(0.9), std::nullopt});
}

void measureCost(const PrivateSoundServer &server, const std::string &name, std::chrono::seconds duration) {
    QtScheduler scheduler;
    Nothing nothing;
    PulseSoundServer sound(scheduler, server.address());
    sound.start(nothing);
    eventually([&] { return sound.defaultInput().has_value(); });
    const double floor = costOf(duration);
    sound.openPlayback();
    sound.openCapture([](const auto &) {});
    eventually([&] { return sound.isCaptureOpen(); });
    costOf(2s);
    bench::print({name + ": microphone open and silence playing", "a connection without streams", floor,
                  costOf(duration), std::nullopt, "% of a core"});
}

void measureWay(const PrivateSoundServer &server, const std::string &name, int rounds) {
    QtScheduler scheduler;
    SoundProbe probe;
    PulseSoundServer sound(scheduler, server.address());
    sound.start(probe);
    sound.openPlayback();
    SoundRecorder recorder(server.address(), "speakers.monitor");
    eventually([&] { return probe.heard() > 2 * SoundStreams::sampleRate; });

    bench::Sample sounded;
    bench::Sample told;
    bench::Sample silent;
    const auto milliseconds = [](std::chrono::microseconds time) { return static_cast<double>(time.count()) / 1000; };
    const auto record = [&](std::size_t count) {
        const auto until = recorder.count() + count;
        eventually([&] { return recorder.count() >= until; });
    };
    for (int i = 0; i < rounds; ++i) {
        auto from = recorder.count();
        probe.playTone(4800);
        eventually([&] { return probe.toneHeardAt() > 0us; });
        record(9600);
        sounded.add(milliseconds(recorder.timeOf(*recorder.firstLoud(0.1F, from)) - probe.toneWrittenAt()));
        told.add(milliseconds(probe.toneHeardAt() - recorder.timeOf(*recorder.lastLoud(0.1F, from))));

        from = recorder.count();
        probe.playTone(SoundStreams::sampleRate);
        // Anywhere between two requests of the server.
        record(9600 + static_cast<std::size_t>(i) * 97 % 960);
        const std::chrono::microseconds stopped{pa_rtclock_now()};
        probe.stopTone();
        record(9600);
        silent.add(milliseconds(recorder.timeOf(*recorder.lastLoud(0.1F, from)) - stopped));
    }
    print(name + ": a sample written to the same on the monitor", sounded, std::nullopt);
    print(name + ": the last sample on the monitor to its report", told, std::nullopt);
    print(name + ": stop to silence on the monitor", silent, 30);
}

} // namespace

/// Usage: sound-server-bench [SECONDS] [ROUNDS]
int main(int argc, char **argv) {
    QCoreApplication application(argc, argv);
    const auto arguments = QCoreApplication::arguments();
    const std::chrono::seconds duration{std::max(1, arguments.value(1, u"10"_s).toInt())};
    const int rounds = std::max(1, arguments.value(2, u"30"_s).toInt());
    using Kind = PrivateSoundServer::Kind;
    constexpr std::array kinds{std::pair{Kind::PulseAudio, "PulseAudio"}, std::pair{Kind::PipeWire, "PipeWire"}};
    for (const auto &[kind, name] : kinds) {
        if (!PrivateSoundServer::isInstalled(kind)) {
            std::fprintf(stderr, "%s is not installed\n", name);
            continue;
        }
        PrivateSoundServer server(kind);
        server.start();
        server.addSpeakers(u"speakers"_s);
        server.addMicrophone(u"microphone"_s, u"Microphone"_s);
        server.setDefaultInput(u"microphone"_s);
        measureCost(server, name, duration);
        measureWay(server, name, rounds);
    }
}
