#include "hosts/common/channel_info.h"
#include "hosts/common/host_error.h"
#include "hosts/common/text_table.h"
#include "hosts/orvane/commands.h"

#include <charconv>
#include <cmath>
#include <iostream>

namespace {

struct CalibrateOptions {
    int Channel = 0;
    bool Start = false;
    std::vector<std::string> Values;
    bool Default = false;
    bool Abort = false;
};

struct CalibrationValue {
    int Point = 0;
    double Value = 0.0;
};

CalibrationValue ParseValue(const std::string& text) {
    CalibrationValue parsed;
    const char* const end = text.data() + text.size();
    const auto point = std::from_chars(text.data(), end, parsed.Point);
    if (point.ec == std::errc() && parsed.Point >= 0 && point.ptr != end && *point.ptr == ':') {
        const auto value = std::from_chars(point.ptr + 1, end, parsed.Value);
        if (value.ec == std::errc() && value.ptr == end && std::isfinite(parsed.Value)) {
            return parsed;
        }
    }
    throw WrongArgument("The calibration value \"" + text + "\" is no POINT:VALUE such as 0:1.5.");
}

void Calibrate(const DriverOptions& options, const CalibrateOptions& wish) {
    std::vector<CalibrationValue> values;
    for (const std::string& text : wish.Values) {
        values.push_back(ParseValue(text));
    }
    if (!wish.Start && values.empty() && !wish.Default && !wish.Abort) {
        throw WrongArgument("A calibration is one or more of --start, --value, --default and "
                            "--abort.");
    }
    const auto session = OpenDriver(options);
    const DriverExports& driver = session->Driver.Exports;
    const std::vector<ChannelInfo> channels = EnumerateChannels(driver);
    CheckChannel(channels, wish.Channel);
    const std::string& name = channels[static_cast<size_t>(wish.Channel)].Name;
    if (wish.Start) {
        driver.DebutCalibrationPour(wish.Channel);
        std::cout << "The calibration of " << name << " is begun.\n";
    }
    for (const CalibrationValue& value : values) {
        driver.MetCalibrationValuePour(wish.Channel, value.Point, value.Value);
        std::cout << name << " has the value " << NumberText(value.Value) << " for point "
                  << value.Point << ".\n";
    }
    if (wish.Default) {
        driver.ParDefautCalibrationPour(wish.Channel);
        std::cout << name << " has its default calibration again.\n";
    }
    if (wish.Abort) {
        driver.AbandonCalibrationPour(wish.Channel);
        std::cout << "The calibration of " << name << " is given up.\n";
    }
}

} // namespace

void AddCalibrateCommand(CLI::App& app, const DriverOptions& driver) {
    auto wish = std::make_shared<CalibrateOptions>();
    CLI::App* command = app.add_subcommand(
        "calibrate", "Calibrates a channel, in the order of the options; the console reports "
                     "nothing back");
    command->add_option("channel", wish->Channel, "Which input channel")
        ->type_name("CHANNEL")
        ->required();
    command->add_flag("--start", wish->Start, "Begin a calibration");
    command->add_option("--value", wish->Values, "The true value at a point; may be repeated")
        ->type_name("POINT:VALUE");
    CLI::Option* byDefault = command->add_flag("--default", wish->Default, "Back to the default");
    command->add_flag("--abort", wish->Abort, "Give the calibration up")->excludes(byDefault);
    command->callback([wish, &driver] { Calibrate(driver, *wish); });
}
