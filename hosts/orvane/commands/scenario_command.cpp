#include "console/laboratory/scenario/scenario_reader.h"
#include "hosts/orvane/commands/commands.h"
#include "hosts/orvane/terminal/standard_output.h"
#include "hosts/session/host_error.h"
#include "hosts/session/sentence_parts.h"

#include <algorithm>
#include <iostream>

namespace orvane {

namespace {

using laboratory::ShippedScenarios;

struct ScenarioOptions {
    std::string Action;
    std::vector<std::string> Names;
};

/// The first line says in a comment what a scenario is about.
void ListScenarios() {
    TextRows rows;
    for (const auto& [name, toml] : ShippedScenarios()) {
        const std::string_view line = toml.substr(0, toml.find('\n'));
        rows.push_back({std::string(name), std::string(line.substr(line.find_first_not_of("# ")))});
    }
    std::cout << TableForOutput({{"Name"}, {"What"}}, rows);
}

void ShowScenario(const std::string& name) {
    const auto& all = ShippedScenarios();
    const auto found = std::ranges::find(all, name, &laboratory::ShippedScenario::Name);
    if (found == all.end()) {
        std::vector<std::string> names;
        names.reserve(all.size());
        for (const auto& shipped : all) {
            names.emplace_back(shipped.Name);
        }
        throw WrongArgument("No scenario that ships is called " + Quoted(name) + ", but " +
                            Listed(names, "and") + ".");
    }
    std::cout << found->Toml;
}

std::string Counted(size_t count, const std::string& what) {
    return std::to_string(count) + " " + what + (count == 1 ? "" : "s");
}

/// Whether a scenario is good; what is wrong goes to standard error.
bool CheckScenario(const std::string& nameOrPath) {
    const auto [scenario, errors] = laboratory::LoadScenario(nameOrPath);
    if (errors.empty()) {
        std::cout << nameOrPath
                  << " is a valid scenario: " << Counted(scenario.Adapters.size(), "adapter")
                  << ", " << Counted(scenario.Outputs.size(), "output") << ", "
                  << Counted(scenario.Timeline.size(), "event") << ".\n"
                  << std::flush;
    }
    for (const std::string& error : errors) {
        std::cerr << error << '\n';
    }
    return errors.empty();
}

void RunScenarioCommand(const ScenarioOptions& options) {
    const size_t count = options.Names.size();
    if (options.Action == "list"   ? count != 0
        : options.Action == "show" ? count != 1
                                   : count == 0) {
        throw WrongArgument("scenario takes list, show and a name, or check and files.");
    }
    if (options.Action == "list") {
        ListScenarios();
    } else if (options.Action == "show") {
        ShowScenario(options.Names.front());
    } else if (const auto good = std::ranges::count_if(options.Names, CheckScenario);
               static_cast<size_t>(good) < count) {
        throw HostError(std::to_string(count - static_cast<size_t>(good)) + " of " +
                        Counted(count, "scenario") + " cannot be used.");
    }
}

} // namespace

void AddScenarioCommand(CLI::App& command, const DriverOptions& /*driver*/) {
    auto options = std::make_shared<ScenarioOptions>();
    command
        .add_option("action", options->Action,
                    "List those that ship, show the text of one, or check files")
        ->type_name("list|show|check")
        ->required();
    command.add_option("scenarios", options->Names, "Name of one that ships, or files")
        ->type_name("SCENARIO");
    command.callback([options] { RunScenarioCommand(*options); });
}

} // namespace orvane
