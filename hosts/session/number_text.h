#pragma once

#include <string>
#include <string_view>

namespace orvane {

/// Characters of a UTF-8 text.
size_t CharacterCount(std::string_view utf8);

/// A number for people: 6 significant digits or as many as given, and a point in every locale.
std::string NumberText(double value, int digits = 6);

/// A range for people: "-12 … 12".
std::string RangeText(double low, double high);

/// A number with this many decimals, and a point in every locale.
std::string FixedText(double value, int decimals);

} // namespace orvane
