#include "hosts/orvane/commands/commands.h"
#include "hosts/orvane/commands/shared_options.h"
#include "hosts/session/channel_setup.h"
#include "hosts/session/host_error.h"
#include "hosts/session/number_text.h"
#include "hosts/session/sentence_parts.h"
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
    throw WrongArgument("The calibration value " + Quoted(text) +
                        " is not of the form POINT:VALUE, such as 0:1.5.");
}

void Calibrate(const DriverOptions& driverOptions, const CalibrateOptions& options) {
    std::vector<CalibrationValue> values;
    for (const std::string& text : options.Values) {
        values.push_back(ParseValue(text));
    }
    if (!options.Start && values.empty() && !options.Default && !options.Abort) {
        throw WrongArgument("Nothing to do: a calibration takes --start, --value, --default or "
                            "--abort.");
    }
    const auto session = OpenDriver(driverOptions);
    const DriverExports& driver = session->Driver.Exports;
    const std::vector<ChannelInfo> channels = EnumerateChannels(driver);
    const int channel = ChannelNamed(channels, options.Channel);
    const std::string& name = channels[static_cast<size_t>(channel)].Name;
    if (options.Start) {
        driver.DebutCalibrationPour(channel);
        std::cout << "The calibration of " << name << " has started.\n";
    }
    for (const CalibrationValue& value : values) {
        driver.MetCalibrationValuePour(channel, value.Point, value.Value);
        std::cout << name << " has the value " << NumberText(value.Value) << " for point "
                  << value.Point << ".\n";
    }
    if (options.Default) {
        driver.ParDefautCalibrationPour(channel);
        std::cout << name << " has its default calibration again.\n";
    }
    if (options.Abort) {
        driver.AbandonCalibrationPour(channel);
        std::cout << "The calibration of " << name << " was aborted.\n";
    }
}

} // namespace

void AddCalibrateCommand(CLI::App& command, const DriverOptions& driver) {
    auto options = std::make_shared<CalibrateOptions>();
    AddChannelArgument(command, options->Channel);
    command.add_flag("--start", options->Start, "Start a calibration");
    command.add_option("--value", options->Values, "The true value at a point; may be repeated")
        ->type_name("POINT:VALUE");
    CLI::Option* byDefault =
        command.add_flag("--default", options->Default, "Restore the default calibration");
    command.add_flag("--abort", options->Abort, "Abort the calibration")->excludes(byDefault);
    command.callback([options, &driver] { Calibrate(driver, *options); });
}

} // namespace orvane
