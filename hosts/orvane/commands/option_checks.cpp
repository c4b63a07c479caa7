#include "hosts/orvane/commands/option_checks.h"

#include "hosts/session/host_error.h"

#include <algorithm>
#include <cctype>
#include <charconv>
#include <sstream>

namespace orvane {

namespace {

std::string Quoted(const std::string& text) {
    return "\"" + text + "\"";
}

/// "fr or en", "square, sine or triangle"
std::string Enumerated(const std::vector<std::string>& words) {
    std::string text;
    for (size_t i = 0; i < words.size(); ++i) {
        text += i == 0 ? "" : i + 1 == words.size() ? " or " : ", ";
        text += words[i];
    }
    return text;
}

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
        throw WrongArgument(option.get_name() + " takes " + Enumerated(choices) + ", not " +
                            Quoted(value) + ".");
    }
}

} // namespace

void TakeWholeNumber(CLI::Option* option, int least, int most) {
    option->check([option, least, most](const std::string& text) {
        int number = 0;
        const char* const end = text.data() + text.size();
        const auto [rest, error] = std::from_chars(text.data(), end, number);
        if (error != std::errc() || rest != end || number < least || number > most) {
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
    std::vector<std::string> words;
    if (type.find('|') != std::string::npos && std::islower(type.front()) != 0) {
        std::istringstream all(type);
        for (std::string word; std::getline(all, word, '|');) {
            words.push_back(word);
        }
    }
    return words;
}

} // namespace orvane
