#include "audio/echo/LowBand.h"

#include <modules/audio_processing/audio_buffer.h>
#include <modules/audio_processing/high_pass_filter.h>
#include <modules/audio_processing/include/audio_processing.h>

#include <algorithm>

namespace palomet::echo {

namespace {

constexpr int fullRate = 48000;
constexpr int blockDelay = 64; // By which the library's frames are late once they were cut into blocks.
constexpr float fullScale = 32768;

} // namespace

struct LowBand::Parts {
    webrtc::AudioBuffer buffer{fullRate, 1, fullRate, 1, fullRate, 1};
    webrtc::HighPassFilter highPass{fullRate, 1};
    webrtc::StreamConfig format{fullRate, 1};
    std::array<float, blockDelay + frameSize> samples{}; ///< The past, then this frame.
};

LowBand::LowBand()
    : m_parts(std::make_unique<Parts>()) {}

LowBand::~LowBand() = default;

LowBand::Frame LowBand::process(FrameView samples) noexcept {
    auto &[buffer, highPass, format, band] = *m_parts;
    const float *channel = samples.data();
    buffer.CopyFrom(&channel, format);
    highPass.Process(&buffer, false);
    buffer.SplitIntoFrequencyBands();
    std::copy(band.end() - blockDelay, band.end(), band.begin());
    std::transform(buffer.split_bands_const(0)[0], buffer.split_bands_const(0)[0] + frameSize,
                   band.begin() + blockDelay, [](float sample) { return sample / fullScale; });
    Frame frame;
    std::copy_n(band.begin(), frameSize, frame.begin());
    return frame;
}

} // namespace palomet::echo
