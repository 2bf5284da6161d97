#include "audio/speech/SpeechMixer.h"

#include "base/Wakeup.h"

#include <algorithm>

namespace palomet {

SpeechMixer::~SpeechMixer() {
    while (m_writtenCount > 0)
        finishFirstWritten();
    while (takeFinished()) {
    }
    delete m_current;
    for (SpeechClip *clip = nullptr; m_submitted.pop(clip);)
        delete clip;
}

void SpeechMixer::submit(std::unique_ptr<SpeechClip> clip) {
    if (m_submitted.push(clip.get()))
        static_cast<void>(clip.release());
}

std::unique_ptr<SpeechClip> SpeechMixer::takeFinished() {
    SpeechClip *clip = nullptr;
    m_finished.pop(clip);
    return std::unique_ptr<SpeechClip>(clip);
}

void SpeechMixer::fill(std::span<float> samples) noexcept {
    const auto generation = m_generation.load(std::memory_order_acquire);
    // Clips are silenced one by one: a clip from after a stop that is not seen here yet may be inside.
    while (m_writtenCount > 0 && m_written[m_firstWritten].clip->generation < generation)
        finishFirstWritten();
    std::size_t filled = 0;
    if (m_current != nullptr && m_current->generation < generation)
        filled = cutOff(samples);

    while (filled < samples.size() && (m_current != nullptr || beginNext(generation))) {
        const auto count = std::min(samples.size() - filled, m_current->samples.size() - m_offset);
        std::copy_n(m_current->samples.data() + m_offset, count, samples.data() + filled);
        filled += count;
        m_offset += count;
        if (m_offset == m_current->samples.size())
            endCurrent(m_position + static_cast<std::int64_t>(filled));
    }
    std::fill(samples.begin() + static_cast<std::ptrdiff_t>(filled), samples.end(), 0.0F);
    m_position += static_cast<std::int64_t>(samples.size());
    ringIfFinished();
}

void SpeechMixer::heard(std::int64_t frames) noexcept {
    // The stream's clock is estimated and may step back.
    if (frames <= m_heard.load(std::memory_order_relaxed))
        return;
    m_heard.store(frames, std::memory_order_relaxed);
    while (m_writtenCount > 0 && m_written[m_firstWritten].end <= frames)
        finishFirstWritten();
    ringIfFinished();
}

void SpeechMixer::playbackOpened() noexcept {
    // The last stream never plays what it had not played out.
    while (m_writtenCount > 0)
        finishFirstWritten();
    m_position = 0;
    m_speechEnd = 0;
    m_heard.store(0, std::memory_order_relaxed);
    ringIfFinished();
}

/// Fades the rest of the current clip out, so that the end does not click; returns how many samples that took.
std::size_t SpeechMixer::cutOff(std::span<float> samples) noexcept {
    const auto count = std::min({samples.size(), m_current->samples.size() - m_offset, fadeSize});
    for (std::size_t i = 0; i < count; ++i)
        samples[i] = m_current->samples[m_offset + i] * (static_cast<float>(count - i) / static_cast<float>(count + 1));
    finish(m_current);
    m_current = nullptr;
    return count;
}

/// Makes the next clip that has sound the current one, if there is any.
bool SpeechMixer::beginNext(quint64 generation) noexcept {
    while (m_submitted.pop(m_current)) {
        m_offset = 0;
        if (m_current->generation < generation) {
            finish(m_current);
            m_current = nullptr;
        } else if (m_current->samples.empty()) {
            endCurrent(m_speechEnd);
        } else {
            return true;
        }
    }
    return false;
}

/// The current clip has been written, and is over once `position` has been heard.
void SpeechMixer::endCurrent(std::int64_t position) noexcept {
    m_speechEnd = position;
    if (m_writtenCount == 0 && position <= m_heard.load(std::memory_order_relaxed)) {
        finish(m_current);
    } else {
        m_written[(m_firstWritten + m_writtenCount) % maximumClips] = {m_current, position};
        ++m_writtenCount;
    }
    m_current = nullptr;
}

void SpeechMixer::finishFirstWritten() noexcept {
    finish(m_written[m_firstWritten].clip);
    m_firstWritten = (m_firstWritten + 1) % maximumClips;
    --m_writtenCount;
}

void SpeechMixer::finish(SpeechClip *clip) noexcept {
    m_finished.push(clip);
    m_hasFinished = true;
}

void SpeechMixer::ringIfFinished() noexcept {
    if (m_hasFinished && m_bell != nullptr)
        m_bell->raise();
    m_hasFinished = false;
}

} // namespace palomet
