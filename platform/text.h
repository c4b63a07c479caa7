#pragma once

/// \file
/// Checks of texts that are held as bytes.

#include <wx/strconv.h>

#include <algorithm>
#include <string_view>

namespace orvane::platform {

inline bool IsUtf8(std::string_view bytes) {
    return wxConvUTF8.ToWChar(nullptr, 0, bytes.data(), bytes.size()) != wxCONV_FAILED;
}

/// Whether two texts are equal apart from the case of ASCII letters, which is all that an ASCII
/// text has. Independent of the locale: in a Turkish one, i is not the small letter of I.
constexpr bool EqualsIgnoringCase(std::string_view left, std::string_view right) {
    const auto small = [](char letter) {
        return letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter - 'A' + 'a') : letter;
    };
    return std::ranges::equal(left, right, {}, small, small);
}

} // namespace orvane::platform
