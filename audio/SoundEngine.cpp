#include "audio/SoundEngine.h"

namespace palomet {

void SoundEngine::captured(std::span<const float> samples, std::chrono::microseconds delay) noexcept {
    if (m_capture)
        m_capture->captured(samples, delay, m_reference);
}

void SoundEngine::fill(std::span<float> samples) noexcept {
    m_mixer.fill(samples);
    m_reference.write(samples);
}

void SoundEngine::heard(std::int64_t frames) noexcept {
    m_mixer.heard(frames);
}

void SoundEngine::turned(float factor) noexcept {
    if (m_capture)
        m_capture->turned(factor);
}

void SoundEngine::playbackOpened() noexcept {
    m_mixer.playbackOpened();
    m_reference.clear();
}

} // namespace palomet
