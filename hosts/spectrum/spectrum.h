#pragma once

#include <cstddef>
#include <span>
#include <vector>

namespace orvane {

/// The weight of samples that keeps a spectrum from spreading.
enum class SpectrumWindow { Hann, Hamming, Blackman, FlatTop, Rectangular };

/// The amplitudes of the sines of which a stretch of samples is made: that of a sine of amplitude 1
/// in the middle of a line is 1, whatever the window. The first line is the mean.
struct Spectrum {
    double StepHz = 0.0; ///< Between two lines.
    std::vector<double> Amplitudes;
};

/// The spectrum of samples. Of more than `most` it takes the first ones. Fewer than two give none.
Spectrum SpectrumOf(std::span<const double> samples, double periodSec, SpectrumWindow window,
                    size_t most = size_t{1} << 20U);

/// The frequency of the highest line but the mean, between the lines; 0 if there is none.
double PeakFrequencyHz(const Spectrum& spectrum);

} // namespace orvane
