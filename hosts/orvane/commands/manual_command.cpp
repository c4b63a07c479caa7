#include "hosts/orvane/commands/commands.h"

#include <iostream>

namespace orvane {

namespace {

/// A text of the program in the language of manual pages.
std::string Roff(const std::string& text) {
    std::string escaped;
    for (const char c : text) {
        escaped += c == '-' ? "\\-" : c == '\\' ? "\\e" : std::string(1, c);
    }
    return escaped;
}

void DescribeOption(const CLI::Option& option) {
    const std::string name = Roff(option.get_name());
    const std::string value =
        option.get_items_expected_max() > 0 ? Roff(option.get_type_name()) : "";
    std::cout << ".TP\n";
    if (option.get_positional()) {
        std::cout << ".I " << value << '\n';
    } else if (value.empty()) {
        std::cout << ".B " << name << '\n';
    } else {
        std::cout << ".BI \"" << name << " \" \"" << value << "\"\n";
    }
    std::cout << Roff(option.get_description());
    if (!option.get_default_str().empty()) {
        std::cout << "; " << Roff(option.get_default_str()) << " by default";
    }
    std::cout << ".\n";
}

void DescribeCommand(const CLI::App& command, const std::string& commonFooter) {
    std::cout << ".SS " << command.get_name() << '\n' << Roff(command.get_description()) << ".\n";
    for (const CLI::Option* option : command.get_options()) {
        if (option != command.get_help_ptr()) {
            DescribeOption(*option);
        }
    }
    if (command.get_footer() != commonFooter) {
        std::cout << ".PP\n" << Roff(command.get_footer()) << '\n';
    }
}

void Describe(const CLI::App& app) {
    std::cout << ".SH COMMANDS\n";
    for (const CLI::App* command : app.get_subcommands(nullptr)) {
        if (!command->get_group().empty()) {
            DescribeCommand(*command, app.get_footer());
        }
    }
    std::cout << ".SH OPTIONS\nThey may precede or follow the command.\n";
    for (const CLI::Option* option : app.get_options()) {
        DescribeOption(*option);
    }
}

} // namespace

void AddManualCommand(CLI::App& command, const DriverOptions& /*driver*/) {
    command.callback([&command] { Describe(*command.get_parent()); });
}

} // namespace orvane
