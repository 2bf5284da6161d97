#pragma once

#include "audio/echo/BandFilter.h"
#include "audio/echo/MaskFeatures.h"
#include "audio/echo/MaskNetwork.h"

#include <memory>

namespace palomet::echo {

/// Takes the echo that a linear filter leaves out of its output, and nothing of who talks here: a learned gain for
/// each band of each frame of 10 ms, and silence, every sample 0, while nobody here talks. Not thread-safe; `process`
/// neither allocates, locks nor waits.
class SpeechMask {
public:
    static constexpr std::size_t delay = BandFilter::delay; ///< Of what comes out behind the linear output, in samples.

    explicit SpeechMask(std::shared_ptr<const MaskWeights> weights)
        : m_network(std::move(weights)) {}

    /// Without any echo the linear output is given as it is, for who talks softly is not to be taken for an echo.
    const LowFrame &process(const MaskSignals &signals, bool hasEcho = true) noexcept;

private:
    MaskFeatures m_features;
    MaskNetwork m_network;
    BandFilter m_filter;
    LowFrame m_masked{};
    int m_heldFrames = 0; ///< For which somebody counts as talking still.
    float m_openness = 0;
};

} // namespace palomet::echo
