#pragma once

#include <charconv>
#include <optional>
#include <string_view>
#include <vector>

namespace orvane {

/// Reads a whole text as a number.
template <class Number> std::optional<Number> ParseNumber(std::string_view text) {
    Number number{};
    const auto [rest, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    return error == std::errc() && rest == text.data() + text.size() ? std::optional(number)
                                                                     : std::nullopt;
}

/// The parts of a text between separators; one more than there are separators.
inline std::vector<std::string_view> Split(std::string_view text, char separator) {
    std::vector<std::string_view> parts;
    while (true) {
        const size_t end = text.find(separator);
        parts.push_back(text.substr(0, end));
        if (end == std::string_view::npos) {
            return parts;
        }
        text.remove_prefix(end + 1);
    }
}

} // namespace orvane
