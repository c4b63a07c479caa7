#include "hosts/orvane/commands/commands.h"
#include "hosts/orvane/commands/json_texts.h"
#include "hosts/orvane/commands/run_outputs.h"
#include "hosts/orvane/commands/run_report.h"
#include "hosts/orvane/commands/shared_options.h"
#include "hosts/orvane/terminal/interrupt.h"
#include "hosts/orvane/terminal/progress_bar.h"
#include "hosts/plot/chart_drawing.h"
#include "hosts/session/channel_setup.h"
#include "hosts/session/durations.h"
#include "hosts/session/host_error.h"
#include "hosts/session/output_signal.h"

#include <unistd.h>

#include <iostream>
#include <optional>

namespace orvane {

namespace {

struct AcquireOptions {
    std::string Period = "1ms";
    std::string Points = "1000";
    std::optional<std::string> Channels;
    std::optional<std::string> Trigger;
    bool PreTrigger = false;
    std::string Runs = "1";
    std::optional<std::string> Csv;
    std::optional<std::string> Plot;
    bool Live = false;
    bool Json = false;
    std::vector<std::string> Played;
    std::vector<std::string> Settings;
};

/// What the command line asks for, complete and checked.
struct RunSeries {
    AcquisitionRequest Request;
    std::vector<ChannelInfo> Channels; ///< Those of the request, in its order.
    RunTargets Targets;
    bool Live = false; ///< Keep the live samples.
};

AcquisitionRequest ParseRequest(const AcquireOptions& options) {
    AcquisitionRequest request;
    request.PeriodSec = ParsePeriod(options.Period);
    request.Points = ParseCount("points", options.Points);
    if (options.Channels) {
        request.Channels = ParseChannelList(*options.Channels);
    }
    if (options.Trigger) {
        request.Trigger = ParseTrigger(*options.Trigger);
    }
    request.PreTrigger = options.PreTrigger;
    return request;
}

RunTargets ParseTargets(const AcquireOptions& options) {
    if (options.Plot) {
        CheckChartFile(*options.Plot);
    }
    RunTargets targets{.Csv = options.Csv,
                       .Plot = options.Plot,
                       .Runs = static_cast<size_t>(ParseCount("runs", options.Runs)),
                       .Json = options.Json};
    return targets;
}

std::string RunText(const RunSeries& series, size_t run) {
    return series.Targets.Runs == 1
               ? "The run"
               : "Run " + std::to_string(run) + " of " + std::to_string(series.Targets.Runs);
}

/// Says that the console did not wait for the trigger, if the samples tell. There are no points
/// before a trigger that did not come: the times count from the first point then.
void CheckTriggered(const RunSeries& series, AcquisitionRecording& recording,
                    const std::vector<Samples>& samples) {
    const std::string missed =
        MissedTrigger(series.Request.Trigger, series.Channels, recording, samples);
    if (missed.empty()) {
        return;
    }
    std::cerr << "orvane: The console did not wait for the trigger: at time 0 " << missed << "."
              << (recording.PreTriggerPoints > 0
                      ? " It gave no pre-trigger points; the times count from the first point."
                      : "")
              << '\n';
    recording.PreTriggerPoints = 0;
}

void ReportEarlyEnd(const RunSeries& series, size_t run, const AcquisitionRecording& recording,
                    size_t all) {
    if (recording.End == RunEnd::Full) {
        return;
    }
    const std::string points =
        std::to_string(recording.Live.front().size()) + " of " + std::to_string(all) + " points";
    if (recording.End == RunEnd::Interrupted) {
        throw HostError(RunText(series, run) + " was interrupted after " + points + ".",
                        ErrorKind::Interrupted);
    }
    throw HostError("The adapters of the console changed after " + points + ".");
}

void PerformRun(const DriverExports& driver, const RunSeries& series, size_t run,
                RunOutputs& outputs) {
    const size_t points = PointsInAll(series.Request, driver);
    AcquisitionRecording recording;
    {
        ProgressBar bar(points * series.Targets.Runs);
        recording = RecordAcquisition(driver, series.Request, [&](size_t done) {
            bar.Show((run - 1) * points + done);
            return !Interrupted();
        });
    }
    const std::vector<Samples>& samples = series.Live ? recording.Live : KeptSamples(recording);
    CheckTriggered(series, recording, samples);
    std::ostream& report = ReportStream(series.Targets, outputs);
    if (series.Targets.Json) {
        std::cout << RunJson(series.Channels, recording, samples);
    } else {
        const std::string which =
            series.Targets.Runs == 1 ? "Period " : RunText(series, run) + ", period ";
        report << which << DurationText(recording.PeriodSec) << ", "
               << (&samples == &recording.Live ? "live" : "fetched") << " samples:\n"
               << SummaryTable(series.Channels, samples,
                               &report == &std::cout ? STDOUT_FILENO : STDERR_FILENO);
    }
    SaveRun(series.Targets, run, outputs, series.Channels, recording, samples);
    report.flush();
    ReportEarlyEnd(series, run, recording, points);
}

void Acquire(const DriverOptions& driverOptions, const AcquireOptions& options) {
    RunSeries series{.Request = ParseRequest(options),
                     .Channels = {},
                     .Targets = ParseTargets(options),
                     .Live = options.Live};
    const std::vector<ChannelSetup> setups = ParseChannelSetups(options.Settings);
    const std::vector<PlayedSignal> signals = ParsePlayedSignals(options.Played);
    CatchInterrupts(); // From here on, temporary files have to be removed.
    RunOutputs outputs;
    OpenOutputs(series.Targets, 1, outputs);
    if (options.Json && outputs.Csv && outputs.Csv->ToStandardOutput) {
        throw WrongArgument("The CSV and the JSON cannot both go to standard output.");
    }

    const auto session = OpenDriver(driverOptions);
    const DriverExports& driver = session->Driver.Exports;
    const std::vector<ChannelInfo> all = EnumerateChannels(driver, setups);
    series.Request = CompleteRequest(series.Request, driver, all);
    for (const int index : series.Request.Channels) {
        series.Channels.push_back(all[static_cast<size_t>(index)]);
    }
    if (series.Request.PreTrigger && driver.GetNbPointPreSynchro() == 0) {
        std::cerr << "orvane: This console has no pre-trigger points.\n";
    }
    const SignalsAtWork playing(driver, signals);
    for (size_t run = 1; run <= series.Targets.Runs; ++run) {
        if (run > 1) {
            OpenOutputs(series.Targets, run, outputs);
        }
        PerformRun(driver, series, run, outputs);
    }
}

} // namespace

void AddAcquireCommand(CLI::App& command, const DriverOptions& driver) {
    auto options = std::make_shared<AcquireOptions>();
    command.add_option("--period", options->Period, "Sample period: 1ms, 100us, 0.5s")
        ->type_name("DURATION")
        ->capture_default_str();
    command.add_option("--points", options->Points, "Points per channel")
        ->type_name("N")
        ->capture_default_str();
    command
        .add_option("--channels", options->Channels,
                    "Input channels, in the order of the columns: 1,0 (default: all)")
        ->type_name("LIST");
    CLI::Option* trigger =
        command
            .add_option("--trigger", options->Trigger,
                        "Begin where a channel crosses a level, rising or falling")
            ->type_name("CHANNEL:LEVEL:EDGE");
    command.add_flag("--pre", options->PreTrigger, "With the pre-trigger points of the console")
        ->needs(trigger);
    command
        .add_option("--runs", options->Runs,
                    "Runs, one after the other; of several, run 2 goes to out-2.csv for "
                    "--csv out.csv and to out-2.png for --plot out.png")
        ->type_name("N")
        ->capture_default_str();
    command
        .add_option("--csv", options->Csv,
                    "Write the samples to this file, or with - to standard output, where "
                    "several runs make one table with a column for the run")
        ->type_name("FILE");
    command.add_option("--plot", options->Plot, "Draw the run to this .png or .svg file")
        ->type_name("FILE");
    command.add_flag("--live", options->Live,
                     "Keep the samples read during the run in place of those fetched after it");
    command
        .add_option(
            "--play", options->Played,
            "Play a signal on an analog output during the runs: shape square, sine or "
            "triangle, frequency in Hz, amplitude from the lowest to the highest value; may "
            "be repeated")
        ->type_name("OUTPUT:SHAPE:FREQUENCY:AMPLITUDE[:OFFSET]")
        ->allow_extra_args(false);
    AddSetOption(command, options->Settings);
    AddJsonFlag(command, options->Json);
    command.callback([options, &driver] { Acquire(driver, *options); });
}

} // namespace orvane
