#pragma once

#include "audio/SoundServer.h"

#include <pulse/rtclock.h>

#include <algorithm>
#include <atomic>
#include <cmath>
#include <optional>
#include <thread>

namespace palomet::test {

/// The program's side of the streams: plays a tone when told to, listens, and keeps the times.
class SoundProbe final : public SoundStreams {
public:
    /// From the next `fill` on plays a tone of this many frames.
    void playTone(std::int64_t frames) {
        m_toneEnd = -1;
        m_toneHeardAt = 0;
        m_isToneCaptured = false;
        m_toneToStart = frames;
    }

    /// Silence from the next `fill` on.
    void stopTone() { m_isToneStopped = true; }

    [[nodiscard]] std::int64_t captured() const { return m_captured; }
    [[nodiscard]] std::int64_t filled() const { return m_filled; }
    [[nodiscard]] std::int64_t heard() const { return m_heard; }
    [[nodiscard]] int openings() const { return m_openings; }
    /// The loudest sample since the last call.
    [[nodiscard]] float takePeak() { return m_peak.exchange(0); }
    [[nodiscard]] std::chrono::microseconds delay() const { return std::chrono::microseconds{m_delay}; }
    /// How much later than the delay said the beginning of the last tone was captured; none until it was.
    [[nodiscard]] std::optional<std::chrono::microseconds> toneLateness() const {
        return m_isToneCaptured ? std::optional(std::chrono::microseconds{m_toneLateness}) : std::nullopt;
    }
    [[nodiscard]] bool isOneThread() const { return m_isOneThread; }
    /// The frame after the tone's last, once that was given, else -1; when its start was written; when it was told
    /// heard.
    [[nodiscard]] std::int64_t toneEnd() const { return m_toneEnd; }
    [[nodiscard]] std::chrono::microseconds toneWrittenAt() const { return std::chrono::microseconds{m_toneWrittenAt}; }
    [[nodiscard]] std::chrono::microseconds toneHeardAt() const { return std::chrono::microseconds{m_toneHeardAt}; }

    void captured(std::span<const float> samples, std::chrono::microseconds delay) noexcept override {
        checkThread();
        for (const float sample : samples)
            m_peak = std::max(m_peak.load(), std::abs(sample));
        m_delay = delay.count();
        const auto loud =
            std::find_if(samples.begin(), samples.end(), [](float sample) { return std::abs(sample) > 0.1F; });
        if (loud != samples.end() && m_toneEnd > 0 && !m_isToneCaptured) {
            const auto expected = delay.count() * sampleRate / 1'000'000 - (m_filled - m_toneStart);
            m_toneLateness = (std::distance(samples.begin(), loud) - expected) * 1'000'000 / sampleRate;
            m_isToneCaptured = true;
        }
        m_captured += static_cast<std::int64_t>(samples.size());
    }
    void fill(std::span<float> samples) noexcept override {
        checkThread();
        if (const auto frames = m_toneToStart.exchange(0); frames > 0) {
            m_toneLeft = frames;
            m_toneStart = m_filled;
            m_toneEnd = m_filled + frames;
            m_toneWrittenAt = static_cast<std::int64_t>(pa_rtclock_now());
        }
        if (m_isToneStopped.exchange(false))
            m_toneLeft = 0;
        for (float &sample : samples) {
            // A square wave: every sample of it is as loud.
            sample = m_toneLeft > 0 ? (m_toneLeft / 24 % 2 == 0 ? 0.5F : -0.5F) : 0.0F;
            m_toneLeft = std::max<std::int64_t>(m_toneLeft - 1, 0);
        }
        m_filled += static_cast<std::int64_t>(samples.size());
    }
    void heard(std::int64_t frames) noexcept override {
        checkThread();
        if (m_toneEnd > 0 && m_toneHeardAt == 0 && frames >= m_toneEnd)
            m_toneHeardAt = static_cast<std::int64_t>(pa_rtclock_now());
        m_heard = frames;
    }
    /// How many times as loud an echo has become since the streams were opened, as far as that was told.
    [[nodiscard]] float loudness() const { return m_loudness; }

    void turned(float factor) noexcept override {
        checkThread();
        m_loudness = m_loudness * factor;
    }
    void playbackOpened() noexcept override {
        checkThread();
        m_filled = 0;
        m_heard = 0;
        m_toneEnd = -1;
        ++m_openings;
    }

private:
    void checkThread() noexcept {
        if (m_thread == std::thread::id{})
            m_thread = std::this_thread::get_id();
        else if (m_thread != std::this_thread::get_id())
            m_isOneThread = false;
    }

    std::thread::id m_thread;
    std::atomic<bool> m_isOneThread = true, m_isToneStopped = false;
    std::atomic<std::int64_t> m_toneToStart = 0, m_captured = 0, m_filled = 0, m_heard = 0, m_delay = 0, m_toneEnd = -1;
    std::atomic<std::int64_t> m_toneWrittenAt = 0, m_toneHeardAt = 0;
    std::atomic<int> m_openings = 0;
    std::atomic<float> m_peak = 0, m_loudness = 1;
    std::int64_t m_toneLeft = 0;
    std::int64_t m_toneStart = 0;
    std::atomic<std::int64_t> m_toneLateness = 0;
    std::atomic<bool> m_isToneCaptured = false;
};

} // namespace palomet::test
