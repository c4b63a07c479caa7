#include "hosts/orvane/commands/run_outputs.h"

#include "hosts/plot/run_picture.h"

#include <iostream>
#include <span>

namespace orvane {

namespace {

/// From a little before the first point, whose dot stays whole so, to the end of the last period.
AxisRange TimeRange(std::span<const double> times) {
    constexpr double air = 0.006;
    const double period = times.size() > 1 ? times[1] - times[0] : 1.0;
    const double end = times.back() + period;
    return {times.front() - air * (end - times.front()), end};
}

Chart PictureOf(const std::vector<ChannelInfo>& channels, const Samples& times,
                const AcquisitionRecording& recording) {
    constexpr size_t steps = 1400; // about one for each pixel of a panel's width
    Chart picture = PictureOf({channels, recording, {}, {}}, TimeRange(times), steps);
    picture.XLabel = std::string("Time (") + TimeUnitOf(picture.X).Name + ")";
    picture.Legend = {{{1}, "• live"}, {{0}, "— fetched"}};
    return picture;
}

/// The name of a run's file; several runs go to files of their own unless one takes them all.
std::string NameOf(const std::string& target, const RunTargets& targets, size_t run) {
    return targets.Runs == 1 || IsWrittenDirectly(target) ? target : NumberedName(target, run);
}

} // namespace

std::string NumberedName(const std::string& name, size_t run) {
    const std::filesystem::path path = name;
    const std::string numbered = path.stem().string() + '-' + std::to_string(run);
    return path.parent_path() / (numbered + path.extension().string());
}

void OpenOutputs(const RunTargets& targets, size_t run, RunOutputs& outputs) {
    if (targets.Csv && !(outputs.Csv && outputs.Csv->Direct)) {
        outputs.Csv.emplace(NameOf(*targets.Csv, targets, run), PendingFile::Special::Written);
    }
    if (targets.Plot) {
        outputs.Plot.emplace(NameOf(*targets.Plot, targets, run));
    }
    if (outputs.Csv && outputs.Plot && outputs.Csv->Target == outputs.Plot->Target) {
        throw WrongArgument("The CSV and the plot cannot both be " + *targets.Csv + ".");
    }
}

void SaveRun(const RunTargets& targets, size_t run, RunOutputs& outputs,
             const std::vector<ChannelInfo>& channels, const AcquisitionRecording& recording,
             const std::vector<Samples>& kept) {
    const Samples times = PointTimes(recording);
    if (times.empty()) {
        return;
    }
    std::ostream& report = ReportStream(targets, outputs);
    if (outputs.Csv) {
        PendingFile& file = *outputs.Csv;
        SaveCsv(file, channels, times, kept, file.Direct && targets.Runs > 1 ? run : 0);
        if (!file.ToStandardOutput) {
            report << "CSV   " << file.Target.string() << "  (" << times.size()
                   << (times.size() == 1 ? " row)\n" : " rows)\n");
        }
    }
    if (outputs.Plot) {
        SaveChart(PictureOf(channels, times, recording), *outputs.Plot);
        report << "Plot  " << outputs.Plot->Target.string() << '\n';
    }
}

std::ostream& ReportStream(const RunTargets& targets, const RunOutputs& outputs) {
    const bool taken = targets.Json || (outputs.Csv && outputs.Csv->ToStandardOutput);
    return taken ? std::cerr : std::cout;
}

} // namespace orvane
