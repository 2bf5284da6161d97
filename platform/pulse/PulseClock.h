#pragma once

#include <pulse/operation.h>
#include <pulse/stream.h>

#include <algorithm>
#include <chrono>

namespace palomet {

/// Keeps a stream's clock right: asks the server for the stream's position now and then, from within the stream's own
/// data callback. A server's position moves in steps, and only an answer that always comes at the same point of the
/// step lets libpulse interpolate between answers to a tenth of a millisecond; its own timer asks at any time and
/// wanders by several. Sound thread only.
class PulseClock {
public:
    /// The flags that a stream with such a clock is connected with.
    static constexpr auto flags =
        static_cast<pa_stream_flags_t>(PA_STREAM_ADJUST_LATENCY | PA_STREAM_INTERPOLATE_TIMING);

    /// To be called once in every data callback.
    void keep(pa_stream *stream) noexcept {
        if (m_callbacksLeft-- > 0)
            return;
        m_callbacksLeft = m_pause;
        m_pause = std::min(2 * m_pause + 1, longestPause);
        if (auto *operation = pa_stream_update_timing_info(stream, nullptr, nullptr))
            pa_operation_unref(operation);
    }

    /// The stream was moved or stood still: the server is asked more often again.
    void restart() noexcept { m_callbacksLeft = m_pause = 0; }
    static void onBreak(pa_stream *, void *clock) { static_cast<PulseClock *>(clock)->restart(); }

    /// The stream's latency; nothing while it is not known or makes no sense.
    [[nodiscard]] static std::chrono::microseconds latency(pa_stream *stream) noexcept {
        pa_usec_t latency = 0;
        int isNegative = 0;
        if (pa_stream_get_latency(stream, &latency, &isNegative) < 0 || isNegative)
            return {};
        return std::chrono::microseconds{latency};
    }

private:
    static constexpr int longestPause = 63; ///< In callbacks, which come every 10 to 21 ms.
    int m_callbacksLeft = 0;
    int m_pause = 0;
};

} // namespace palomet
