#pragma once

#include <span>

namespace palomet::echo {

/// Fills one phase of a filter that gives the values between samples. Its tap `i` is the value at `first + i * spacing`
/// of a sinc that is zero at every multiple of `spacing` but 0, cut to `reach` on either side by Kaiser's window for
/// 60 dB (A. V. Oppenheim, R. W. Schafer, Discrete-Time Signal Processing, 3rd ed., 7.5.3). Every phase passes a
/// constant alike: where phases take turns, it would otherwise come out with a tone on it.
void fillWithWindowedSinc(std::span<float> taps, double first, double spacing, double reach);

} // namespace palomet::echo
