#pragma once

#include <algorithm>
#include <chrono>
#include <cstddef>
#include <cstdio>
#include <vector>

namespace palomet::bench {

/// Many measurements of one thing.
class Figure {
public:
    void add(std::chrono::steady_clock::duration duration) {
        m_milliseconds.push_back(std::chrono::duration<double, std::milli>(duration).count());
    }
    [[nodiscard]] double percentile(double share) {
        std::ranges::sort(m_milliseconds);
        return m_milliseconds.at(static_cast<std::size_t>(share * static_cast<double>(m_milliseconds.size() - 1)));
    }

private:
    std::vector<double> m_milliseconds;
};

/// One line: the figure, its floor of the same run, and what is to be reached.
inline void print(const char *what, Figure &figure, const char *floorName, Figure &floor, const char *reach) {
    std::printf("%-34s p50 %7.3f ms  p99 %7.3f ms   %-28s p50 %7.3f ms  p99 %7.3f ms   to reach %s\n", what,
                figure.percentile(0.5), figure.percentile(0.99), floorName, floor.percentile(0.5),
                floor.percentile(0.99), reach);
}

} // namespace palomet::bench
