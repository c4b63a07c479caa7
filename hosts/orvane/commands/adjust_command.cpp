#include "hosts/orvane/commands/commands.h"
#include "hosts/orvane/commands/shared_options.h"
#include "hosts/orvane/terminal/standard_output.h"
#include "hosts/session/adjustment.h"
#include "hosts/session/channel_info.h"
#include "hosts/session/channel_setup.h"
#include "hosts/session/host_error.h"
#include "hosts/session/number_text.h"

#include <iostream>
#include <optional>

namespace orvane {

namespace {

struct AdjustOptions {
    std::string Channel;
    std::optional<double> Value;
    std::optional<int> Preset;
};

std::string StateOf(const AdjustmentInfo& adjustment) {
    return std::to_string(*adjustment.State) +
           (adjustment.StateText.empty() ? "" : " " + adjustment.StateText);
}

void ShowAdjustment(const DriverExports& driver, int channel, const std::string& unit) {
    const AdjustmentInfo adjustment = DescribeAdjustment(driver, channel);
    TextRows rows{{"Adjustment", AdjustmentKind(adjustment)}};
    if (!adjustment.Label.empty()) {
        rows.push_back({"Label", adjustment.Label});
    }
    if (adjustment.Value) {
        rows.push_back({"Value", std::to_string(*adjustment.Value)});
    }
    if (adjustment.State) {
        rows.push_back({"State", StateOf(adjustment)});
    }
    rows.push_back({"Channel", NumberText(driver.QuelValeurPour(channel)) + " " + unit});
    std::cout << TableForOutput({{""}, {""}}, rows);
}

void AdjustChannel(const DriverOptions& options, const AdjustOptions& wanted) {
    const auto session = OpenDriver(options);
    const DriverExports& driver = session->Driver.Exports;
    const std::vector<ChannelInfo> channels = EnumerateChannels(driver);
    const int channel = ChannelNamed(channels, wanted.Channel);
    if (!HasAdjustment(DescribeAdjustment(driver, channel))) {
        throw HostError("Channel " + std::to_string(channel) + " has no adjustment.");
    }
    if (wanted.Value) {
        driver.MetReglagePour(channel, *wanted.Value);
    }
    if (wanted.Preset) {
        driver.PresetAdaptateurPour(channel, *wanted.Preset);
    }
    ShowAdjustment(driver, channel, channels[static_cast<size_t>(channel)].Unit);
}

} // namespace

void AddAdjustCommand(CLI::App& command, const DriverOptions& driver) {
    auto options = std::make_shared<AdjustOptions>();
    AddChannelArgument(command, options->Channel);
    CLI::Option* value =
        command.add_option("--value", options->Value, "Give this value to the adjustment")
            ->type_name("X");
    command
        .add_option("--preset", options->Preset,
                    "Set this preset of the adapter and wait until it is ready, at most 6 s")
        ->type_name("N")
        ->excludes(value);
    command.callback([options, &driver] { AdjustChannel(driver, *options); });
}

} // namespace orvane
