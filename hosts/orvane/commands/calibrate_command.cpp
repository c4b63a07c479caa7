#include "hosts/orvane/commands/commands.h"
#include "hosts/session/channel_setup.h"
#include "hosts/session/host_error.h"
#include "hosts/session/number_text.h"
#include "hosts/session/text_parsing.h"

#include <cmath>
#include <iostream>

namespace orvane {

namespace {

struct CalibrateOptions {
    std::string Channel; ///< Index or name.
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
    const auto parts = Split(text, ':');
    if (parts.size() == 2) {
        const auto point = ParseNumber<int>(parts[0]);
        const auto value = ParseNumber<double>(parts[1]);
        if (point && *point >= 0 && value && std::isfinite(static_cast<float>(*value))) {
            return {*point, *value};
        }
    }
    throw WrongArgument("The calibration value \"" + text +
                        "\" is not of the form POINT:VALUE, such as 0:1.5.");
}

void Calibrate(const DriverOptions& options, const CalibrateOptions& wish) {
    std::vector<CalibrationValue> values;
    for (const std::string& text : wish.Values) {
        values.push_back(ParseValue(text));
    }
    if (!wish.Start && values.empty() && !wish.Default && !wish.Abort) {
        throw WrongArgument("Nothing to do: a calibration takes --start, --value, --default or "
                            "--abort.");
    }
    const auto session = OpenDriver(options);
    const DriverExports& driver = session->Driver.Exports;
    const std::vector<ChannelInfo> channels = EnumerateChannels(driver);
    const int channel = ChannelNamed(channels, wish.Channel);
    const std::string& name = channels[static_cast<size_t>(channel)].Name;
    if (wish.Start) {
        driver.DebutCalibrationPour(channel);
        std::cout << "The calibration of " << name << " is begun.\n";
    }
    for (const CalibrationValue& value : values) {
        driver.MetCalibrationValuePour(channel, value.Point, value.Value);
        std::cout << name << " has the value " << NumberText(value.Value) << " for point "
                  << value.Point << ".\n";
    }
    if (wish.Default) {
        driver.ParDefautCalibrationPour(channel);
        std::cout << name << " has its default calibration again.\n";
    }
    if (wish.Abort) {
        driver.AbandonCalibrationPour(channel);
        std::cout << "The calibration of " << name << " is given up.\n";
    }
}

} // namespace

void AddCalibrateCommand(CLI::App& app, const DriverOptions& driver) {
    auto wish = std::make_shared<CalibrateOptions>();
    CLI::App* command = app.add_subcommand(
        "calibrate", "Calibrates a channel, in the order of the options; the console reports "
                     "nothing back");
    command->add_option("channel", wish->Channel, "Which input channel, by number or name")
        ->type_name("CHANNEL")
        ->required();
    command->add_flag("--start", wish->Start, "Begin a calibration");
    command->add_option("--value", wish->Values, "The true value at a point; may be repeated")
        ->type_name("POINT:VALUE");
    CLI::Option* byDefault = command->add_flag("--default", wish->Default, "Back to the default");
    command->add_flag("--abort", wish->Abort, "Give the calibration up")->excludes(byDefault);
    command->callback([wish, &driver] { Calibrate(driver, *wish); });
}

} // namespace orvane
