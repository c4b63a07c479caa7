#include "hosts/plot/flow_picture.h"

#include <algorithm>

namespace orvane {

namespace {

// Sizes at scale 1.
constexpr double scale = 1.6;
constexpr double width = 1000.0; // of both
constexpr double height = 600.0;
constexpr double margins = 126.0; // left and right
constexpr double panel = 510.0;   // height within the margins
constexpr double narrowest = 300.0;
constexpr double widest = 600.0;

AxisRange WithAir(AxisRange range, double part) {
    const double length = range.To > range.From ? range.To - range.From : 1.0;
    return {range.From - part * length, range.To + part * length};
}

Chart ChartOf(ChartPoints points, const std::string& label, const std::string& xLabel,
              AxisRange x) {
    Chart chart;
    chart.Lanes = {{.Label = label}};
    chart.Lanes[0].Curves = {{.Points = std::move(points), .Ink = {0}}};
    chart.XLabel = xLabel;
    chart.X = x;
    chart.Scale = scale;
    chart.Height = static_cast<int>(height * scale);
    return chart;
}

} // namespace

std::vector<Chart> PicturesOf(std::span<const FlowReading> readings, const std::string& flowUnit,
                              const std::string& volumeUnit) {
    constexpr double flowsPerVolume = 2.0;
    constexpr double air = 0.05;
    const auto inLungs = [](const FlowReading& one) { return one.VolumeIn - one.VolumeOut; };
    const auto [least, most] = std::ranges::minmax(readings, {}, inLungs);
    const auto [in, out] = std::ranges::minmax(readings, {}, &FlowReading::Flow);
    const double full = inLungs(most);
    ChartPoints volumes;
    ChartPoints loop;
    for (const FlowReading& reading : readings) {
        volumes.X.push_back(reading.TimeSec);
        volumes.Y.push_back(inLungs(reading));
        loop.X.push_back(full - inLungs(reading));
        loop.Y.push_back(reading.Flow);
    }
    const AxisRange expired = WithAir({0.0, full - inLungs(least)}, air);
    const AxisRange flows = WithAir({in.Flow, out.Flow}, air);
    Chart flow = ChartOf(std::move(loop), "Flow, expiration upwards (" + flowUnit + ")",
                         "Volume expired from full lungs on (" + volumeUnit + ")", expired);
    flow.Lanes[0].Value = flows;
    flow.LockedUnits = flowsPerVolume;
    const double proportion =
        (expired.To - expired.From) * flowsPerVolume / (flows.To - flows.From);
    const double flowWidth = std::clamp(margins + panel * proportion, narrowest, widest);
    flow.Width = static_cast<int>(flowWidth * scale);
    Chart volume =
        ChartOf(std::move(volumes), "Volume in the lungs since the start (" + volumeUnit + ")",
                "Time (s)", {readings.front().TimeSec, readings.back().TimeSec});
    volume.Width = static_cast<int>(width * scale) - flow.Width;
    return {std::move(volume), std::move(flow)};
}

} // namespace orvane
