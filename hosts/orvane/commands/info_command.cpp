#include "hosts/orvane/commands/commands.h"
#include "hosts/orvane/commands/json_texts.h"
#include "hosts/orvane/commands/shared_options.h"
#include "hosts/orvane/terminal/standard_output.h"
#include "hosts/session/acquisition_request.h"
#include "hosts/session/console_identity.h"
#include "hosts/session/durations.h"
#include "hosts/session/number_text.h"

#include <iostream>

namespace orvane {

namespace {

TextRows Identity(const DriverExports& driver) {
    TextRows rows;
    for (const IdentityText& text : IdentityTexts(driver)) {
        rows.push_back({text.Label, text.Text.empty() ? "(none)" : TextOf(text.Text)});
    }
    return rows;
}

TextRows Constants(const DriverExports& driver) {
    return {
        {"Shortest period", DurationText(driver.GetMinPas())},
        {"Longest period", DurationText(LongestPeriodSec(driver))},
        {"Longest reported", DurationText(driver.GetMaxDtInBuffMode())},
        {"Pre-trigger points", std::to_string(driver.GetNbPointPreSynchro())},
        {"Input resolution", std::to_string(driver.GetInResolution()) + " steps"},
        {"Output resolution", std::to_string(driver.GetOutResolution()) + " steps"},
        {"Output range", RangeText(driver.GetOutValMin(), driver.GetOutValMax())},
        {"Parameters 3 and 4",
         std::to_string(driver.GetParameter(3)) + ", " + std::to_string(driver.GetParameter(4))},
    };
}

TextRows Counts(const DriverExports& driver) {
    const int inputs = driver.CombienDeCanauxEnEntree(); // The other two follow from it.
    return {
        {"Input channels", std::to_string(inputs)},
        {"Trigger channels", std::to_string(driver.CombienDeCanauxDeSynchro())},
        {"Output channels", std::to_string(driver.CombienDeCanauxEnSortie())},
    };
}

void ShowInfo(const DriverOptions& options, bool json) {
    const auto session = OpenDriver(options);
    const DriverExports& driver = session->Driver.Exports;
    if (json) {
        std::cout << InfoJson(driver, session->Library);
        return;
    }
    TextRows rows{{"Library", session->Library}};
    for (const TextRows& more : {Identity(driver), Constants(driver), Counts(driver)}) {
        rows.insert(rows.end(), more.begin(), more.end());
    }
    std::cout << TableForOutput({{}, {}}, rows);
}

} // namespace

void AddInfoCommand(CLI::App& command, const DriverOptions& driver) {
    auto json = std::make_shared<bool>(false);
    AddJsonFlag(command, *json);
    command.callback([json, &driver] { ShowInfo(driver, *json); });
}

} // namespace orvane
