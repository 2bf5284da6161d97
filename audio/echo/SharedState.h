#pragma once

#include "audio/echo/EchoCanceller.h"

#include <atomic>
#include <cmath>
#include <limits>
#include <optional>
#include <type_traits>

namespace palomet::echo {

/// The library's kind of optional as ours.
template <typename Theirs>
auto toStandard(const Theirs &value) {
    using Value = std::remove_cvref_t<decltype(*value)>;
    return value ? std::optional<Value>(*value) : std::nullopt;
}

/// What a canceller says of itself, written by the audio thread and read by any other; neither ever waits. Each value
/// is true by itself, those of one reading need not be of the same frame.
class SharedState {
public:
    void set(bool isConverged, std::optional<int> delayMs, std::optional<double> enhancementDb) noexcept {
        m_isConverged.store(isConverged, std::memory_order_relaxed);
        m_delayMs.store(delayMs.value_or(unknownDelay), std::memory_order_relaxed);
        m_enhancementDb.store(enhancementDb.value_or(std::numeric_limits<double>::quiet_NaN()),
                              std::memory_order_relaxed);
    }

    [[nodiscard]] EchoCancellerState read(const QString &library) const {
        EchoCancellerState state;
        state.library = library;
        state.isConverged = m_isConverged.load(std::memory_order_relaxed);
        if (const int delayMs = m_delayMs.load(std::memory_order_relaxed); delayMs != unknownDelay)
            state.delayMs = delayMs;
        if (const double enhancement = m_enhancementDb.load(std::memory_order_relaxed); !std::isnan(enhancement))
            state.echoReturnLossEnhancementDb = enhancement;
        return state;
    }

private:
    static constexpr int unknownDelay = std::numeric_limits<int>::min();

    std::atomic<bool> m_isConverged{false};
    std::atomic<int> m_delayMs{unknownDelay};
    std::atomic<double> m_enhancementDb{std::numeric_limits<double>::quiet_NaN()};
};

} // namespace palomet::echo
