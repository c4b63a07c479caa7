#include "output/signal_computation.h"

#include <algorithm>
#include <cmath>
#include <cstddef>

namespace orvane {

namespace {

constexpr double maxPoints = 10000.0;
constexpr double shortestStepSec = 1e-9;
constexpr double fullTurn = 6.283185307179586;
constexpr double highestCode = 4095.0;

double Clamp(double value, OutputRange range) {
    return value > range.ValMax ? range.ValMax : std::max(range.ValMin, value);
}

/// One slope of a triangle, from its first value on.
void FillRamp(std::span<double> run, double value, double step, OutputRange range) {
    for (double& sample : run) {
        sample = Clamp(value, range);
        value += step;
    }
}

} // namespace

std::optional<int32_t> PointsPerPeriod(double frequence, uint32_t tempsMinNs) {
    if (!(frequence > 0.0)) {
        return std::nullopt;
    }
    const double step = std::max(shortestStepSec, tempsMinNs * 1e-9);
    const double points = std::min(maxPoints, (1.0 / frequence) / step);
    if (points < 1.0) {
        return std::nullopt;
    }
    return static_cast<int32_t>(points) & ~1;
}

void FillSquare(std::span<double> period, double amplitude, double offset, OutputRange range) {
    const double low = std::max(range.ValMin, offset - amplitude * 0.5);
    const double high = std::min(range.ValMax, offset + amplitude * 0.5);
    const std::size_t half = period.size() / 2;
    std::ranges::fill(period.first(half), low);
    std::ranges::fill(period.subspan(half), high);
}

void FillSine(std::span<double> period, double amplitude, double offset, OutputRange range) {
    const double step = fullTurn / static_cast<double>(period.size());
    double theta = 0.0;
    for (double& sample : period) {
        sample = Clamp(std::sin(theta) * (amplitude * 0.5) + offset, range);
        theta += step;
    }
}

void FillTriangle(std::span<double> period, double amplitude, double offset, OutputRange range) {
    const std::size_t points = period.size();
    const std::size_t half = points / 2;
    const double step = amplitude / static_cast<double>(half);
    const std::size_t top = points / 4;
    const std::size_t bottom = 3 * points / 4;
    FillRamp(period.first(top), offset, step, range);
    FillRamp(period.subspan(top, bottom - top), offset + amplitude * 0.5, -step, range);
    FillRamp(period.subspan(bottom), offset - amplitude * 0.5, step, range);
}

void FillFromCodes(std::span<double> samples, const int32_t* codes, OutputRange range) {
    const double width = range.ValMax - range.ValMin;
    std::ranges::transform(codes, codes + samples.size(), samples.begin(), [width](int32_t code) {
        return (code / highestCode) * width - 0.5 * width;
    });
}

} // namespace orvane
