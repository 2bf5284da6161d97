#include "audio/echo/FourierTransform.h"

#include <cmath>
#include <numbers>
#include <utility>

namespace palomet::echo {

FourierTransform::FourierTransform() {
    for (std::size_t i = 0; i < half; ++i) {
        const double angle = 2 * std::numbers::pi * static_cast<double>(i) / size;
        m_cosines[i] = static_cast<float>(std::cos(angle));
        m_sines[i] = static_cast<float>(std::sin(angle));
    }
}

void FourierTransform::transform(std::span<const float, size> samples, Spectrum &spectrum) const noexcept {
    // Even samples are the real parts, odd ones the imaginary.
    Complex from;
    Complex to;
    for (std::size_t i = 0; i < half; ++i) {
        from.real[i] = samples[2 * i];
        from.imaginary[i] = samples[2 * i + 1];
    }
    Complex *in = &from;
    Complex *out = &to;
    for (std::size_t groups = half / 2, stride = 1; groups >= 1; groups /= 2, stride *= 2) {
        for (std::size_t group = 0; group < groups; ++group) {
            const float cosine = m_cosines[group * 2 * stride];
            const float sine = m_sines[group * 2 * stride];
            const std::size_t a = group * stride;
            const std::size_t b = a + groups * stride;
            const std::size_t low = 2 * group * stride;
            const std::size_t high = low + stride;
            for (std::size_t i = 0; i < stride; ++i) {
                const float real = in->real[a + i] - in->real[b + i];
                const float imaginary = in->imaginary[a + i] - in->imaginary[b + i];
                out->real[low + i] = in->real[a + i] + in->real[b + i];
                out->imaginary[low + i] = in->imaginary[a + i] + in->imaginary[b + i];
                out->real[high + i] = cosine * real + sine * imaginary;
                out->imaginary[high + i] = cosine * imaginary - sine * real;
            }
        }
        std::swap(in, out);
    }
    // Apart again: the even samples' transform, and the odd ones' turned by half a sample.
    spectrum.real[0] = in->real[0] + in->imaginary[0];
    spectrum.imaginary[0] = 0;
    spectrum.real[half] = in->real[0] - in->imaginary[0];
    spectrum.imaginary[half] = 0;
    for (std::size_t i = 1; i < half; ++i) {
        const std::size_t mirror = half - i;
        const float evenReal = 0.5F * (in->real[i] + in->real[mirror]);
        const float evenImaginary = 0.5F * (in->imaginary[i] - in->imaginary[mirror]);
        const float oddReal = 0.5F * (in->imaginary[i] + in->imaginary[mirror]);
        const float oddImaginary = 0.5F * (in->real[mirror] - in->real[i]);
        spectrum.real[i] = evenReal + m_cosines[i] * oddReal + m_sines[i] * oddImaginary;
        spectrum.imaginary[i] = evenImaginary + m_cosines[i] * oddImaginary - m_sines[i] * oddReal;
    }
}

} // namespace palomet::echo
