#pragma once

#include "audio/echo/FourierTransform.h"

#include <array>
#include <cstdint>

namespace palomet::echo {

/// The bands that a mask has a gain for: 22 triangles from 60 Hz to 7.6 kHz at 16 kHz, their tops evenly apart on the
/// scale of equivalent rectangular bandwidths (B. R. Glasberg, B. C. J. Moore, Derivation of auditory filter shapes
/// from notched-noise data, 1990), the outer ones flat to the ends. At every frequency their sum is 1.
class MaskBands {
public:
    static constexpr std::size_t count = 22;
    template <typename Value>
    using Each = std::array<Value, count>;

    MaskBands();

    /// Each bin lies in a band and the next one: in this one by 1 less `upperShare`.
    struct Place {
        std::uint8_t band;
        float upperShare;
    };
    [[nodiscard]] const std::array<Place, FourierTransform::bins> &places() const { return m_places; }

private:
    std::array<Place, FourierTransform::bins> m_places;
};

} // namespace palomet::echo
