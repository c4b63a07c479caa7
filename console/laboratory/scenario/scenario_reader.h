#pragma once

#include "console/laboratory/scenario/scenario.h"

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

namespace orvane::laboratory {

/// What became of a file. The scenario is good only without errors.
struct ScenarioReading {
    Scenario Value;
    std::vector<std::string> Errors; ///< "file:line:column: what is wrong, and what would be right"
};

/// Reads and checks a scenario, all errors at once. Pictures and samples that it names are read
/// from `folder`. Throws nothing but std::bad_alloc. \param toml the text, UTF-8 \param file how
/// the errors call it
ScenarioReading ReadScenario(std::string_view toml, const std::string& file,
                             const std::filesystem::path& folder);

/// Reads the shipped scenario of this name or else the file of this path.
ScenarioReading LoadScenario(const std::string& nameOrPath);

/// A scenario that ships with the library.
struct ShippedScenario {
    std::string_view Name;
    std::string_view Toml;
};

/// All of them, in the order of their names.
const std::vector<ShippedScenario>& ShippedScenarios();

} // namespace orvane::laboratory
