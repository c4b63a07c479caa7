#include "hosts/orvane/commands/commands.h"
#include "hosts/orvane/commands/json_texts.h"
#include "hosts/orvane/commands/shared_options.h"
#include "hosts/orvane/terminal/standard_output.h"
#include "hosts/session/console_identity.h"

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

TextRows Limits(const DriverExports& driver) {
    TextRows rows;
    for (const LimitText& limit : LimitTexts(driver)) {
        rows.push_back({limit.Label, limit.Text});
    }
    return rows;
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
    for (const TextRows& more : {Identity(driver), Limits(driver), Counts(driver)}) {
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
