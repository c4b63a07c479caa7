#include "hosts/orvane/commands/shared_options.h"

namespace orvane {

void AddChannelArgument(CLI::App& command, std::string& channel) {
    command.add_option("channel", channel, "Which input channel, by number or name")
        ->type_name("CHANNEL")
        ->required();
}

CLI::Option* AddJsonFlag(CLI::App& command, bool& json) {
    return command.add_flag("--json", json, "Print JSON; docs/json.md describes the fields");
}

void AddSetOption(CLI::App& command, std::vector<std::string>& settings) {
    command
        .add_option("--set", settings,
                    "Set a channel, by number or name, before the command begins, such as "
                    "0:calibre=+-24V,ampli=2,offset=1,function=1; unit and quantity too; may be "
                    "repeated")
        ->type_name("CHANNEL:SETTING=VALUE,...")
        ->allow_extra_args(false);
}

} // namespace orvane
