#include "hosts/panel/loaded_scenario.h"

#include "console/laboratory/scenario/scenario_reader.h"
#include "hosts/session/translation.h"

#include <algorithm>
#include <charconv>
#include <fstream>
#include <iterator>

namespace orvane {

namespace {

std::string TextOfScenario(const std::string& nameOrPath) {
    for (const auto& [name, toml] : laboratory::ShippedScenarios()) {
        if (name == nameOrPath) {
            return std::string(toml);
        }
    }
    std::ifstream file(nameOrPath);
    return {std::istreambuf_iterator<char>(file), {}};
}

} // namespace

LoadedScenario ReadScenarioOf(const DriverOptions& options) {
    if (options.Scenario.empty()) {
        return {};
    }
    LoadedScenario loaded{.Text = TextOfScenario(options.Scenario), .Errors = {}, .Outputs = {}};
    const auto [scenario, errors] = laboratory::LoadScenario(options.Scenario);
    loaded.Errors = errors;
    if (errors.empty()) {
        for (const laboratory::Output& output : scenario.Outputs) {
            loaded.Outputs.push_back({output.Name, output.Period});
        }
    }
    return loaded;
}

int LineOfError(const std::string& error) {
    // "file:line:column: what is wrong"; the name of the file may hold a colon.
    int line = 0;
    for (size_t colon = error.find(':'); colon != std::string::npos && line == 0;
         colon = error.find(':', colon + 1)) {
        const char* const end = error.data() + error.size();
        const auto [rest, failure] = std::from_chars(error.data() + colon + 1, end, line);
        if (failure != std::errc() || rest == end || *rest != ':') {
            line = 0;
        }
    }
    return line;
}

std::vector<OutputLook> OutputLooks(const DriverOptions& options, size_t count) {
    std::vector<OutputLook> looks = ReadScenarioOf(options).Outputs;
    looks.resize(std::min(looks.size(), count));
    while (looks.size() < count) {
        looks.push_back({.Name = Translated("Output %s", {std::to_string(looks.size() + 1)})});
    }
    return looks;
}

} // namespace orvane
