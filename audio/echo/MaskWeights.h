#pragma once

#include "audio/echo/MaskFeatures.h"
#include "base/Result.h"

#include <QByteArrayView>
#include <QString>

#include <array>
#include <memory>

namespace palomet::echo {

/// What a mask has learned: 270 KB, made by `training/echo` and read once, at the program's start.
///
/// The file: "PALOMASK"; then, each in four bytes, the lowest first, the version of the format, how many features,
/// units and outputs there are; the SHA-256 of what follows; and all weights as numbers of 16 bits (IEEE 754 binary16),
/// the layers in the order of use, of each first the weights, all of one output after all of another, then the biases.
/// The three parts of the recurrent layer are reset, update and candidate.
struct MaskWeights {
    static constexpr std::size_t features = MaskFeatures::count;
    static constexpr std::size_t units = 96;
    static constexpr std::size_t outputs = MaskBands::count + 1; ///< The last one: whether somebody here talks.

    /// A layer, all of one input after all of another: so its loops are vectorised over outputs.
    template <std::size_t InputCount, std::size_t OutputCount>
    struct Layer {
        std::array<std::array<float, OutputCount>, InputCount> weights{};
        std::array<float, OutputCount> biases{};
    };

    Layer<features, units> entry;
    Layer<units, 3 * units> input;     ///< Of the recurrent layer.
    Layer<units, 3 * units> recurrent; ///< What it makes of its own last output.
    Layer<units, outputs> exit;

    /// What a file holds, or why it does not.
    static Result<std::shared_ptr<const MaskWeights>> parse(QByteArrayView file);
    /// That of "echo-mask.bin" in the resource folder. Not on the sound thread.
    static Result<std::shared_ptr<const MaskWeights>> read(const QString &resources);
};

} // namespace palomet::echo
