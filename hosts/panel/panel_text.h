#pragma once

#include <wx/string.h>

#include <cmath>
#include <optional>
#include <string>

namespace orvane {

/// A UTF-8 text for the window.
inline wxString FromUtf8(const std::string& utf8) {
    return wxString::FromUTF8(utf8);
}

/// The finite number that a user entered, with a point or a comma.
inline std::optional<double> ParseInput(wxString text) {
    text.Replace(",", ".");
    double number = 0.0;
    return text.Trim().Trim(false).ToCDouble(&number) && std::isfinite(number)
               ? std::optional(number)
               : std::nullopt;
}

} // namespace orvane
