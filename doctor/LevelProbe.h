#pragma once

#include "audio/SoundServer.h"
#include "doctor/Examination.h"

#include <atomic>

namespace palomet {

/// Listens to nothing but how loud the microphone is, and plays silence. Keeps no sample.
class LevelProbe final : public SoundStreams {
public:
    void captured(std::span<const float> samples, std::chrono::microseconds delay) noexcept override;
    void fill(std::span<float> samples) noexcept override;
    void heard(std::int64_t frames) noexcept override;
    void turned(float factor) noexcept override;
    void playbackOpened() noexcept override;

    // Main thread.
    [[nodiscard]] bool hasPlayed() const { return m_hasPlayed.load(std::memory_order_relaxed); }

    /// Of what was captured since `restart`; none when nothing was.
    [[nodiscard]] std::optional<SoundLevel> level() const;
    /// The peak since this was last called.
    [[nodiscard]] double takePeak() { return m_recentPeak.exchange(0, std::memory_order_relaxed); }
    void restart() { m_isRestartWanted.store(true, std::memory_order_relaxed); }

private:
    // Written by the sound server's thread alone.
    std::atomic<double> m_sumOfSquares{0};
    std::atomic<std::int64_t> m_count{0};
    std::atomic<double> m_peak{0};

    std::atomic<double> m_recentPeak{0};
    std::atomic<bool> m_isRestartWanted{false};
    std::atomic<bool> m_hasPlayed{false};
};

} // namespace palomet
