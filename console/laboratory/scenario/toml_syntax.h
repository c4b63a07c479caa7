#pragma once

#include "console/laboratory/scenario/toml_tree.h"

#include <optional>

namespace orvane::laboratory {

/// Finds what the parser doesn't survive: keys that aren't ASCII and stand without quotes, and keys
/// of so many parts that the tables in one another would take the whole stack.
std::optional<SyntaxError> FindUnparsable(std::string_view toml);

} // namespace orvane::laboratory
