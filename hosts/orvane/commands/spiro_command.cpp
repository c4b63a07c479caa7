#include "hosts/orvane/commands/commands.h"
#include "hosts/orvane/terminal/interrupt.h"
#include "hosts/orvane/terminal/standard_output.h"
#include "hosts/session/channel_info.h"
#include "hosts/session/durations.h"
#include "hosts/session/number_text.h"
#include "hosts/session/spirometer.h"

#include <unistd.h>

#include <iostream>
#include <limits>

namespace orvane {

namespace {

struct SpiroOptions {
    std::string Seconds; ///< Empty: until Ctrl-C.
};

void ShowSpirometer(const DriverOptions& driverOptions, const SpiroOptions& options) {
    const double seconds = options.Seconds.empty() ? std::numeric_limits<double>::infinity()
                                                   : ParseWait("time", options.Seconds);
    CatchInterrupts();
    const auto session = OpenDriver(driverOptions);
    const DriverExports& driver = session->Driver.Exports;
    const std::string flowUnit = TextOf(driver.QuelUnitePour(FindTurbine(driver)));
    const std::string volumeUnit = VolumeUnit(flowUnit);
    const bool terminal = CanOverwrite(STDOUT_FILENO);
    Spirometer spirometer(driver);
    FollowFlow(spirometer, seconds, NotInterrupted, [&](const FlowReading& reading) {
        std::cout << (terminal ? "\r\x1b[K" : "") << "Flow " << NumberText(reading.Flow) << ' '
                  << flowUnit << "\tpositive " << NumberText(reading.PositiveVolume) << ' '
                  << volumeUnit << "\tnegative " << NumberText(reading.NegativeVolume) << ' '
                  << volumeUnit << (terminal ? "" : "\n");
        return FlushOrEnd();
    });
    std::cout << (terminal ? "\n" : "");
}

} // namespace

void AddSpiroCommand(CLI::App& command, const DriverOptions& driver) {
    auto options = std::make_shared<SpiroOptions>();
    command.add_option("--seconds", options->Seconds, "End after this time")->type_name("DURATION");
    command.callback([options, &driver] { ShowSpirometer(driver, *options); });
}

} // namespace orvane
