#pragma once

#include "audio/echo/ClockDrift.h"
#include "audio/echo/EchoCanceller.h"
#include "audio/echo/Interpolator.h"

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

namespace palomet {

/// The samples that were handed to the speakers and not yet compared with the microphone, oldest first. The two streams
/// run on callbacks of their own sizes, and perhaps on clocks of their own; an echo canceller lives on a steady time
/// from reference to echo, and each jump of it is a room to be learned anew. So samples are counted, not timed.
///
/// At first a frame that is not there yet is silence and makes the reference older. As soon as two tenths of a second
/// agree on it the lead, the time by which the reference comes before its echo, is set: to half of what the streams
/// take together, and to 20 ms, or all that they take, where half is less. From there on the microphone waits for a
/// frame that is late, and only what comes later still is silence, and passed over: it was not played in time either.
/// While nothing but silence was written the lead is set anew ten times a second, and after two seconds it is settled:
/// it stays as it is unless it has come to lie over 10 ms off by then.
///
/// Samples come out as they were written, whatever they hold.
///
/// Clocks that run apart change the lead slowly: the reference is read so much faster or slower, by parts of a sample,
/// that it stays, as soon as it is known how much they are apart, and that it comes back where it has gone astray by
/// more than five milliseconds. Real-time thread only.
class EchoReference {
public:
    EchoReference();

    void write(std::span<const float> samples) noexcept;

    /// To be called with each microphone buffer before its frames are matched: how many samples it has, how many from
    /// earlier ones are still unmatched, and how long after its reference was written an echo is expected in it.
    /// Returns the lead, as far as it is known.
    std::chrono::microseconds follow(std::size_t samples, std::size_t unmatched,
                                     std::chrono::microseconds delay) noexcept;

    /// The next frame is there, or is not worth waiting for.
    [[nodiscard]] bool isReady() const noexcept;

    /// The next frame, with silence for what is not there.
    void read(EchoCanceller::Frame &frame) noexcept;

    /// Forgets everything.
    void clear() noexcept;

    /// Samples written and not yet read. Negative while some are late.
    [[nodiscard]] std::int64_t backlog() const { return m_written - m_read; }

private:
    void endWatch(double delay, double age) noexcept;
    void watchAnew() noexcept;
    [[nodiscard]] bool isWhole() const noexcept { return m_step == 1 && m_fraction == 0; }
    [[nodiscard]] float at(std::int64_t position) const noexcept;

    Interpolator m_interpolator;
    std::vector<float> m_samples;
    std::int64_t m_written = 0; ///< A position, as the next one is.
    std::int64_t m_read = 0;
    std::int64_t m_matched = 0;  ///< Samples of the microphone, in frames that were given.
    double m_fraction = 0;       ///< Of a sample, by which the position to read from is ahead of `m_read`.
    double m_step = 1;           ///< Samples of the reference for one of the microphone.
    int m_lateInARow = 0;        ///< Frames that were not there.
    bool m_isPlayed = false;     ///< Something was written since all was forgotten.
    bool m_isHeard = false;      ///< Something else than silence was.
    bool m_hasBegun = false;     ///< The lead is set.
    bool m_isSettled = false;    ///< It is set for good.
    std::int64_t m_settling = 0; ///< Samples of the microphone until it is.
    double m_lead = 0;           ///< What it was set to, in samples.
    double m_watchedLead = 0;    ///< The mean of the last watch, NaN before the first.
    double m_return = 0;         ///< The part of `m_step` that brings a lead back that went astray.
    ClockDrift m_drift;
    // Of the watch that is under way, weighted by samples:
    std::int64_t m_watched = 0;
    double m_delaySum = 0;
    double m_ageSum = 0;
};

} // namespace palomet
