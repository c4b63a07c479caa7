#include "hosts/plot/run_picture.h"

#include <algorithm>
#include <cmath>

namespace orvane {

namespace {

/// The samples that lie in a range of time, with a neighbour on each side.
SampleStretch StretchIn(const AcquisitionRecording& recording, size_t count, PlotRange timeSec) {
    const double origin = PointTime(recording, 0);
    const auto index = [&](double time) {
        const double point = std::floor((time - origin) / recording.PeriodSec);
        return static_cast<size_t>(std::clamp(point, 0.0, static_cast<double>(count)));
    };
    return {index(timeSec.From), std::min(index(timeSec.To) + 2, count)};
}

PlotPoints PointsIn(const AcquisitionRecording& recording, const Samples& samples,
                    const SeriesOutline& outline, PlotRange timeSec, size_t steps) {
    PlotPoints points;
    const SampleStretch stretch = StretchIn(recording, samples.size(), timeSec);
    for (const size_t i : SamplesToDraw(samples, outline, stretch, steps)) {
        points.TimesSec.push_back(PointTime(recording, i));
        points.Values.push_back(samples[i]);
    }
    return points;
}

} // namespace

PlotPanel EmptyPanel(const ChannelInfo& channel) {
    return {.Title = CurveTitle(channel),
            .ValueLabel = QuantityWithUnit(channel),
            .Dots = {},
            .Curve = {},
            .Min = channel.Min,
            .Max = channel.Max};
}

PlotPicture PictureOf(const PicturedRun& run, PlotRange timeSec, size_t steps) {
    const SeriesOutline none;
    const auto outline = [&](std::span<const SeriesOutline> all, size_t channel) -> const auto& {
        return channel < all.size() ? all[channel] : none;
    };
    const AcquisitionRecording& recording = run.Recording;
    PlotPicture picture;
    picture.TimeSec = timeSec;
    for (size_t i = 0; i < run.Channels.size(); ++i) {
        PlotPanel panel = EmptyPanel(run.Channels[i]);
        panel.Dots = PointsIn(recording, recording.Live[i], outline(run.Live, i), timeSec, steps);
        panel.Curve =
            PointsIn(recording, recording.Fetched[i], outline(run.Fetched, i), timeSec, steps);
        picture.Panels.push_back(std::move(panel));
    }
    return picture;
}

void SavePicture(PlotPicture picture, PendingFile& file, const std::string& device) {
    picture.Width = FileWidth;
    picture.Height = FileHeight(picture.Panels.size());
    DrawToFile(picture, file.Temporary, file.Target, device);
    Publish(file);
}

} // namespace orvane
