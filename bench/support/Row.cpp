#include "bench/support/Row.h"

#include <algorithm>
#include <cstdio>

namespace palomet::bench {

namespace {

std::string written(double value, const std::string &unit) {
    char text[64];
    std::snprintf(text, sizeof text, "%.*f %s", value < 1 ? 3 : value < 10 ? 2 : 1, value, unit.c_str());
    return text;
}

} // namespace

double Sample::percentile(double share) const {
    auto sorted = m_values;
    std::ranges::sort(sorted);
    return sorted.at(static_cast<std::size_t>(share * static_cast<double>(sorted.size() - 1)));
}

void print(const Row &row) {
    const auto floor = row.floorName.empty() ? "" : row.floorName + " " + written(row.floor, row.unit);
    const auto reach = row.reach ? written(*row.reach, row.unit) : "reported";
    const char *met = !row.reach ? "" : row.here <= *row.reach ? "yes" : "no";
    std::printf("| %s | %s | %s | %s | %s |\n", row.what.c_str(), floor.c_str(), written(row.here, row.unit).c_str(),
                reach.c_str(), met);
    std::fflush(stdout);
}

void print(const std::string &what, const Sample &sample, const std::string &floorName, const Sample &floor,
           std::optional<double> reach) {
    print({what + ", p50", floorName, floor.percentile(0.5), sample.percentile(0.5), std::nullopt});
    print({what + ", p99", floorName, floor.percentile(0.99), sample.percentile(0.99), reach});
}

} // namespace palomet::bench
