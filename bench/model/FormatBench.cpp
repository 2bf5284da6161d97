#include "model/Format.h"

#include <benchmark/benchmark.h>
#include <unicode/localpointer.h>
#include <unicode/udat.h>
#include <unicode/unum.h>

#include <array>

// Each text beside its floor: ICU's formatter for the same region, made once, writing the same number or instant into
// a buffer.

using namespace palomet;
using namespace Qt::StringLiterals;

namespace {

constexpr double instant = 1'731'700'000'000;

void load() {
    format::load({.numbers = u"pt-BR"_s, .dates = u"pt-BR"_s, .timeZone = u"America/Sao_Paulo"_s});
}

template <auto write>
void writing(benchmark::State &state) {
    load();
    for (auto _ : state)
        benchmark::DoNotOptimize(write());
}

void bareIcuNumber(benchmark::State &state) {
    UErrorCode error = U_ZERO_ERROR;
    const icu::LocalUNumberFormatPointer formatter(unum_open(UNUM_DECIMAL, nullptr, 0, "pt_BR", nullptr, &error));
    unum_setAttribute(formatter.getAlias(), UNUM_MIN_FRACTION_DIGITS, 2);
    unum_setAttribute(formatter.getAlias(), UNUM_MAX_FRACTION_DIGITS, 2);
    std::array<UChar, 64> buffer{};
    for (auto _ : state) {
        unum_formatDouble(formatter.getAlias(), 1234.5678, buffer.data(), buffer.size(), nullptr, &error);
        benchmark::ClobberMemory();
    }
    if (U_FAILURE(error))
        state.SkipWithError(u_errorName(error));
}

void bareIcuDate(benchmark::State &state) {
    UErrorCode error = U_ZERO_ERROR;
    const icu::LocalUDateFormatPointer formatter(
        udat_open(UDAT_PATTERN, UDAT_PATTERN, "pt_BR", u"America/Sao_Paulo", -1, u"dd/MM HH:mm", -1, &error));
    std::array<UChar, 64> buffer{};
    for (auto _ : state) {
        udat_format(formatter.getAlias(), instant, buffer.data(), buffer.size(), nullptr, &error);
        benchmark::ClobberMemory();
    }
    if (U_FAILURE(error))
        state.SkipWithError(u_errorName(error));
}

} // namespace

BENCHMARK(bareIcuNumber);
BENCHMARK(writing<[] { return format::number(1234.5678, {2, 2}); }>)->Name("format number");
BENCHMARK(writing<[] { return format::seconds(2500); }>)->Name("format seconds");
BENCHMARK(writing<[] { return format::usd(1234.5678); }>)->Name("format usd");
BENCHMARK(writing<[] { return format::speed(1.25); }>)->Name("format speed");
BENCHMARK(bareIcuDate);
BENCHMARK(writing<[] { return format::clock(instant); }>)->Name("format clock");
BENCHMARK(writing<[] { return format::day(instant); }>)->Name("format day");
BENCHMARK(writing<[] { return format::since(instant, std::chrono::system_clock::now()); }>)->Name("format since");
BENCHMARK(writing<[] { return format::model(u"claude-sonnet-4-5"_s); }>)->Name("format model");
BENCHMARK(writing<[] { return format::device(u"Microphone (USB Audio)"_s); }>)->Name("format device");
