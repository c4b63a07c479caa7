#pragma once

#include "hosts/plot/chart.h"
#include "hosts/session/run_follower.h"
#include "hosts/session/sample_series.h"

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

/// The curves of the shown channels over the time before now.
Chart PictureOf(const StripChart& chart, const std::vector<ChannelInfo>& channels,
                const std::vector<int>& shown);

/// The values of the shown channels nearest to a time before now.
std::optional<CursorPoint> PointAt(const StripChart& chart, const std::vector<int>& shown,
                                   double timeSec);

/// A run as the window shows it, from its start until the next one.
struct ShownRun {
    ShownRun(const DriverExports& driver, const AcquisitionRequest& request,
             std::vector<ChannelInfo> channels)
        : Channels(std::move(channels)),
          Followed(driver, request, FollowedRun::LongCalls::Background), Live(Channels.size()),
          Fetched(Channels.size()) {}

    std::vector<ChannelInfo> Channels; ///< Those of the run, as they were at its start.
    FollowedRun Followed;
    std::vector<SeriesOutline> Live;
    std::vector<SeriesOutline> Fetched;
};

/// Follows the run for one step, as StepRun does.
size_t Step(ShownRun& run, size_t samples);

/// From the first point to the end of the last period.
AxisRange WholeTime(const ShownRun& run);

Chart PictureOf(const ShownRun& run, std::optional<AxisRange> zoom, size_t steps);

/// The samples nearest to a time; nothing if there are none yet.
std::optional<CursorPoint> PointAt(const ShownRun& run, double timeSec);

} // namespace orvane
