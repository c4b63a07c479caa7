#pragma once

#include "hosts/plot/chart.h"
#include "hosts/session/acquisition_recording.h"
#include "hosts/session/pending_file.h"
#include "hosts/session/sample_series.h"

namespace orvane {

/// A channel's lane without curves: its texts and limits.
ChartLane EmptyLane(const ChannelInfo& channel);

/// A run and the outlines of its samples, which a picture of a long one is drawn from.
struct PicturedRun {
    const std::vector<ChannelInfo>& Channels;
    const AcquisitionRecording& Recording;
    std::span<const SeriesOutline> Live; ///< One for each channel, or none at all.
    std::span<const SeriesOutline> Fetched;
};

/// The live samples as dots and the fetched ones as curves over a stretch of time, without size and
/// legends. Each lane draws all samples of a short stretch and two for each of `steps` parts of a
/// long one.
Chart PictureOf(const PicturedRun& run, AxisRange timeSec, size_t steps);

/// The samples of a run as curves, each in the colour and pattern of its channel's number.
struct RunCurves {
    const std::vector<ChannelInfo>& Channels;
    const AcquisitionRecording& Recording;
    const std::vector<Samples>& Values;      ///< One for each channel.
    std::span<const SeriesOutline> Outlines; ///< The same.
};

/// How channels are laid out.
struct LaneView {
    bool OneEach = false;    ///< A lane for each channel instead of each unit.
    bool WholeRange = false; ///< As high as the calibres instead of what the curves need.
};

/// The lane of each channel.
std::vector<size_t> LanesOf(const std::vector<ChannelInfo>& channels, bool oneEach);

/// The lanes of the channels without curves.
std::vector<ChartLane> LanesFor(const std::vector<ChannelInfo>& channels, const LaneView& view);

/// The curves of a run over a stretch of time. What lies before time 0 is shaded.
Chart ChartOf(const RunCurves& run, AxisRange timeSec, size_t steps, const LaneView& view);

/// Adds the curves of a former run below those of a chart, as far as its channels are in it with
/// the same calibre and scale.
/// \param age from 1 on; the older, the paler
void AddFormer(Chart& chart, const std::vector<ChannelInfo>& channels, const RunCurves& former,
               size_t age, size_t steps, const LaneView& view);

/// The last values of some channels over the time before now.
struct StripCurves {
    const std::vector<ChannelInfo>& Channels;
    const std::vector<double>& TimesSec; ///< Before now.
    std::vector<const Samples*> Values;  ///< One for each channel; null: none yet.
};
Chart ChartOf(const StripCurves& strip, AxisRange timeSec, const LaneView& view);

/// The samples that lie in a range of time, with a neighbour on each side.
SampleStretch StretchIn(const AcquisitionRecording& recording, size_t count, AxisRange timeSec);

/// Draws a chart to a file, in the size that suits one, and publishes the file. Throws HostError
/// if it cannot be written in full.
void SaveChart(Chart chart, PendingFile& file);

/// The same for charts that have their sizes, side by side.
void SaveRow(std::span<const Chart> row, PendingFile& file);

} // namespace orvane
