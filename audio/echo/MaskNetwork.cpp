#include "audio/echo/MaskNetwork.h"

#include "audio/echo/Approximations.h"

#include <algorithm>
#include <cassert>
#include <utility>

namespace palomet::echo {
namespace {

template <std::size_t InputCount, std::size_t OutputCount>
std::array<float, OutputCount> weighted(const MaskWeights::Layer<InputCount, OutputCount> &layer,
                                        const std::array<float, InputCount> &inputs) noexcept {
    auto sums = layer.biases;
    for (std::size_t i = 0; i < InputCount; ++i) {
        for (std::size_t output = 0; output < OutputCount; ++output)
            sums[output] += layer.weights[i][output] * inputs[i];
    }
    return sums;
}

} // namespace

MaskNetwork::MaskNetwork(std::shared_ptr<const MaskWeights> weights)
    : m_weights(std::move(weights)) {
    assert(m_weights != nullptr);
}

MaskNetwork::Output MaskNetwork::process(const MaskFeatures::Values &features) noexcept {
    constexpr auto units = MaskWeights::units;
    auto entered = weighted(m_weights->entry, features);
    for (float &value : entered)
        value = hyperbolicTangent(value);

    const auto input = weighted(m_weights->input, entered);
    const auto recurrent = weighted(m_weights->recurrent, m_memory);
    for (std::size_t i = 0; i < units; ++i) {
        const float reset = sigmoid(input[i] + recurrent[i]);
        const float update = sigmoid(input[units + i] + recurrent[units + i]);
        const float candidate = hyperbolicTangent(input[2 * units + i] + reset * recurrent[2 * units + i]);
        m_memory[i] = candidate + update * (m_memory[i] - candidate);
    }

    const auto exit = weighted(m_weights->exit, m_memory);
    Output output{};
    std::transform(exit.begin(), exit.end() - 1, output.gains.begin(), sigmoid);
    output.voice = sigmoid(exit.back());
    return output;
}

} // namespace palomet::echo
