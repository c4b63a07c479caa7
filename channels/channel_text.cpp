#include "channels/channel_text.h"

#include "console/console_port.h"
#include "platform/zeroed_buffer.h"

#include <algorithm>
#include <charconv>
#include <cstring>
#include <limits>

namespace orvane {

namespace {

void SkipAny(std::string_view& text, const char* characters) {
    text.remove_prefix(std::min(text.find_first_not_of(characters), text.size()));
}

/// Removes the next line from the text and returns it.
std::string_view TakeLine(std::string_view& text) {
    const std::string_view line = text.substr(0, text.find_first_of("\r\n"));
    text.remove_prefix(line.size());
    SkipAny(text, "\r\n");
    return line;
}

/// The number at the start of a text, after white space and a sign; 0 if there is none.
int LeadingNumber(std::string_view text) {
    SkipAny(text, " \t\v\f");
    const bool plus = text.starts_with('+');
    if (plus) {
        text.remove_prefix(1);
        if (text.starts_with('-')) {
            return 0;
        }
    }
    int number = 0;
    const auto result = std::from_chars(text.data(), text.data() + text.size(), number);
    if (result.ec == std::errc::result_out_of_range) {
        return text.starts_with('-') ? std::numeric_limits<int>::min()
                                     : std::numeric_limits<int>::max();
    }
    return number;
}

/// The number of a line, if the line has this key.
std::optional<int> NumberOfLine(std::string_view line, std::string_view key) {
    SkipAny(line, " ");
    if (!line.starts_with(key)) {
        return std::nullopt;
    }
    line.remove_prefix(key.size());
    SkipAny(line, " ");
    if (!line.starts_with('=')) {
        return std::nullopt;
    }
    return LeadingNumber(line.substr(1));
}

} // namespace

std::optional<std::string> FetchChannelText(uint8_t connector, uint8_t channel, uint32_t size) {
    const std::size_t room = std::size_t{size} + 1;
    const auto buffer = platform::AllocateZeroed<char>(room);
    if (buffer == nullptr || !OVReadChannelText(connector, channel, buffer.get(), size)) {
        return std::nullopt;
    }
    return std::string(buffer.get(), strnlen(buffer.get(), room));
}

std::optional<int> FirstNumber(std::string_view text, std::string_view key) {
    std::optional<int> number;
    while (!number && !text.empty()) {
        number = NumberOfLine(TakeLine(text), key);
    }
    return number;
}

std::optional<int> LastNumber(std::string_view text, std::string_view key) {
    std::optional<int> number;
    while (!text.empty()) {
        if (const auto found = NumberOfLine(TakeLine(text), key)) {
            number = found;
        }
    }
    return number;
}

} // namespace orvane
