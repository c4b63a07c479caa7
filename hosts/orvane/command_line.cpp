#include "hosts/orvane/command_line.h"

#include "hosts/orvane/commands/commands.h"
#include "hosts/orvane/commands/option_checks.h"

#include <iostream>

namespace orvane {

namespace {

void AddCommonOptions(CLI::App& app, DriverOptions& driver) {
    app.fallthrough(); // They may also follow the command.
    app.set_version_flag("--version", "orvane " ORVANE_VERSION);
    app.add_option("--library", driver.Library,
                   "The driver library; without it, the one of the build folder or of the system")
        ->type_name("PATH");
    app.add_option("--scenario", driver.Scenario,
                   "A scenario of the laboratory, by name or file, instead of the virtual console")
        ->type_name("NAME|FILE");
    // In any other language, the driver names a channel by the key of its name.
    app.add_option("--lang", driver.Language, "Language of the channel names")
        ->type_name("fr|en")
        ->capture_default_str();
}

/// The sentence of the parser, reworded where it is unsuitable for users.
std::string Reworded(const CLI::Error& error) {
    std::string text = error.what();
    const std::string option = text.substr(0, text.find(':'));
    if (error.get_name() == "ArgumentMismatch") {
        const bool more = text.find("At Most") != std::string::npos;
        return option + (more ? " may be given once only" : " needs a value");
    }
    if (error.get_name() == "ConversionError") {
        return "This value is not valid: " + text.substr(text.find(": ") + 2);
    }
    return text;
}

} // namespace

void DescribeCommandLine(CLI::App& app, DriverOptions& driver) {
    app.description("Measures with an Orvane console and drives it, through its driver library.");
    app.footer("Exit codes: 0 done, 1 failure, 2 wrong arguments, 130 interrupted run.");
    app.require_subcommand(1);
    AddCommonOptions(app, driver);
    for (const Command& command : commands) {
        CLI::App& added = *app.add_subcommand(command.Name, command.Description);
        if (command.Hidden) {
            added.group("");
        }
        command.Add(added, driver);
    }
    app.set_help_all_flag("--help-all", "Print the help of all commands and exit");
    CheckValues(app);
}

HostError WrongCommandLine(const CLI::App& app, const CLI::Error& error) {
    const std::vector<std::string> unknown = app.remaining(true);
    const bool commandGiven = !app.get_subcommands().empty();
    std::string wrong = commandGiven ? Reworded(error) : "No command is given";
    if (!unknown.empty()) {
        const std::string& word = unknown.front();
        wrong = word.starts_with('-') ? "There is no option " + word
                : commandGiven        ? word + " is an unexpected argument"
                                      : "There is no command " + word;
    }
    return WrongArgument(wrong + " (see orvane --help).");
}

} // namespace orvane
