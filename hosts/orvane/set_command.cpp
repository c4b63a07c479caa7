#include "hosts/common/channel_info.h"
#include "hosts/common/host_error.h"
#include "hosts/common/text_table.h"
#include "hosts/orvane/commands.h"
#include "hosts/orvane/standard_output.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <iostream>
#include <optional>

namespace {

struct SetOptions {
    int Channel = 0;
    std::optional<int> Function;
    std::string Calibre;
    std::optional<double> Ampli;
    std::optional<double> Offset;
    std::optional<std::string> Quantity;
    std::optional<std::string> Unit;
};

/// What the settings of a channel come to.
std::vector<std::string> Effect(const DriverExports& driver, int channel) {
    const ChannelInfo info = DescribeChannel(driver, channel);
    const int function = driver.QuelFonctionPour(channel);
    return {TextOf(driver.QuelNomPourFonction(channel, function)),
            CalibreName(info),
            info.Quantity,
            info.Unit,
            NumberText(info.Min) + " … " + NumberText(info.Max),
            NumberText(driver.QuelValeurPour(channel)),
            NumberText(driver.QuelValeurSansPersonnalisationPour(channel))};
}

/// The calibre of this number or name.
int CalibreNamed(const ChannelInfo& channel, const std::string& wish) {
    const auto named = std::ranges::find(channel.Calibres, wish);
    if (named != channel.Calibres.end()) {
        return static_cast<int>(named - channel.Calibres.begin());
    }
    int number = -1;
    const auto [end, error] = std::from_chars(wish.data(), wish.data() + wish.size(), number);
    if (error != std::errc() || end != wish.data() + wish.size() || number < 0 ||
        number >= static_cast<int>(channel.Calibres.size())) {
        throw WrongArgument("Channel " + std::to_string(channel.Index) + " has no calibre \"" +
                            wish + "\".");
    }
    return number;
}

/// The driver doesn't tell of a console that refuses.
void CheckSelected(const std::string& what, int wish, int selected) {
    if (selected != wish) {
        throw HostError("The console does not select " + what + " " + std::to_string(wish) + ".");
    }
}

void SelectFunction(const DriverExports& driver, int channel, int function) {
    if (function < 0 || function >= driver.CombienDeFonctionPour(channel)) {
        throw WrongArgument("Channel " + std::to_string(channel) + " has no function " +
                            std::to_string(function) + ".");
    }
    driver.MetFonctionPour(channel, function);
    CheckSelected("function", function, driver.QuelFonctionPour(channel));
}

void SelectCalibre(const DriverExports& driver, int channel, const std::string& wish) {
    const int calibre = CalibreNamed(DescribeChannel(driver, channel), wish);
    driver.MetCalibrePour(channel, calibre);
    CheckSelected("calibre", calibre, driver.QuelCalibrePour(channel));
}

void Apply(const DriverExports& driver, const SetOptions& wish) {
    if (wish.Function) {
        SelectFunction(driver, wish.Channel, *wish.Function);
    }
    if (!wish.Calibre.empty()) {
        SelectCalibre(driver, wish.Channel, wish.Calibre);
    }
    if (wish.Quantity || wish.Unit) {
        // The special mode takes both texts from the host; the one not given stays as it is.
        const ChannelInfo channel = DescribeChannel(driver, wish.Channel);
        const auto wide = [](const std::string& text) { return wxString::FromUTF8(text); };
        driver.MetGrandeurPour(wish.Channel,
                               wide(wish.Quantity.value_or(channel.Quantity)).wc_str());
        driver.MetUnitPour(wish.Channel, wide(wish.Unit.value_or(channel.Unit)).wc_str());
        driver.MetModeSpecialPour(wish.Channel, 1);
    }
    if (wish.Ampli) {
        driver.MetAmpliPour(wish.Channel, *wish.Ampli);
    }
    if (wish.Offset) {
        driver.MetOffsetPour(wish.Channel, *wish.Offset);
    }
}

void Set(const DriverOptions& options, const SetOptions& wish) {
    if (!std::isfinite(wish.Ampli.value_or(1.0)) || !std::isfinite(wish.Offset.value_or(0.0))) {
        throw WrongArgument("A scale is made of two finite numbers.");
    }
    const auto session = OpenDriver(options);
    const DriverExports& driver = session->Driver.Exports;
    CheckChannel(EnumerateChannels(driver), wish.Channel);
    const std::vector<std::string> before = Effect(driver, wish.Channel);
    Apply(driver, wish);
    const std::vector<std::string> after = Effect(driver, wish.Channel);
    constexpr const char* titles[] = {"Function", "Calibre",      "Quantity",     "Unit",
                                      "Range",    "Scaled value", "Console value"};
    std::vector<std::vector<std::string>> rows;
    for (size_t i = 0; i < before.size(); ++i) {
        rows.push_back({titles[i], before[i], after[i]});
    }
    std::cout << TableForOutput({{"Setting"}, {"Before"}, {"After"}}, rows);
}

} // namespace

void AddSetCommand(CLI::App& app, const DriverOptions& driver) {
    auto wish = std::make_shared<SetOptions>();
    CLI::App* command = app.add_subcommand(
        "set", "Sets a channel and shows the effect; the settings last as long as the command");
    command->add_option("channel", wish->Channel, "Which input channel")
        ->type_name("CHANNEL")
        ->required();
    command->add_option("--function", wish->Function, "Select this function")->type_name("N");
    command->add_option("--calibre", wish->Calibre, "Select this calibre, by number or name")
        ->type_name("N|NAME");
    command->add_option("--ampli", wish->Ampli, "Multiply values by this")->type_name("A");
    command->add_option("--offset", wish->Offset, "Then add this to them")->type_name("B");
    command->add_option("--quantity", wish->Quantity, "Symbol of the quantity")->type_name("TEXT");
    command->add_option("--unit", wish->Unit, "Symbol of the unit")->type_name("TEXT");
    command->callback([wish, &driver] { Set(driver, *wish); });
}
