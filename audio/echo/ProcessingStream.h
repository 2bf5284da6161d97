#pragma once

#include "audio/echo/Samples.h"

#include <algorithm>
#include <utility>

namespace palomet::echo {

/// Frames on their way through a library's audio processing, which every library takes alike though each comes with
/// headers of its own: `Processing` owns what is processed with, `Format` says what a stream is like.
template <typename Processing, typename Format>
class ProcessingStream {
public:
    /// Told the format now, the library allocates nothing when the first frame comes. Its settings are made before.
    explicit ProcessingStream(Processing processing)
        : m_processing(std::move(processing)) {
        m_processing->Initialize({{m_format, m_format, m_format, m_format}});
    }

    void render(FrameView reference) noexcept {
        EchoCanceller::Frame frame;
        std::copy(reference.begin(), reference.end(), frame.begin());
        float *channel = frame.data();
        m_processing->ProcessReverseStream(&channel, m_format, m_format, &channel);
    }

    /// Makes of the microphone's frame what the library gives for it.
    void capture(EchoCanceller::Frame &frame, int delayHintMs) noexcept {
        float *channel = frame.data();
        m_processing->set_stream_delay_ms(delayHintMs);
        m_processing->ProcessStream(&channel, m_format, m_format, &channel);
    }

    [[nodiscard]] auto &processing() noexcept { return *m_processing; }

private:
    Processing m_processing;
    const Format m_format{48000, 1};
};

} // namespace palomet::echo
