#pragma once

#include "hosts/plot/run_picture.h"
#include "hosts/session/run_follower.h"
#include "hosts/session/samples_file.h"

#include <optional>

namespace orvane {

/// The samples at a place of a chart, one for each channel that is shown.
struct CursorPoint {
    double TimeSec = 0.0;
    std::vector<double> Values;
};

/// The last measured values of the channels.
struct StripChart {
    static constexpr double LengthSec = 10.0;

    std::vector<double> TimesSec; ///< Ascending, of any clock.
    std::vector<Samples> Values;  ///< One for each channel, as long as the times.
};

/// Adds a value of each channel and removes those that are too old.
void Append(StripChart& chart, double timeSec, const std::vector<double>& values);

/// The curves of these channels over the time before now.
Chart ChartOf(const StripChart& chart, const std::vector<ChannelInfo>& shown, const LaneView& view);

/// The values of the shown channels nearest to a time before now.
std::optional<CursorPoint> PointAt(const StripChart& chart, const std::vector<ChannelInfo>& shown,
                                   double timeSec);

/// A run as the window shows it, from its start on, or one of a file.
struct ShownRun {
    ShownRun(const DriverExports& driver, const AcquisitionRequest& request,
             std::vector<ChannelInfo> channels);
    explicit ShownRun(SamplesFile file);

    std::vector<ChannelInfo> Channels;   ///< Those of the run, as they were at its start.
    std::optional<FollowedRun> Followed; ///< Until it has ended.
    AcquisitionRecording Ended;          ///< From then on.
    size_t Points;                       ///< Of each channel, pre-trigger points included.
    std::optional<AcquisitionTrigger> Trigger;
    SamplesNotes Notes;
    std::string Title; ///< In the corner of the curves.
    std::vector<SeriesOutline> Live;
    std::vector<SeriesOutline> Fetched;
};

/// Follows the run for one step, as StepRun does.
size_t Step(ShownRun& run, size_t samples);

/// \name What there is of a run so far
/// @{
const AcquisitionRecording& RecordingOf(const ShownRun& run);
const std::vector<Samples>& SamplesOf(const ShownRun& run);
RunCurves CurvesOf(const ShownRun& run);
size_t PointsOf(const ShownRun& run);
/// @}

/// From the first point to the end of the last period.
AxisRange WholeTime(const ShownRun& run);

/// The samples nearest to a time; nothing if there are none yet.
std::optional<CursorPoint> PointAt(const ShownRun& run, double timeSec);

/// Whether it is small enough to be kept beside others.
bool MayStay(const ShownRun& run);

/// Gives the live samples back to the system if those that were fetched are kept.
void ReleaseLive(ShownRun& run);

/// The former runs that an overlay shows, the latest first.
using FormerRuns = std::vector<std::shared_ptr<ShownRun>>;

/// Makes a run the latest of the former ones, which are held to a number and to a size.
void AddFormer(FormerRuns& former, std::shared_ptr<ShownRun> run);

} // namespace orvane
