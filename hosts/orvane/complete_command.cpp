#include "hosts/orvane/commands.h"

#include <algorithm>
#include <iostream>

namespace {

using Words = std::vector<std::string>;

const CLI::App& CommandIn(const CLI::App& app, const Words& words) {
    const auto commands = app.get_subcommands(nullptr);
    for (const std::string& word : words) {
        const auto named = std::ranges::find(commands, word, &CLI::App::get_name);
        if (named != commands.end()) {
            return **named;
        }
    }
    return app;
}

bool WantsValue(const CLI::App& app, const std::string& word) {
    const CLI::Option* option = app.get_option_no_throw(word);
    return option != nullptr && option->get_items_expected_max() > 0;
}

void AddOptions(Words& words, const CLI::App& app) {
    for (const CLI::Option* option : app.get_options()) {
        for (const std::string& name : option->get_lnames()) {
            words.push_back("--" + name);
        }
    }
}

/// What may stand behind the words of an unfinished command line.
Words Continuations(const CLI::App& app, const Words& words) {
    const CLI::App& command = CommandIn(app, words);
    if (!words.empty() && (WantsValue(command, words.back()) || WantsValue(app, words.back()))) {
        return {};
    }
    Words following;
    AddOptions(following, command);
    if (&command != &app) {
        AddOptions(following, app);
        std::erase(following, "--version");
    }
    for (const CLI::App* subcommand : command.get_subcommands(nullptr)) {
        if (!subcommand->get_group().empty()) {
            following.push_back(subcommand->get_name());
        }
    }
    std::ranges::sort(following);
    following.erase(std::unique(following.begin(), following.end()), following.end());
    return following;
}

} // namespace

void AddCompleteCommand(CLI::App& app) {
    auto words = std::make_shared<Words>();
    CLI::App* command = app.add_subcommand("complete", "For the shell: the words that may follow");
    command->group(""); // Not for people.
    command->add_option("words", *words);
    command->callback([words, &app] {
        for (const std::string& word : Continuations(app, *words)) {
            std::cout << word << '\n';
        }
    });
}
