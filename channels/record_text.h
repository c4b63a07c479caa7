#pragma once

/// \file
/// Texts and numbers of the console's records. A text is taken up to its NUL or the field's
/// end; one that isn't UTF-8 reads as empty.

#include "console/console_records.h"

#include <wx/string.h>

#include <array>
#include <cstring>
#include <string_view>

namespace orvane {

/// The bytes of a text field, whatever they are.
std::string_view FieldBytes(const char (&field)[RecordTextSize]);

/// The text of a text field, in UTF-8.
std::string_view FieldUtf8(const char (&field)[RecordTextSize]);

/// Sets every byte of a text field to zero.
inline void ClearText(char (&field)[RecordTextSize]) {
    std::memset(field, 0, RecordTextSize);
}

/// Room for the characters of any text field: a text has no more characters than bytes.
using FieldRoom = std::array<wchar_t, RecordTextSize>;

/// The characters of a text field, stored in `room`.
std::wstring_view FieldCharacters(const char (&field)[RecordTextSize], FieldRoom& room);

/// The text of a text field.
wxString FieldText(const char (&field)[RecordTextSize]);

/// The number at the start of a text: digits only, up to the first character that isn't one.
/// Without leading digits it is 0, and beyond 32 bits it is the largest number.
int32_t ReferenceNumber(std::string_view text);

} // namespace orvane
