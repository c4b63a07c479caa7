#include "hosts/session/number_text.h"

#include <algorithm>
#include <array>
#include <charconv>

namespace orvane {

namespace {

std::string Digits(double value, std::chars_format format, int precision) {
    std::array<char, 512> text{}; // the largest double has 309 digits before the point
    const auto result =
        std::to_chars(text.data(), text.data() + text.size(), value, format, precision);
    return {text.data(), result.ptr};
}

} // namespace

size_t CharacterCount(std::string_view utf8) {
    return static_cast<size_t>(std::ranges::count_if(
        utf8, [](char c) { return (static_cast<unsigned char>(c) & 0xC0U) != 0x80U; }));
}

std::string NumberText(double value, int digits) {
    return Digits(value, std::chars_format::general, digits);
}

std::string RangeText(double low, double high) {
    return NumberText(low) + " … " + NumberText(high);
}

std::string FixedText(double value, int decimals) {
    return Digits(value, std::chars_format::fixed, decimals);
}

} // namespace orvane
