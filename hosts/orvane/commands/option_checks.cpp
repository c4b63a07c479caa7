#include "hosts/orvane/commands/option_checks.h"

#include "hosts/session/host_error.h"
#include "hosts/session/sentence_parts.h"
#include "hosts/session/text_parsing.h"

#include <algorithm>
#include <cctype>

namespace orvane {

namespace {

/// A text such as a unit may be empty, and begin with anything.
bool TakesAnyText(const CLI::Option& option) {
    return option.get_type_name() == "TEXT";
}

void CheckValue(const CLI::Option& option, const std::string& value) {
    if (TakesAnyText(option)) {
        return;
    }
    if (value.empty()) {
        throw WrongArgument("The value of " + option.get_name() + " is empty.");
    }
    if (value.starts_with("--")) {
        throw WrongArgument(option.get_name() + " lacks its value: " + value + " follows it.");
    }
    const std::vector<std::string> choices = ChoicesOf(option);
    if (!choices.empty() && std::ranges::find(choices, value) == choices.end()) {
        throw WrongArgument(option.get_name() + " takes " + Listed(choices, "or") + ", not " +
                            Quoted(value) + ".");
    }
}

} // namespace

void TakeWholeNumber(CLI::Option* option, int least, int most) {
    option->check([option, least, most](const std::string& text) {
        const auto number = ParseNumber<int>(text);
        if (!number || *number < least || *number > most) {
            throw WrongArgument(
                option->get_name() + " takes a whole number from " + std::to_string(least) +
                (most < std::numeric_limits<int>::max() ? " to " + std::to_string(most) : " on") +
                ", not " + Quoted(text) + ".");
        }
        return std::string();
    });
}

void CheckValues(CLI::App& app) {
    for (CLI::Option* option : app.get_options()) {
        if (option->get_items_expected_max() > 0) {
            // A transformation comes before all checks.
            option->transform([option](std::string value) {
                CheckValue(*option, value);
                return value;
            });
        }
    }
    for (CLI::App* command : app.get_subcommands(nullptr)) {
        CheckValues(*command);
    }
}

std::vector<std::string> ChoicesOf(const CLI::Option& option) {
    const std::string type = option.get_type_name();
    const bool choice = type.find('|') != std::string::npos && std::islower(type.front()) != 0;
    if (!choice) {
        return {};
    }
    const auto words = Split(type, '|');
    return {words.begin(), words.end()};
}

} // namespace orvane
