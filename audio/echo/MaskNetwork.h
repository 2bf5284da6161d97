#pragma once

#include "audio/echo/MaskWeights.h"

#include <memory>

namespace palomet::echo {

/// The network of a mask: a dense layer with a hyperbolic tangent, a gated recurrent one (K. Cho et al., Learning
/// phrase representations using RNN encoder-decoder, 2014; the reset gate behind the recurrent weights), a dense one
/// with sigmoids. Not thread-safe; `process` neither allocates, locks nor waits. The same bits for the same input on
/// every processor of a kind.
class MaskNetwork {
public:
    struct Output {
        MaskBands::Each<float> gains; ///< Of the linear output's bands, 0 to 1.
        float voice;                  ///< How likely it is that somebody here talks, 0 to 1.
    };

    explicit MaskNetwork(std::shared_ptr<const MaskWeights> weights);

    Output process(const MaskFeatures::Values &features) noexcept;

private:
    std::shared_ptr<const MaskWeights> m_weights;
    std::array<float, MaskWeights::units> m_memory{};
};

} // namespace palomet::echo
