#include "bench/model/StateDocument.h"
#include "model/Documents.h"

#include <benchmark/benchmark.h>
#include <simdjson.h>

// A state document decoded, beside its floor: the same parser going once over the same bytes, keeping nothing.

using namespace palomet;

namespace {

void decodeState(benchmark::State &state) {
    const JsonText json = bench::stateDocument(static_cast<int>(state.range(0)));
    for (auto _ : state) {
        const auto snapshot = decodeSnapshot(json);
        if (!snapshot)
            state.SkipWithError("not decoded");
        benchmark::DoNotOptimize(&snapshot);
    }
    state.counters["bytes"] = static_cast<double>(json.size());
}

void parseState(benchmark::State &state) {
    const auto json = bench::stateDocument(static_cast<int>(state.range(0)));
    simdjson::dom::parser parser;
    for (auto _ : state) {
        simdjson::dom::element root;
        if (parser.parse(json.data(), static_cast<std::size_t>(json.size())).get(root))
            state.SkipWithError("not parsed");
        benchmark::DoNotOptimize(&root);
    }
    state.counters["bytes"] = static_cast<double>(json.size());
}

} // namespace

BENCHMARK(decodeState)->Arg(90)->Arg(10'000)->Unit(benchmark::kMillisecond);
BENCHMARK(parseState)->Arg(90)->Arg(10'000)->Unit(benchmark::kMillisecond);
