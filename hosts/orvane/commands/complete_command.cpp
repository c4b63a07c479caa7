#include "console/laboratory/scenario/scenario_reader.h"
#include "hosts/orvane/commands/commands.h"
#include "hosts/orvane/commands/option_checks.h"
#include "hosts/session/channel_info.h"
#include "hosts/session/host_error.h"

#include <unistd.h>

#include <algorithm>
#include <iostream>

namespace orvane {

namespace {

using Words = std::vector<std::string>;

/// A possible next word and its description.
struct Continuation {
    std::string Word;
    std::string What;
};

using Continuations = std::vector<Continuation>;

/// An unfinished command line.
struct UnfinishedLine {
    explicit UnfinishedLine(Words words) {
        if (!words.empty()) {
            Current = words.back();
            words.pop_back();
        }
        std::erase(words, "="); // bash makes a word of it
        Before = std::move(words);
        const size_t equals = Current.starts_with("--") ? Current.find('=') : std::string::npos;
        if (equals != std::string::npos) {
            Option = Current.substr(0, equals);
            Prefix = Option + "=";
            Current.erase(0, equals + 1);
        } else if (!Before.empty()) {
            Option = Before.back();
        }
    }

    [[nodiscard]] std::string ValueOf(const std::string& option, const std::string& other) const {
        const auto at = std::ranges::find(Before, option);
        return at != Before.end() && at + 1 != Before.end() ? at[1] : other;
    }

    Words Before;        ///< The finished words.
    std::string Option;  ///< Possibly an option whose value is being completed.
    std::string Prefix;  ///< Precedes the value in the same word: "--lang=".
    std::string Current; ///< The beginning of the word or value.
};

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

/// The channels of the console, which is opened for that. Gives up on a slow one.
Continuations Channels(const DriverOptions& options) {
    constexpr unsigned patienceSec = 2;
    alarm(patienceSec); // The signal ends the program.
    Continuations channels;
    try {
        const auto session = OpenDriver(options);
        for (const ChannelInfo& channel : EnumerateChannels(session->Driver.Exports)) {
            channels.push_back({std::to_string(channel.Index), NameWithUnit(channel)});
        }
    } catch (const HostError&) {
        // The command itself will report it.
    }
    return channels;
}

/// The shipped scenarios.
Continuations Scenarios() {
    Continuations scenarios;
    for (const auto& shipped : laboratory::ShippedScenarios()) {
        scenarios.push_back({std::string(shipped.Name), ""});
    }
    return scenarios;
}

/// The list, extended by each channel that it does not have yet.
Continuations LongerLists(Continuations channels, const std::string& list) {
    const std::string before = list.substr(0, list.rfind(',') + 1);
    std::erase_if(channels, [&](const Continuation& channel) {
        return ("," + before).find("," + channel.Word + ",") != std::string::npos;
    });
    for (Continuation& channel : channels) {
        channel.Word.insert(0, before);
    }
    return channels;
}

/// The values of an option. A colon marks what the shell has to find itself.
Continuations Values(const CLI::Option& option, const UnfinishedLine& line,
                     const DriverOptions& driver) {
    const std::string type = option.get_type_name();
    if (type == "FILE" || type == "PATH") {
        return {{":files", ""}};
    }
    if (type == "DIR") {
        return {{":folders", ""}};
    }
    if (type == "SCENARIO") {
        return line.Option == "show" ? Scenarios() : Continuations{{":files", ""}};
    }
    if (type == "CHANNEL" || type == "LIST") {
        return LongerLists(Channels(driver), type == "LIST" ? line.Current : "");
    }
    Continuations values;
    for (const std::string& choice : ChoicesOf(option)) {
        values.push_back({choice, ""});
    }
    return values;
}

bool TakesValue(const CLI::Option& option) {
    return option.get_items_expected_max() > 0;
}

/// The option whose value comes next, if there is one.
const CLI::Option* OptionOfValue(const CLI::App& app, const CLI::App& command,
                                 const UnfinishedLine& line) {
    for (const CLI::App* at : {&command, &app}) {
        const CLI::Option* option =
            line.Option.starts_with("--") ? at->get_option_no_throw(line.Option) : nullptr;
        if (option != nullptr && TakesValue(*option)) {
            return option;
        }
    }
    return nullptr;
}

/// The options that may still be given.
void AddOptions(Continuations& following, const CLI::App& app, const UnfinishedLine& line,
                bool (*wanted)(const CLI::Option&)) {
    for (const CLI::Option* option : app.get_options()) {
        const std::string word = option->get_name();
        const bool given = std::ranges::find(line.Before, word) != line.Before.end();
        if (!option->get_positional() && (!given || option->get_expected_max() > 1) &&
            wanted(*option)) {
            following.push_back({word, option->get_description()});
        }
    }
}

void AddCommands(Continuations& following, const CLI::App& app) {
    for (const CLI::App* command : app.get_subcommands(nullptr)) {
        if (!command->get_group().empty()) {
            following.push_back({command->get_name(), command->get_description()});
        }
    }
}

/// The positional arguments of the command: the first one, and one that follows a fixed word.
void AddPositionals(Continuations& following, const CLI::App& command, const UnfinishedLine& line,
                    const DriverOptions& driver) {
    Words before{command.get_name()};
    for (const CLI::Option* option : command.get_options()) {
        if (option->get_positional()) {
            if (std::ranges::find(before, line.Option) != before.end()) {
                const Continuations values = Values(*option, line, driver);
                following.insert(following.end(), values.begin(), values.end());
            }
            before = ChoicesOf(*option);
        }
    }
}

/// The possible next words.
Continuations Next(const CLI::App& app, const UnfinishedLine& line, const DriverOptions& driver) {
    const CLI::App& command = CommandIn(app, line.Before);
    if (const CLI::Option* option = OptionOfValue(app, command, line); option != nullptr) {
        return Values(*option, line, driver);
    }
    Continuations following;
    if (&command == &app) {
        AddCommands(following, app);
    } else if (!line.Current.starts_with('-')) {
        AddPositionals(following, command, line, driver);
    }
    AddOptions(following, command, line, [](const CLI::Option&) { return true; });
    if (&command != &app) {
        AddOptions(following, app, line, TakesValue); // Help and version stand alone.
    }
    return following;
}

void Complete(const CLI::App& app, const DriverOptions& options, const Words& words) {
    const UnfinishedLine line(words);
    DriverOptions driver = options;
    driver.Library = line.ValueOf("--library", driver.Library);
    driver.Language = line.ValueOf("--lang", driver.Language);
    for (const Continuation& next : Next(app, line, driver)) {
        if (next.Word.starts_with(line.Current) || next.Word.starts_with(':')) {
            std::cout << line.Prefix << next.Word << '\t' << next.What << '\n';
        }
    }
}

} // namespace

void AddCompleteCommand(CLI::App& command, const DriverOptions& driver) {
    auto words = std::make_shared<Words>();
    command.add_option("words", *words);
    command.callback(
        [words, &command, &driver] { Complete(*command.get_parent(), driver, *words); });
}

} // namespace orvane
