#include "audio/echo/MaskFeatures.h"

#include "audio/echo/Approximations.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace palomet::echo {
namespace {

constexpr float smoothing = 0.8F;
constexpr float scale = 1.0F / 65536;
constexpr float floor = 0x1p-40F;
constexpr float nothing = 1e-30F; // Numbers that have died away further would be slow.

/// 24 dB a unit, 0 at a very soft sound.
float level(float energy) {
    return (binaryLogarithm(energy + floor) + 24) * 0.125F;
}

} // namespace

MaskFeatures::MaskFeatures() {
    for (std::size_t i = 0; i < window; ++i) {
        const double angle = 2 * std::numbers::pi * static_cast<double>(i) / window;
        m_shape[i] = static_cast<float>(std::sqrt(0.5 - 0.5 * std::cos(angle)));
    }
}

void MaskFeatures::transform(std::size_t which, const LowFrame &frame, FourierTransform::Spectrum &spectrum) noexcept {
    Window samples{};
    auto &before = m_before[which];
    for (std::size_t i = 0; i < lowFrameSize; ++i) {
        samples[i] = m_shape[i] * before[i];
        samples[lowFrameSize + i] = m_shape[lowFrameSize + i] * frame[i];
    }
    before = frame;
    m_fourier.transform(samples, spectrum);
}

const MaskFeatures::Values &MaskFeatures::process(const MaskSignals &signals) noexcept {
    transform(0, signals.linear, m_linear);
    // Of the difference itself: that of two transforms would be their rounding where the two signals are alike.
    LowFrame echo;
    for (std::size_t i = 0; i < lowFrameSize; ++i)
        echo[i] = signals.microphone[i] - signals.linear[i];
    transform(1, echo, m_echo);
    transform(2, signals.suppressed, m_suppressed);

    MaskBands::Each<Sums> sums{};
    for (std::size_t bin = 0; bin < FourierTransform::bins; ++bin) {
        const float real = m_linear.real[bin];
        const float imaginary = m_linear.imaginary[bin];
        const float echoReal = m_echo.real[bin];
        const float echoImaginary = m_echo.imaginary[bin];
        const float passedReal = m_suppressed.real[bin];
        const float passedImaginary = m_suppressed.imaginary[bin];
        const float heardReal = real + echoReal;
        const float heardImaginary = imaginary + echoImaginary;
        const Sums here{real * real + imaginary * imaginary,
                        heardReal * heardReal + heardImaginary * heardImaginary,
                        passedReal * passedReal + passedImaginary * passedImaginary,
                        echoReal * echoReal + echoImaginary * echoImaginary,
                        real * echoReal + imaginary * echoImaginary,
                        imaginary * echoReal - real * echoImaginary};
        const auto &[band, upperShare] = m_bands.places()[bin];
        const float lowerShare = 1 - upperShare;
        for (std::size_t i = 0; i < quantities; ++i) {
            sums[band][i] += lowerShare * here[i];
            sums[band + 1U][i] += upperShare * here[i];
        }
    }

    for (std::size_t band = 0; band < MaskBands::count; ++band) {
        auto &smoothed = m_smoothed[band];
        for (std::size_t i = 0; i < quantities; ++i) {
            sums[band][i] *= scale;
            const float next = smoothing * smoothed[i] + (1 - smoothing) * sums[band][i];
            smoothed[i] = std::abs(next) < nothing ? 0 : next;
        }
        for (std::size_t i = Linear; i <= Echo; ++i)
            m_values[i * MaskBands::count + band] = level(sums[band][i]);
        const float cross =
            smoothed[CrossReal] * smoothed[CrossReal] + smoothed[CrossImaginary] * smoothed[CrossImaginary];
        m_values[(Echo + 1) * MaskBands::count + band] = cross / (smoothed[Linear] * smoothed[Echo] + floor * floor);
    }
    return m_values;
}

} // namespace palomet::echo
