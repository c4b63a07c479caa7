#include "channels/record_text.h"

#include <string.h>

#include <charconv>
#include <limits>

std::string_view FieldBytes(const char (&field)[RecordTextSize]) {
    return {field, strnlen(field, RecordTextSize)};
}

wxString FieldText(const char (&field)[RecordTextSize]) {
    const std::string_view bytes = FieldBytes(field);
    return wxString::FromUTF8(bytes.data(), bytes.size());
}

int32_t ReferenceNumber(std::string_view text) {
    uint32_t number = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    constexpr auto largest = std::numeric_limits<int32_t>::max();
    return error == std::errc::result_out_of_range || number > static_cast<uint32_t>(largest)
               ? largest
               : static_cast<int32_t>(number);
}
