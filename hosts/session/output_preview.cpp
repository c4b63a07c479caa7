#include "hosts/session/output_preview.h"

#include "hosts/session/host_error.h"
#include "hosts/session/number_text.h"
#include "hosts/session/translation.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace orvane {

namespace {

constexpr double mostPoints = 10000.0;
constexpr double nsPerSec = 1e9;

/// The driver sends whole nanoseconds, cut off.
double WholeNs(double seconds) {
    constexpr double longestNs = 4294967295.0;
    return std::min(std::floor(seconds * nsPerSec), longestNs) / nsPerSec;
}

/// An even number, so that a square has halves; below 2 there is no signal.
size_t PointsOf(double frequencyHz, double shortestStepSec) {
    const double step = std::round(shortestStepSec * nsPerSec) * 1e-9; // to the last bit
    const double points = std::min(mostPoints, (1.0 / frequencyHz) / step);
    return points >= 2.0 ? static_cast<size_t>(points) & ~size_t{1} : 0;
}

/// Up from the middle, down from the top, up to the middle.
double TriangleAt(size_t point, size_t points) {
    const double half = static_cast<double>(points) / 2.0;
    const auto since = [&](size_t from) { return static_cast<double>(point - from) / half; };
    const size_t top = points / 4;
    const size_t bottom = 3 * points / 4;
    return point < top ? since(0) : point < bottom ? 0.5 - since(top) : since(bottom) - 0.5;
}

/// From -0.5 to 0.5.
double ShapeAt(const std::string& shape, size_t point, size_t points) {
    if (shape == "square") {
        return point < points / 2 ? -0.5 : 0.5;
    }
    if (shape == "sine") {
        return 0.5 * std::sin(2.0 * std::numbers::pi * static_cast<double>(point) /
                              static_cast<double>(points));
    }
    return TriangleAt(point, points);
}

void CutToRange(PlannedSignal& planned, const OutputLimits& limits) {
    size_t cut = 0;
    planned.Played = planned.Asked;
    for (double& value : planned.Played) {
        const double within = std::clamp(value, limits.Least, limits.Most);
        cut += within != value ? 1 : 0;
        value = within;
    }
    planned.CutPart = static_cast<double>(cut) / static_cast<double>(planned.Played.size());
}

} // namespace

OutputLimits LimitsOf(const DriverExports& driver) {
    OutputLimits limits{.Least = driver.GetOutValMin(), .Most = driver.GetOutValMax()};
    double ignored = 0.0;
    driver.KiroDACParam(0, &ignored, &ignored, &limits.HighestHz);
    return limits;
}

PlannedSignal PlanSignal(const OutputSignal& signal, const OutputLimits& limits) {
    const bool isPlayable = signal.FrequencyHz > 0.0 && signal.FrequencyHz <= limits.HighestHz;
    const size_t points = isPlayable ? PointsOf(signal.FrequencyHz, limits.ShortestStepSec) : 0;
    if (points == 0) {
        throw WrongArgument(Translated(
            "The frequency %s Hz is outside the range of the outputs, above 0 and up to %s Hz.",
            {NumberText(signal.FrequencyHz),
             NumberText(std::min(limits.HighestHz, 0.5 / limits.ShortestStepSec))}));
    }
    if (signal.High() < limits.Least || signal.Low() > limits.Most) {
        throw WrongArgument(
            Translated("%s is outside the range of the outputs, %s.",
                       {signal.Amplitude == 0.0 ? NumberText(signal.Offset)
                                                : RangeText(signal.Low(), signal.High()),
                        RangeText(limits.Least, limits.Most)}));
    }
    PlannedSignal planned;
    planned.StepSec = WholeNs((1.0 / signal.FrequencyHz) / static_cast<double>(points));
    planned.Asked.reserve(points);
    for (size_t point = 0; point < points; ++point) {
        planned.Asked.push_back(signal.Offset +
                                signal.Amplitude * ShapeAt(signal.Shape, point, points));
    }
    CutToRange(planned, limits);
    return planned;
}

PlannedSignal PlanCodes(const OutputCodes& codes, const OutputLimits& limits) {
    PlannedSignal planned;
    planned.StepSec = std::round(codes.StepSec * nsPerSec) / nsPerSec;
    if (codes.Codes.empty() || !(planned.StepSec >= limits.ShortestStepSec)) {
        throw WrongArgument(Translated("The time of a point is %s s or more.",
                                       {NumberText(limits.ShortestStepSec)}));
    }
    constexpr double highestCode = 4095.0;
    const double width = limits.Most - limits.Least;
    for (const int32_t code : codes.Codes) {
        planned.Asked.push_back(limits.Least + static_cast<double>(code) / highestCode * width);
    }
    CutToRange(planned, limits);
    return planned;
}

} // namespace orvane
