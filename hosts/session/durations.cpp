#include "hosts/session/durations.h"

#include "hosts/session/host_error.h"
#include "hosts/session/number_text.h"
#include "hosts/session/sentence_parts.h"

#include <array>
#include <charconv>
#include <cmath>
#include <limits>

namespace orvane {

namespace {

struct DurationUnit {
    std::string_view Name;
    double PerSecond;
};

constexpr std::array<DurationUnit, 5> units{
    {{"s", 1.0}, {"ms", 1e3}, {"µs", 1e6}, {"us", 1e6}, {"ns", 1e9}}};

} // namespace

std::optional<double> ParseDuration(std::string_view text) {
    double number = 0.0;
    const char* const end = text.data() + text.size();
    const auto [rest, error] = std::from_chars(text.data(), end, number);
    if (error != std::errc() || !std::isfinite(number)) {
        return std::nullopt;
    }
    const std::string_view name(rest, static_cast<size_t>(end - rest));
    if (name.empty()) {
        return number;
    }
    for (const DurationUnit& unit : units) {
        if (unit.Name == name) {
            return number / unit.PerSecond;
        }
    }
    return std::nullopt;
}

double ParseWait(const std::string& what, const std::string& text) {
    constexpr double shortestSec = 1e-3;
    const auto seconds = ParseDuration(text);
    if (!seconds) {
        throw WrongArgument("The " + what + " " + Quoted(text) +
                            " is not a duration such as 200ms or 1.5s.");
    }
    if (*seconds < shortestSec || *seconds > longestWaitSec) {
        throw WrongArgument("The " + what + " " + text + " lies outside the range of " +
                            DurationText(shortestSec) + " to " + DurationText(longestWaitSec) +
                            ".");
    }
    return *seconds;
}

std::string DurationText(double seconds) {
    // The last unit is used for anything shorter.
    size_t i = 0;
    while (i + 1 < units.size() && seconds * units[i].PerSecond < 1.0) {
        ++i;
    }
    return NumberText(seconds * units[i].PerSecond, 10) + " " + std::string(units[i].Name);
}

double PeriodForDriver(double seconds) {
    constexpr double nsPerSecond = 1e9;
    const double wholeNs = std::round(seconds * nsPerSecond);
    if (std::abs(seconds * nsPerSecond - wholeNs) > 1e-3) {
        return seconds;
    }
    while (seconds * nsPerSecond < wholeNs) {
        seconds = std::nextafter(seconds, std::numeric_limits<double>::infinity());
    }
    return seconds;
}

} // namespace orvane
