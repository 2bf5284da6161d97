#pragma once

#include <complex>
#include <vector>

namespace palomet::bench {

using Spectrum = std::vector<std::complex<double>>;

/// Discrete Fourier transform in place, and its inverse; the size is a power of two. (J. W. Cooley, J. W. Tukey, An
/// algorithm for the machine calculation of complex Fourier series, 1965.)
void transform(Spectrum &values);
void transformBack(Spectrum &values);

} // namespace palomet::bench
