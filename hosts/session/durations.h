#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace orvane {

/// Reads "1ms", "100us", "0.5s", "250ns" or a plain number of seconds. Nothing for any other text.
std::optional<double> ParseDuration(std::string_view text);

/// The longest wait of the hosts: a day.
constexpr double longestWaitSec = 86400.0;

/// The same from 1 ms to `longestWaitSec`. Throws HostError for any other text, in which `what`
/// names the duration.
double ParseWait(const std::string& what, const std::string& text);

/// A duration in seconds for people: "1 ms", "4.294967295 s".
std::string DurationText(double seconds);

/// The period to hand to the driver, which cuts off fractions of a nanosecond: 0.000129 s times 1e9
/// comes out as 128999.99…, so a whole number of nanoseconds is raised until it is truncated to
/// itself.
double PeriodForDriver(double seconds);

} // namespace orvane
