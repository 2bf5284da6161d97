#pragma once

#include <array>
#include <span>

namespace palomet::echo {

/// The discrete Fourier transform of 512 real samples, by one of 256 complex ones in Stockham's order, whose inner
/// loops are vectorised (C. Van Loan, Computational Frameworks for the Fast Fourier Transform, 1.7 and 4.3).
class FourierTransform {
public:
    static constexpr std::size_t size = 512;
    static constexpr std::size_t bins = size / 2 + 1;

    struct Spectrum {
        std::array<float, bins> real{};
        std::array<float, bins> imaginary{};
    };

    FourierTransform();

    void transform(std::span<const float, size> samples, Spectrum &spectrum) const noexcept;

private:
    static constexpr std::size_t half = size / 2;
    struct Complex {
        std::array<float, half> real;
        std::array<float, half> imaginary;
    };

    std::array<float, half> m_cosines; ///< Of whole circles by 512.
    std::array<float, half> m_sines;
};

} // namespace palomet::echo
