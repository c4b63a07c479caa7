#pragma once

#include "hosts/panel/catalogue.h"

#include <wx/string.h>

#include <cmath>
#include <optional>
#include <string>

namespace orvane {

/// A UTF-8 text for the window.
inline wxString FromUtf8(const std::string& utf8) {
    return wxString::FromUTF8(utf8);
}

/// A text of numbers, with the decimal point of the window's language.
inline wxString LocalNumbers(const std::string& utf8) {
    wxString text = FromUtf8(utf8);
    text.Replace(".", wxString(1, DecimalPoint()));
    return text;
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
