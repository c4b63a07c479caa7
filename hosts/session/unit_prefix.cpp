#include "hosts/session/unit_prefix.h"

#include "hosts/session/number_text.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <string_view>

namespace orvane {

namespace {

constexpr std::array<std::string_view, 13> prefixable{"V", "A", "W", "Hz", "N", "Pa", "T",
                                                      "F", "H", "C", "J",  "s", "Ω"};

double LargestOf(const ChannelInfo& channel) {
    return std::max(std::abs(channel.Min), std::abs(channel.Max));
}

} // namespace

ToldUnit ToldUnitOf(const ChannelInfo& channel) {
    const double largest = LargestOf(channel);
    if (std::ranges::count(prefixable, channel.Unit) == 0 || !(largest > 0.0)) {
        return {1.0, channel.Unit};
    }
    struct Prefix {
        double From;
        double Factor;
        const char* Name;
    };
    constexpr std::array<Prefix, 4> prefixes{
        {{1e4, 1e3, "k"}, {1.0, 1.0, ""}, {1e-3, 1e-3, "m"}, {0.0, 1e-6, "µ"}}};
    const auto* fits = std::ranges::find_if(
        prefixes, [&](const Prefix& prefix) { return largest >= prefix.From; });
    return {fits->Factor, fits->Name + channel.Unit};
}

int DecimalsOf(const ChannelInfo& channel) {
    constexpr double steps = 4096.0; // of a converter
    const double range = std::abs(channel.Max - channel.Min) / ToldUnitOf(channel).Factor;
    return range > 0.0 ? std::clamp(static_cast<int>(std::ceil(-std::log10(range / steps))), 0, 9)
                       : 3;
}

std::string WithTrueMinus(std::string number) {
    if (number.starts_with('-')) {
        const bool isZero = number.find_first_of("123456789") == std::string::npos;
        number.replace(0, 1, isZero ? "" : "\u2212");
    }
    return number;
}

std::string ToldValue(const ChannelInfo& channel, double value) {
    if (!std::isfinite(value)) {
        return "";
    }
    return WithTrueMinus(FixedText(value / ToldUnitOf(channel).Factor, DecimalsOf(channel)));
}

std::string ToldReading(const ChannelInfo& channel, double value) {
    const std::string text = ToldValue(channel, value);
    const std::string unit = ToldUnitOf(channel).Name;
    return text.empty() || unit.empty() ? text : text + " " + unit;
}

std::string ToldFrequency(double hertz) {
    constexpr int digits = 4;
    constexpr double kilo = 1e3;
    if (!(hertz > 0.0) || !std::isfinite(hertz)) {
        return "";
    }
    const char* unit = hertz >= kilo * kilo ? " MHz" : hertz >= kilo ? " kHz" : " Hz";
    const double value = hertz >= kilo * kilo ? hertz / kilo / kilo
                         : hertz >= kilo      ? hertz / kilo
                                              : hertz;
    const int whole = static_cast<int>(std::floor(std::log10(value))) + 1;
    return FixedText(value, std::clamp(digits - whole, 0, 2 * digits)) + unit;
}

std::string ToldRange(const ChannelInfo& channel) {
    const ToldUnit unit = ToldUnitOf(channel);
    const auto number = [&](double value) {
        return WithTrueMinus(NumberText(value / unit.Factor, 4));
    };
    const bool isSymmetric = channel.Min == -channel.Max;
    const std::string range =
        isSymmetric ? "±" + number(channel.Max) : number(channel.Min) + "…" + number(channel.Max);
    return unit.Name.empty() ? range : range + " " + unit.Name;
}

} // namespace orvane
