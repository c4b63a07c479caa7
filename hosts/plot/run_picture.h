#pragma once

#include "hosts/plot/plot_picture.h"
#include "hosts/session/acquisition_recording.h"
#include "hosts/session/sample_series.h"

namespace orvane {

/// A channel's panel without points: its texts and limits.
PlotPanel EmptyPanel(const ChannelInfo& channel);

/// A run and the outlines of its samples, which a picture of a long one is drawn from.
struct PicturedRun {
    const std::vector<ChannelInfo>& Channels;
    const AcquisitionRecording& Recording;
    std::span<const SeriesOutline> Live; ///< One for each channel, or none at all.
    std::span<const SeriesOutline> Fetched;
};

/// The live samples as dots and the fetched ones as curves over a stretch of time, without size and
/// legends. Each panel draws all samples of a short stretch and two for each of `steps` parts of a
/// long one.
PlotPicture PictureOf(const PicturedRun& run, PlotRange timeSec, size_t steps);

/// Draws a picture to a file, in the size that suits one, and publishes the file. Throws HostError
/// if it cannot be written in full.
void SavePicture(PlotPicture picture, PendingFile& file, const std::string& device);

} // namespace orvane
