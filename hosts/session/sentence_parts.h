#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace orvane {

/// A text in double quotes.
std::string Quoted(std::string_view text);

/// Words for people: "a, b and c", or with another conjunction.
std::string Listed(const std::vector<std::string>& words, std::string_view conjunction = "and");

} // namespace orvane
