#include "hosts/plot/axis_ticks.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>

namespace orvane {

namespace {

constexpr double leastTicks = 3.0;
constexpr double mostTicks = 1000.0;
constexpr double shortestSpan = 1e-290; // below, a step could become 0
constexpr double slack = 1e-9;          // of a step: what rounding may take from an end of the axis

size_t CountOf(AxisRange range, double step) {
    const double first = std::ceil(range.From / step - slack);
    const double last = std::floor(range.To / step + slack);
    return static_cast<size_t>(std::clamp(last - first + 1.0, 0.0, mostTicks));
}

/// The next step that is shorter: 5 after 10, 2 after 5, 1 after 2.
double Shorter(double step) {
    const double power = std::pow(10.0, std::floor(std::log10(step) + slack));
    const double digit = step / power;
    return digit > 4.0 ? 2.0 * power : digit > 1.5 ? power : power / 2.0;
}

double StepAtLeast(double rough) {
    const double power = std::pow(10.0, std::floor(std::log10(rough)));
    const double digit = rough / power;
    return power * (digit <= 1.0 ? 1.0 : digit <= 2.0 ? 2.0 : digit <= 5.0 ? 5.0 : 10.0);
}

} // namespace

AxisTicks TicksOf(AxisRange range, double length, double distance) {
    const double span = range.To - range.From;
    if (!(span > shortestSpan) || !std::isfinite(span)) {
        return {};
    }
    double step = StepAtLeast(span / std::max(length / distance, leastTicks));
    while (CountOf(range, step) < static_cast<size_t>(leastTicks)) {
        step = Shorter(step);
    }
    return {.First = std::ceil(range.From / step - slack) * step,
            .Step = step,
            .Count = CountOf(range, step),
            .Decimals = std::max(0, -static_cast<int>(std::floor(std::log10(step) + slack)))};
}

std::string TickText(const AxisTicks& ticks, size_t i, char decimalPoint) {
    const double value = TickAt(ticks, i);
    const double shown = std::abs(value) < ticks.Step * slack ? 0.0 : value;
    std::array<char, 400>
        digits{}; // The longest double in fixed notation has 309 before its point.
    const auto [end, error] = std::to_chars(digits.begin(), digits.end(), std::abs(shown),
                                            std::chars_format::fixed, ticks.Decimals);
    std::string text(digits.begin(), end);
    std::ranges::replace(text, '.', decimalPoint);
    return (shown < 0.0 ? "\u2212" : "") + text;
}

} // namespace orvane
