#include "hosts/spectrum/spectrum.h"

#include <fftw3.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <memory>
#include <numbers>

namespace orvane {

namespace {

struct Free {
    void operator()(double* memory) const {
        fftw_free(memory);
    }
    void operator()(fftw_complex* memory) const {
        fftw_free(memory);
    }
    void operator()(fftw_plan plan) const {
        fftw_destroy_plan(plan);
    }
};

/// Each window is a sum of cosines, with alternating signs.
constexpr std::array<std::array<double, 5>, 5> cosines{
    {{0.5, 0.5},
     {0.54, 0.46},
     {0.42, 0.5, 0.08},
     {0.21557895, 0.41663158, 0.277263158, 0.083578947, 0.006947368},
     {1.0}}};

double WeightOf(SpectrumWindow window, double part) {
    double weight = 0.0;
    double sign = 1.0;
    for (size_t k = 0; k < cosines[0].size(); ++k) {
        weight += sign * cosines.at(static_cast<size_t>(window)).at(k) *
                  std::cos(2.0 * std::numbers::pi * static_cast<double>(k) * part);
        sign = -sign;
    }
    return weight;
}

} // namespace

Spectrum SpectrumOf(std::span<const double> samples, double periodSec, SpectrumWindow window,
                    size_t most) {
    const size_t count = std::min(samples.size(), most);
    if (count < 2) {
        return {};
    }
    const size_t lines = count / 2 + 1;
    const std::unique_ptr<double, Free> in(fftw_alloc_real(count));
    const std::unique_ptr<fftw_complex, Free> out(fftw_alloc_complex(lines));
    const std::unique_ptr<std::remove_pointer_t<fftw_plan>, Free> plan(fftw_plan_dft_r2c_1d(
        static_cast<int>(count), in.get(), out.get(), FFTW_ESTIMATE | FFTW_DESTROY_INPUT));
    const double mean = [&] {
        double sum = 0.0;
        for (const double sample : samples.first(count)) {
            sum += sample;
        }
        return sum / static_cast<double>(count);
    }();
    double weights = 0.0;
    for (size_t i = 0; i < count; ++i) {
        const double weight = WeightOf(window, static_cast<double>(i) / static_cast<double>(count));
        weights += weight;
        in.get()[i] = weight * (samples[i] - mean); // The mean would spread over low lines.
    }
    fftw_execute(plan.get());
    Spectrum spectrum{1.0 / (static_cast<double>(count) * periodSec), std::vector<double>(lines)};
    for (size_t line = 1; line < lines; ++line) {
        const auto& value = out.get()[line];
        const bool isLast = 2 * line == count;
        spectrum.Amplitudes[line] = (isLast ? 1.0 : 2.0) * std::hypot(value[0], value[1]) / weights;
    }
    spectrum.Amplitudes[0] = std::abs(mean);
    return spectrum;
}

double PeakFrequencyHz(const Spectrum& spectrum) {
    const std::vector<double>& lines = spectrum.Amplitudes;
    if (lines.size() < 3) {
        return 0.0;
    }
    const auto peak =
        static_cast<size_t>(std::max_element(lines.begin() + 1, lines.end()) - lines.begin());
    if (!(lines[peak] > 0.0)) {
        return 0.0;
    }
    double between = 0.0;
    if (peak + 1 < lines.size() && peak > 1) { // A parabola through the three highest lines.
        const double left = lines[peak - 1];
        const double right = lines[peak + 1];
        const double bend = left - 2.0 * lines[peak] + right;
        between = bend < 0.0 ? (left - right) / (2.0 * bend) : 0.0;
    }
    return (static_cast<double>(peak) + between) * spectrum.StepHz;
}

} // namespace orvane
