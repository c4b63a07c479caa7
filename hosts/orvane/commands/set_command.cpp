#include "hosts/orvane/commands/commands.h"
#include "hosts/orvane/commands/shared_options.h"
#include "hosts/orvane/terminal/standard_output.h"
#include "hosts/session/channel_setup.h"
#include "hosts/session/number_text.h"

#include <iostream>

namespace orvane {

namespace {

/// What the settings of a channel come to.
std::vector<std::string> Effect(const DriverExports& driver, int channel) {
    const ChannelInfo info = DescribeChannel(driver, channel);
    const int function = driver.QuelFonctionPour(channel);
    return {TextOf(driver.QuelNomPourFonction(channel, function)),
            CalibreName(info),
            info.Quantity,
            info.Unit,
            RangeText(info.Min, info.Max),
            NumberText(driver.QuelValeurPour(channel)),
            NumberText(driver.QuelValeurSansPersonnalisationPour(channel))};
}

void Set(const DriverOptions& options, const ChannelSetup& setup) {
    CheckScale(setup);
    const auto session = OpenDriver(options);
    const DriverExports& driver = session->Driver.Exports;
    const int channel = ChannelNamed(EnumerateChannels(driver), setup.Channel);
    const std::vector<std::string> before = Effect(driver, channel);
    SetUpChannel(driver, channel, setup);
    const std::vector<std::string> after = Effect(driver, channel);
    constexpr const char* titles[] = {"Function", "Calibre",      "Quantity",     "Unit",
                                      "Range",    "Scaled value", "Console value"};
    TextRows rows;
    for (size_t i = 0; i < before.size(); ++i) {
        rows.push_back({titles[i], before[i], after[i]});
    }
    std::cout << TableForOutput({{"Setting"}, {"Before"}, {"After"}}, rows);
}

} // namespace

void AddSetCommand(CLI::App& command, const DriverOptions& driver) {
    auto setup = std::make_shared<ChannelSetup>();
    AddChannelArgument(command, setup->Channel);
    command.add_option("--function", setup->Function, "Select this function, by number or name")
        ->type_name("N|NAME");
    command.add_option("--calibre", setup->Calibre, "Select this calibre, by number or name")
        ->type_name("N|NAME");
    command.add_option("--ampli", setup->Ampli, "Multiply values by this")->type_name("A");
    command.add_option("--offset", setup->Offset, "Then add this to them")->type_name("B");
    command.add_option("--quantity", setup->Quantity, "Symbol of the quantity")->type_name("TEXT");
    command.add_option("--unit", setup->Unit, "Symbol of the unit")->type_name("TEXT");
    command.callback([setup, &driver] { Set(driver, *setup); });
}

} // namespace orvane
