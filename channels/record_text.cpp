#include "channels/record_text.h"

#include "platform/text.h"

#include <wx/strconv.h>

#include <charconv>
#include <limits>

namespace orvane {

std::string_view FieldBytes(const char (&field)[RecordTextSize]) {
    return {field, strnlen(field, RecordTextSize)};
}

std::string_view FieldUtf8(const char (&field)[RecordTextSize]) {
    const std::string_view bytes = FieldBytes(field);
    return platform::IsUtf8(bytes) ? bytes : std::string_view();
}

std::wstring_view FieldCharacters(const char (&field)[RecordTextSize], FieldRoom& room) {
    const std::string_view bytes = FieldBytes(field);
    const std::size_t count =
        wxConvUTF8.ToWChar(room.data(), room.size(), bytes.data(), bytes.size());
    return {room.data(), count == wxCONV_FAILED ? 0 : count};
}

wxString FieldText(const char (&field)[RecordTextSize]) {
    FieldRoom room;
    const std::wstring_view characters = FieldCharacters(field, room);
    return {characters.data(), characters.size()};
}

int32_t ReferenceNumber(std::string_view text) {
    uint32_t number = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    constexpr auto largest = std::numeric_limits<int32_t>::max();
    return error == std::errc::result_out_of_range || number > static_cast<uint32_t>(largest)
               ? largest
               : static_cast<int32_t>(number);
}

} // namespace orvane
