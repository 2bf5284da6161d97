#pragma once

#include "audio/speech/ClipDecoder.h"
#include "audio/speech/ClipId.h"
#include "base/SpscRing.h"

#include <QtGlobal>

#include <array>
#include <atomic>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>

namespace palomet {

class Wakeup;

/// One decoded clip on its way through the speakers.
struct SpeechClip {
    ClipId id;
    quint64 generation = 0; ///< Grows with every stop; a clip belongs to the one in which it was asked for.
    ClipSamples samples;
};

/// The speakers' side of speech: plays clips one after the other without a gap and gives each back when its last frame
/// has left the speakers. Three threads meet here, each with its own calls; none ever waits for another.
class SpeechMixer {
public:
    /// The most clips that may be inside, from `submit` to `takeFinished`.
    static constexpr std::size_t maximumClips = 256;
    /// How much of a clip still sounds, fading, when it is cut off: 4 ms.
    static constexpr std::size_t fadeSize = 192;

    SpeechMixer() = default;
    SpeechMixer(const SpeechMixer &) = delete;
    SpeechMixer &operator=(const SpeechMixer &) = delete;
    /// The streams are closed and nobody submits or takes any more.
    ~SpeechMixer();

    /// Rung when `takeFinished` has something to give. Changed only while the playback stream is closed.
    void setBell(Wakeup *bell) { m_bell = bell; }

    /// One thread, the decoding one: `clip` follows those submitted before it.
    void submit(std::unique_ptr<SpeechClip> clip);

    /// One thread, the collecting one: the clips that are over, heard to the end or cut off, in the order in which they
    /// were submitted. Null when there is none.
    std::unique_ptr<SpeechClip> takeFinished();

    /// Any thread: clips of earlier generations fall silent with the next samples that the speakers ask for.
    void silenceBefore(quint64 generation) { m_generation.store(generation, std::memory_order_release); }

    /// Any thread: how far the playback stream has been heard. Changes as long as the sound server is alive.
    [[nodiscard]] std::int64_t framesHeard() const { return m_heard.load(std::memory_order_relaxed); }

    // Real-time thread, as `SoundStreams` has them.
    void fill(std::span<float> samples) noexcept;
    void heard(std::int64_t frames) noexcept;
    void playbackOpened() noexcept;

private:
    /// A clip that was handed to the speakers whole.
    struct Written {
        SpeechClip *clip;
        std::int64_t end; ///< The stream's position behind its last frame.
    };

    std::size_t cutOff(std::span<float> samples) noexcept;
    bool beginNext(quint64 generation) noexcept;
    void endCurrent(std::int64_t position) noexcept;
    void finishFirstWritten() noexcept;
    void finish(SpeechClip *clip) noexcept;
    void ringIfFinished() noexcept;

    SpscRing<SpeechClip *> m_submitted{maximumClips};
    SpscRing<SpeechClip *> m_finished{maximumClips};
    std::atomic<quint64> m_generation{0};
    std::atomic<std::int64_t> m_heard{0};
    Wakeup *m_bell = nullptr;

    // The real-time thread's own.
    SpeechClip *m_current = nullptr;
    std::size_t m_offset = 0; ///< Of the current clip's next sample.
    std::array<Written, maximumClips> m_written{};
    std::size_t m_firstWritten = 0;
    std::size_t m_writtenCount = 0;
    std::int64_t m_position = 0;  ///< Frames given since the stream was opened.
    std::int64_t m_speechEnd = 0; ///< Behind the last frame of the last clip that had any.
    bool m_hasFinished = false;   ///< Since the bell was rung.
};

} // namespace palomet
