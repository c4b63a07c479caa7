#include "hosts/common/acquisition_recording.h"
#include "hosts/common/durations.h"
#include "hosts/common/host_error.h"
#include "hosts/common/interrupt.h"
#include "hosts/common/pending_file.h"
#include "hosts/common/plot_picture.h"
#include "hosts/common/sample_series.h"
#include "hosts/common/text_table.h"
#include "hosts/orvane/commands.h"
#include "hosts/orvane/progress_bar.h"
#include "hosts/orvane/standard_output.h"

#include <iostream>
#include <optional>
#include <span>

namespace {

struct AcquireOptions {
    std::string Period = "1ms";
    std::string Points = "1000";
    std::string Channels;
    std::string Trigger;
    bool PreTrigger = false;
    std::string Csv;
    std::string Plot;
    bool Live = false;
};

/// The files that the run is written to, opened before it starts.
struct Outputs {
    std::optional<PendingFile> Csv;
    std::optional<PendingFile> Plot;
    std::string PlotDevice;
};

AcquisitionRequest ParseRequest(const AcquireOptions& options) {
    AcquisitionRequest request;
    request.PeriodSec = ParsePeriod(options.Period);
    request.Points = ParsePoints(options.Points);
    if (!options.Channels.empty()) {
        request.Channels = ParseChannelList(options.Channels);
    }
    if (!options.Trigger.empty()) {
        request.Trigger = ParseTrigger(options.Trigger);
    }
    request.PreTrigger = options.PreTrigger;
    return request;
}

void OpenOutputs(const AcquireOptions& options, Outputs& outputs) {
    if (!options.Csv.empty()) {
        outputs.Csv.emplace(options.Csv);
    }
    if (!options.Plot.empty()) {
        outputs.Plot.emplace(options.Plot);
    }
    if (outputs.Csv && outputs.Plot && outputs.Csv->Target == outputs.Plot->Target) {
        throw WrongArgument("The CSV and the plot cannot both be " + options.Csv + ".");
    }
}

AcquisitionRecording Record(const DriverExports& driver, const AcquisitionRequest& request) {
    ProgressBar bar(PointsInAll(request, driver));
    return RecordAcquisition(driver, request, [&](size_t points) { bar.Show(points); });
}

std::string SummaryTable(const std::vector<ChannelInfo>& channels,
                         const std::vector<Samples>& samples) {
    std::vector<std::vector<std::string>> rows;
    for (size_t i = 0; i < channels.size(); ++i) {
        const SeriesSummary summary = Summarise(samples[i]);
        rows.push_back({std::to_string(channels[i].Index), channels[i].Name, channels[i].Unit,
                        std::to_string(summary.Count), NumberText(summary.Min),
                        NumberText(summary.Mean), NumberText(summary.Max)});
    }
    return TableForOutput({{"Index", true},
                           {"Name"},
                           {"Unit"},
                           {"Count", true},
                           {"Min", true},
                           {"Mean", true},
                           {"Max", true}},
                          rows);
}

void SaveSamples(PendingFile& file, const std::vector<ChannelInfo>& channels, const Samples& times,
                 const std::vector<Samples>& samples) {
    SaveCsv(file, channels, times, samples);
    std::cout << "CSV   " << file.Target.string() << "  (" << times.size()
              << (times.size() == 1 ? " row)\n" : " rows)\n");
}

/// From a little before the first point, whose dot stays whole so, to the end of the last period.
PlotRange TimeRange(std::span<const double> times) {
    constexpr double air = 0.006;
    const double period = times.size() > 1 ? times[1] - times[0] : 1.0;
    const double end = times.back() + period;
    return {times.front() - air * (end - times.front()), end};
}

PlotPoints PointsToDraw(const Samples& times, const Samples& samples) {
    constexpr size_t drawnSteps = 1400; // about one for each pixel of a panel's width
    PlotPoints points;
    for (const size_t i : SamplesToDraw(samples, drawnSteps)) {
        points.TimesSec.push_back(times[i]);
        points.Values.push_back(samples[i]);
    }
    return points;
}

void SavePlot(PendingFile& file, const std::string& device,
              const std::vector<ChannelInfo>& channels, const Samples& times,
              const AcquisitionRecording& recording) {
    PlotPicture picture{.Panels = {},
                        .TimeSec = TimeRange(times),
                        .DotsLegend = "• live",
                        .CurveLegend = "— fetched",
                        .Width = 1600,
                        .Height = FileHeight(channels.size())};
    for (size_t i = 0; i < channels.size(); ++i) {
        const ChannelInfo& channel = channels[i];
        picture.Panels.push_back({.Title = CurveTitle(channel),
                                  .ValueLabel = QuantityWithUnit(channel),
                                  .Dots = PointsToDraw(times, recording.Live[i]),
                                  .Curve = PointsToDraw(times, recording.Fetched[i]),
                                  .Min = channel.Min,
                                  .Max = channel.Max});
    }
    DrawToFile(picture, file.Temporary, file.Target, device);
    Publish(file);
    std::cout << "Plot  " << file.Target.string() << '\n';
}

void ReportEarlyEnd(const AcquisitionRecording& recording, size_t all) {
    if (recording.End == RunEnd::Full) {
        return;
    }
    const std::string points =
        std::to_string(recording.Live.front().size()) + " of " + std::to_string(all) + " points";
    if (recording.End == RunEnd::Interrupted) {
        throw HostError("The run was interrupted after " + points + ".", ExitCode::Interrupted);
    }
    throw HostError("The adapters of the console changed after " + points + ".");
}

void Acquire(const DriverOptions& driverOptions, const AcquireOptions& options) {
    AcquisitionRequest request = ParseRequest(options);
    Outputs outputs;
    if (!options.Plot.empty()) {
        outputs.PlotDevice = PlotDeviceFor(options.Plot);
    }
    CatchInterrupts(); // From here on there are files to remove.
    OpenOutputs(options, outputs);

    const auto session = OpenDriver(driverOptions);
    const DriverExports& driver = session->Driver.Exports;
    const std::vector<ChannelInfo> all = EnumerateChannels(driver);
    request = CompleteRequest(request, driver, all);
    std::vector<ChannelInfo> channels;
    for (const int index : request.Channels) {
        channels.push_back(all[static_cast<size_t>(index)]);
    }

    if (request.PreTrigger && driver.GetNbPointPreSynchro() == 0) {
        std::cerr << "orvane: This console has no pre-trigger points.\n";
    }
    const AcquisitionRecording recording = Record(driver, request);
    const std::vector<Samples>& samples = options.Live ? recording.Live : KeptSamples(recording);
    const Samples times = PointTimes(recording);
    std::cout << "Period " << DurationText(recording.PeriodSec) << ", "
              << (&samples == &recording.Live ? "live" : "fetched") << " samples:\n"
              << SummaryTable(channels, samples);
    if (outputs.Csv && !times.empty()) {
        SaveSamples(*outputs.Csv, channels, times, samples);
    }
    if (outputs.Plot && !times.empty()) {
        SavePlot(*outputs.Plot, outputs.PlotDevice, channels, times, recording);
    }
    ReportEarlyEnd(recording, PointsInAll(request, driver));
}

} // namespace

