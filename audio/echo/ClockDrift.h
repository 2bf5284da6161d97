#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

namespace palomet {

/// Tells by how much two clocks run apart from how far apart they are said to be, over and over. What is said wanders,
/// by more than clocks do in a minute, and now and then it jumps for good, so the drift is the median slope between any
/// two moments of the last half minute, of which a jump changes little (Sen, "Estimates of the regression coefficient
/// based on Kendall's tau", 1968). Nothing is taken for a drift that may as well be chance: the value stays where it
/// is, at first zero, until it lies outside of the median's confidence interval, and then moves to the edge of that.
class ClockDrift {
public:
    /// A stretch of `samples` came by the one clock, at whose beginning the other was `distance` samples ahead.
    void add(std::int64_t samples, double distance) noexcept;

    /// By how much the distance grows with each sample.
    [[nodiscard]] double value() const noexcept { return m_value; }

    /// Forgets everything.
    void clear() noexcept;

private:
    static constexpr std::size_t moments = 64;
    void look() noexcept;

    double m_value = 0;
    std::int64_t m_time = 0;
    // Of the moment that is under way, weighted by samples:
    std::int64_t m_watched = 0;
    double m_sum = 0;
    struct Moment {
        double time = 0; ///< By the one clock, in samples.
        double distance = 0;
    };
    std::array<Moment, moments> m_moments{}; ///< The last ones, in a ring.
    std::size_t m_count = 0;
    std::size_t m_next = 0;
    std::array<double, moments *(moments - 1) / 2> m_slopes{};
};

} // namespace palomet
