#include "hosts/orvane/commands/commands.h"
#include "hosts/orvane/commands/json_texts.h"
#include "hosts/orvane/commands/shared_options.h"
#include "hosts/orvane/terminal/interrupt.h"
#include "hosts/orvane/terminal/standard_output.h"
#include "hosts/session/channel_setup.h"
#include "hosts/session/driver_time.h"
#include "hosts/session/durations.h"
#include "hosts/session/number_text.h"

#include <unistd.h>

#include <algorithm>
#include <iostream>

namespace orvane {

namespace {

struct ReadOptions {
    bool Watch = false;
    bool Json = false;
    std::string Interval = "200ms";
    std::vector<std::string> Settings;
};

std::string ValueTable(const DriverExports& driver, const std::vector<ChannelInfo>& channels) {
    constexpr size_t valueWidth = 12; // keeps the units in place while the values change
    TextRows rows;
    for (const ChannelInfo& channel : channels) {
        std::string value = NumberText(driver.QuelValeurPour(channel.Index));
        value.insert(0, valueWidth - std::min(valueWidth, value.size()), ' ');
        rows.push_back({std::to_string(channel.Index), channel.Name, value, channel.Unit});
    }
    return TableForOutput({{"", true}, {}, {"", true}, {}}, rows);
}

/// All values on one line, separated by tabs.
std::string ValueLine(const DriverExports& driver, const std::vector<ChannelInfo>& channels) {
    std::string line;
    for (const ChannelInfo& channel : channels) {
        line += line.empty() ? "" : "\t";
        line += channel.Name + " " + NumberText(driver.QuelValeurPour(channel.Index)) + " " +
                channel.Unit;
    }
    return line + "\n";
}

/// Shows values again and again; a table stays in its place.
struct Watch {
    explicit Watch(bool json) : Json(json), InPlace(!json && CanOverwrite(STDOUT_FILENO)) {}

    void Show(const DriverExports& driver, const std::vector<ChannelInfo>& channels) {
        if (!InPlace) {
            std::cout << (Json ? ValuesJson(driver, channels) : ValueLine(driver, channels));
            return;
        }
        const std::string table = ValueTable(driver, channels);
        std::cout << Up << table;
        const auto lines = std::ranges::count(table, '\n');
        Up = lines == 0 ? "" : "\x1b[" + std::to_string(lines) + "A\x1b[J";
    }

    bool Json;
    bool InPlace;
    std::string Up; ///< Brings the cursor back to the first line of the last table.
};

void WatchValues(const DriverExports& driver, const std::vector<ChannelSetup>& setups, bool json,
                 double intervalSec) {
    CatchInterrupts();
    Watch watch(json);
    auto channels = EnumerateChannels(driver, setups);
    while (!Interrupted()) {
        if (!driver.VerifCanaux()) {
            std::cerr << "orvane: The adapters of the console changed.\n";
            channels =
                EnumerateChannels(driver, setups); // The settings were lost with the old channels.
            watch.Up.clear();
        }
        watch.Show(driver, channels);
        if (!FlushOrEnd()) {
            return;
        }
        WaitFor(driver, intervalSec, NotInterrupted);
    }
}

void ReadValues(const DriverOptions& driverOptions, const ReadOptions& options) {
    const double intervalSec = ParseWait("interval", options.Interval);
    const std::vector<ChannelSetup> setups = ParseChannelSetups(options.Settings);
    const auto session = OpenDriver(driverOptions);
    const DriverExports& driver = session->Driver.Exports;
    if (options.Watch) {
        WatchValues(driver, setups, options.Json, intervalSec);
        return;
    }
    const auto channels = EnumerateChannels(driver, setups);
    std::cout << (options.Json ? ValuesJson(driver, channels) : ValueTable(driver, channels));
}

} // namespace

void AddReadCommand(CLI::App& command, const DriverOptions& driver) {
    auto options = std::make_shared<ReadOptions>();
    command.add_flag("--watch", options->Watch, "Repeat until Ctrl-C");
    AddJsonFlag(command, options->Json);
    command.add_option("--interval", options->Interval, "Time between two reads of a watch")
        ->type_name("DURATION")
        ->capture_default_str()
        ->needs("--watch");
    AddSetOption(command, options->Settings);
    command.callback([options, &driver] { ReadValues(driver, *options); });
}

} // namespace orvane
