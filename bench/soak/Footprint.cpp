#include "bench/soak/Footprint.h"

#include "tests/support/Processes.h"

#include <cstdio>

namespace palomet::bench {

using namespace Qt::StringLiterals;

Footprint Footprint::of(qint64 process) {
    const auto rollup = test::processFile(process, u"smaps_rollup"_s);
    const auto begin = rollup.indexOf("\nAnonymous:") + 11;
    return {rollup.mid(begin, rollup.indexOf("kB", begin) - begin).trimmed().toDouble() * 1024 / 1e6,
            test::descriptorsOf(process).size(), test::statusOf(process, "Threads").toLongLong()};
}

void print(const char *when, const Footprint &footprint) {
    std::printf("%-44s %6.1f MB  %3lld descriptors  %3lld threads\n", when, footprint.megabytes,
                static_cast<long long>(footprint.descriptors), static_cast<long long>(footprint.threads));
    std::fflush(stdout);
}

} // namespace palomet::bench
