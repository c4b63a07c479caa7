#pragma once

/// \file
/// The text block of a channel: lines of the form "Key = number".

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace orvane {

/// Fetches a channel's text up to its first NUL. A text that the console does not deliver, or for
/// which there is no memory, is absent.
std::optional<std::string> FetchChannelText(uint8_t connector, uint8_t channel, uint32_t size);

/// The number of the first line with this key, and of the last one. A line is a key, `=` and a
/// number, each with any number of blanks before it; lines end at carriage returns and line feeds.
/// A word in place of the number counts as 0, a number beyond 32 bits as the nearest one.
std::optional<int> FirstNumber(std::string_view text, std::string_view key);
std::optional<int> LastNumber(std::string_view text, std::string_view key);

} // namespace orvane
