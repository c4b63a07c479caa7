#pragma once

#include "console/laboratory/scenario/toml_tree.h"

#include <optional>

namespace orvane::laboratory {

/// Finds a key of so many parts that the tables in one another would take the whole stack.
std::optional<SyntaxError> FindTooDeep(std::string_view toml);

} // namespace orvane::laboratory
