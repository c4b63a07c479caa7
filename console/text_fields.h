#pragma once

/// \file
/// Filling the text fields of a record, for consoles.

#include "console/console_records.h"

#include <algorithm>
#include <string_view>

namespace orvane {

/// Writes a UTF-8 text with its terminator; what does not fit is cut off.
inline void SetText(char (&field)[RecordTextSize], std::string_view text) {
    const std::size_t length = std::min(text.size(), RecordTextSize - 1);
    std::fill(std::copy_n(text.data(), length, field), std::end(field), '\0');
}

/// Writes the date of manufacture: 8 characters, no terminator.
inline void SetDate(char (&field)[8], std::string_view text) {
    std::copy_n(text.data(), std::min(text.size(), std::size(field)), field);
}

} // namespace orvane
