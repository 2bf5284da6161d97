#include "bench/model/StateDocument.h"
#include "model/PalometModel.h"
#include "tests/support/Eventually.h"
#include "tests/support/ManualScheduler.h"
#include "tests/support/ScriptedBackend.h"

#include <QNetworkAccessManager>
#include <QNetworkReply>

#include <benchmark/benchmark.h>

// From an event on its socket to the snapshot published, without the tenth of a second that gathers events: the clock
// of the model is moved over it. Its floor is a bare request for the same document. The backend runs on the same
// thread, and what it takes is in both.

using namespace palomet;
using namespace palomet::test;
using namespace std::chrono_literals;
using namespace Qt::StringLiterals;

namespace {

class Authorized final : public MicrophonePermission {
public:
    [[nodiscard]] MicrophoneStatus status() const override { return MicrophoneStatus::Authorized; }
    void request(std::function<void()> done) override { done(); }
};

double secondsSince(std::chrono::steady_clock::time_point begin) {
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - begin).count();
}

void eventToSnapshot(benchmark::State &state) {
    ScriptedBackend backend;
    backend.serve("/state", bench::stateDocument(static_cast<int>(state.range(0))));
    backend.on("/events", [](const auto &exchange) { exchange->beginEvents(); });
    ManualScheduler scheduler;
    const Authorized permission;
    PalometModel model(scheduler, permission, backend.base());
    model.start();
    scheduler.advance(100ms);
    if (!eventually([&] { return model.snapshot() && backend.last("/events"); }))
        state.SkipWithError("no snapshot");
    int published = 0;
    QObject::connect(&model, &PalometModel::snapshotChanged, &model, [&] { ++published; });
    const auto events = backend.last("/events");
    for (auto _ : state) {
        const auto pending = scheduler.pendingCount();
        const auto begin = std::chrono::steady_clock::now();
        events->event("phase", "{}");
        while (scheduler.pendingCount() == pending)
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
        scheduler.advance(100ms);
        for (const int before = published; published == before;)
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
        state.SetIterationTime(secondsSince(begin));
    }
}

void bareRequest(benchmark::State &state) {
    ScriptedBackend backend;
    backend.serve("/state", bench::stateDocument(static_cast<int>(state.range(0))));
    QNetworkAccessManager manager;
    auto url = backend.base();
    url.setPath(u"/state"_s);
    for (auto _ : state) {
        const auto begin = std::chrono::steady_clock::now();
        const std::unique_ptr<QNetworkReply> reply(manager.get(QNetworkRequest(url)));
        while (!reply->isFinished())
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
        benchmark::DoNotOptimize(reply->readAll());
        state.SetIterationTime(secondsSince(begin));
    }
}

} // namespace

BENCHMARK(eventToSnapshot)->Arg(90)->Arg(10'000)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK(bareRequest)->Arg(90)->Arg(10'000)->UseManualTime()->Unit(benchmark::kMillisecond);
