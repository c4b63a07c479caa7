#include "channels/record_text.h"

#include <wx/strconv.h>

#include <array>
#include <charconv>
#include <limits>

std::string_view FieldBytes(const char (&field)[RecordTextSize]) {
    return {field, strnlen(field, RecordTextSize)};
}

wxString FieldText(const char (&field)[RecordTextSize]) {
    // In one pass, since no text has more characters than bytes.
    const std::string_view bytes = FieldBytes(field);
    std::array<wchar_t, RecordTextSize> characters;
    const std::size_t count =
        wxConvUTF8.ToWChar(characters.data(), characters.size(), bytes.data(), bytes.size());
    return count == wxCONV_FAILED ? wxString() : wxString(characters.data(), count);
}

int32_t ReferenceNumber(std::string_view text) {
    uint32_t number = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    constexpr auto largest = std::numeric_limits<int32_t>::max();
    return error == std::errc::result_out_of_range || number > static_cast<uint32_t>(largest)
               ? largest
               : static_cast<int32_t>(number);
}
