#pragma once

#include "audio/echo/FourierTransform.h"
#include "audio/echo/MaskBands.h"
#include "audio/echo/MaskSignals.h"

#include <array>

namespace palomet::echo {

/// What a mask goes by, of each frame of 10 ms at 16 kHz: in each band the level of the linear output, of the
/// microphone, of the suppressed output and of the echo as the linear filter takes it to be (the microphone less the
/// linear output), and how alike the first and the last are. `training/echo/features.py` makes the same numbers.
class MaskFeatures {
public:
    static constexpr std::size_t count = 5 * MaskBands::count;
    using Values = std::array<float, count>;

    MaskFeatures();

    const Values &process(const MaskSignals &signals) noexcept;

private:
    static constexpr std::size_t window = 2 * lowFrameSize;
    /// What is summed up by band.
    enum Quantity { Linear, Microphone, Suppressed, Echo, CrossReal, CrossImaginary };
    static constexpr std::size_t quantities = 8; ///< Two more, that they fill whole vectors.
    using Sums = std::array<float, quantities>;
    using Window = std::array<float, FourierTransform::size>;

    void transform(std::size_t which, const LowFrame &frame, FourierTransform::Spectrum &spectrum) noexcept;

    FourierTransform m_fourier;
    MaskBands m_bands;
    std::array<float, window> m_shape;
    std::array<LowFrame, 3> m_before{}; ///< The frames before the current ones.
    FourierTransform::Spectrum m_linear;
    FourierTransform::Spectrum m_echo;
    FourierTransform::Spectrum m_suppressed;
    MaskBands::Each<Sums> m_smoothed{};
    Values m_values{};
};

} // namespace palomet::echo
