#include "hosts/orvane/commands/chart_target.h"
#include "hosts/orvane/commands/commands.h"
#include "hosts/orvane/commands/json_texts.h"
#include "hosts/orvane/commands/shared_options.h"
#include "hosts/orvane/terminal/interrupt.h"
#include "hosts/orvane/terminal/standard_output.h"
#include "hosts/plot/flow_picture.h"
#include "hosts/plot/run_picture.h"
#include "hosts/session/channel_info.h"
#include "hosts/session/durations.h"
#include "hosts/session/host_error.h"
#include "hosts/session/number_text.h"
#include "hosts/session/spirometer.h"

#include <unistd.h>

#include <iostream>
#include <limits>
#include <optional>
#include <vector>

namespace orvane {

namespace {

struct SpiroOptions {
    std::string Seconds; ///< Empty: until Ctrl-C.
    std::optional<std::string> Plot;
    bool Json = false;
};

struct SpiroUnits {
    std::string Flow;
    std::string Volume;
};

std::string FlowLine(const FlowReading& reading, const SpiroUnits& units) {
    return "Flow " + NumberText(reading.Flow) + ' ' + units.Flow + "\tpositive " +
           NumberText(reading.VolumeOut) + ' ' + units.Volume + "\tnegative " +
           NumberText(reading.VolumeIn) + ' ' + units.Volume;
}

std::string ForcedBreathLine(const std::optional<ForcedBreath>& best, const SpiroUnits& units) {
    constexpr int decimals = 2;
    return best ? "FVC " + FixedText(best->Fvc, decimals) + ' ' + units.Volume + "\tFEV1 " +
                      FixedText(best->Fev1, decimals) + ' ' + units.Volume + "\tPEF " +
                      FixedText(best->Pef, decimals) + ' ' + units.Flow + '\n'
                : "No forced breath.\n";
}

/// Shows readings as they come, until the time is over or Ctrl-C.
void ShowFlow(const DriverExports& driver, const SpiroOptions& options, const SpiroUnits& units,
              double seconds, std::vector<FlowReading>& readings) {
    const bool overwrites = !options.Json && CanOverwrite(STDOUT_FILENO);
    Spirometer spirometer(driver);
    FollowFlow(spirometer, seconds, NotInterrupted, [&](const FlowReading& reading) {
        readings.push_back(reading);
        if (options.Json) {
            std::cout << FlowJson(reading);
        } else {
            std::cout << (overwrites ? "\r\x1b[K" : "") << FlowLine(reading, units)
                      << (overwrites ? "" : "\n");
        }
        return FlushOrEnd();
    });
    std::cout << (overwrites ? "\n" : "");
}

/// Says what the readings gave, and draws them.
void Conclude(const std::vector<FlowReading>& readings, const SpiroOptions& options,
              const SpiroUnits& units, std::optional<PendingFile>& plot) {
    const auto best = BestForcedBreath(readings);
    std::cout << (options.Json ? ForcedBreathJson(best) : ForcedBreathLine(best, units));
    if (plot && !readings.empty()) {
        SaveRow(PicturesOf(readings, units.Flow, units.Volume), *plot);
        ReportChart(*plot, options.Json);
    }
}

void Measure(const DriverOptions& driverOptions, const SpiroOptions& options) {
    const double seconds = options.Seconds.empty() ? std::numeric_limits<double>::infinity()
                                                   : ParseWait("time", options.Seconds);
    CatchInterrupts(); // From here on, a temporary file has to be removed.
    std::optional<PendingFile> plot;
    OpenChartFile(options.Plot, plot);
    const auto session = OpenDriver(driverOptions);
    const DriverExports& driver = session->Driver.Exports;
    SpiroUnits units{.Flow = TextOf(driver.QuelUnitePour(FindTurbine(driver))), .Volume = {}};
    units.Volume = VolumeUnit(units.Flow);
    std::vector<FlowReading> readings;
    try {
        ShowFlow(driver, options, units, seconds, readings);
    } catch (const HostError&) { // What was measured until then is kept.
        Conclude(readings, options, units, plot);
        throw;
    }
    Conclude(readings, options, units, plot);
}

} // namespace

void AddSpiroCommand(CLI::App& command, const DriverOptions& driver) {
    auto options = std::make_shared<SpiroOptions>();
    command.footer(
        "A positive flow is an expiration. At the end come FVC, FEV1 and PEF of the best "
        "forced breath, that with the largest sum of FVC and FEV1.");
    command.add_option("--seconds", options->Seconds, "End after this time")->type_name("DURATION");
    command
        .add_option("--plot", options->Plot,
                    "Draw the volume over time and the flow over the volume to this .png or .svg "
                    "file")
        ->type_name("FILE");
    AddJsonFlag(command, options->Json);
    command.callback([options, &driver] { Measure(driver, *options); });
}

} // namespace orvane
