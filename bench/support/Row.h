#pragma once

#include <chrono>
#include <optional>
#include <string>
#include <vector>

namespace palomet::bench {

/// A value as it was measured, in the unit of its row.
class Sample {
public:
    void add(double value) { m_values.push_back(value); }
    /// In milliseconds.
    void add(std::chrono::steady_clock::duration duration) {
        add(std::chrono::duration<double, std::milli>(duration).count());
    }

    /// The value that so many of all, 0 to 1, do not exceed.
    [[nodiscard]] double percentile(double share) const;

private:
    std::vector<double> m_values;
};

/// One row of the table of figures: what was measured, beside its floor from the same run.
struct Row {
    std::string what;
    std::string floorName; ///< Empty when there is none.
    double floor = 0;
    double here = 0;
    std::optional<double> reach; ///< At most this; nothing when the figure is only reported.
    std::string unit = "ms";
};

/// Writes "| what | floor | here | to reach | met |" at once, so that a bench that is cut short keeps what it has.
void print(const Row &row);

/// Two rows: the median of a duration, and what one in a hundred exceeds. `reach` is for the latter, in milliseconds.
void print(const std::string &what, const Sample &sample, const std::string &floorName, const Sample &floor,
           std::optional<double> reach);

} // namespace palomet::bench
