#pragma once

#include <string>
#include <vector>

namespace orvane::laboratory {

/// A key of a scenario file, as docs/scenarios.md has to tell it.
struct KeyDescription {
    std::string Table;
    std::string Key;
    std::string Takes;
    std::string Default;
};

/// All keys of all tables.
std::vector<KeyDescription> ScenarioKeys();

} // namespace orvane::laboratory