void AddAcquireCommand(CLI::App& app, const DriverOptions& driver) {
    auto options = std::make_shared<AcquireOptions>();
    CLI::App* command = app.add_subcommand(
        "acquire", "Runs a buffered acquisition; Ctrl-C ends it and keeps the points so far");
    command->add_option("--period", options->Period, "Sample period: 1ms, 100us, 0.5s")
        ->type_name("DURATION")
        ->capture_default_str();
    command->add_option("--points", options->Points, "Points per channel")
        ->type_name("N")
        ->capture_default_str();
    command->add_option("--channels", options->Channels, "Input channels: 0,1 (default: all)")
        ->type_name("LIST");
    CLI::Option* trigger =
        command
            ->add_option("--trigger", options->Trigger,
                         "Begin where a channel crosses a level, rising or falling")
            ->type_name("CHANNEL:LEVEL:EDGE");
    command->add_flag("--pre", options->PreTrigger, "With the pre-trigger points of the console")
        ->needs(trigger);
    command->add_option("--csv", options->Csv, "Write the samples to this file")->type_name("FILE");
    command->add_option("--plot", options->Plot, "Draw the run to this .png or .svg file")
        ->type_name("FILE");
    command->add_flag("--live", options->Live,
                      "Keep the samples read during the run in place of those fetched after it");
    command->callback([options, &driver] { Acquire(driver, *options); });
}
