#include "hosts/plot/signal_pictures.h"

#include "hosts/session/unit_prefix.h"

#include <algorithm>
#include <cmath>

namespace orvane {

namespace {

constexpr double leastDecibels = -120.0;

double ShownAmplitude(double amplitude, bool decibels) {
    constexpr double perDecade = 20.0;
    return decibels ? std::max(perDecade * std::log10(amplitude), leastDecibels) : amplitude;
}

/// The lines within a stretch; of many the highest of each of `steps` parts.
ChartPoints LinesIn(const Spectrum& spectrum, AxisRange frequencyHz, size_t steps, bool decibels) {
    ChartPoints points;
    const size_t all = spectrum.Amplitudes.size();
    if (all < 2) {
        return points;
    }
    const auto line = [&](double frequency) {
        return static_cast<size_t>(
            std::clamp(frequency / spectrum.StepHz, 0.0, static_cast<double>(all - 1)));
    };
    const size_t first = line(frequencyHz.From);
    const size_t end = std::min(line(frequencyHz.To) + 2, all);
    const size_t parts = std::min(end - first, steps);
    for (size_t part = 0; part < parts; ++part) {
        const auto from = spectrum.Amplitudes.begin() +
                          static_cast<std::ptrdiff_t>(first + (end - first) * part / parts);
        const auto to = spectrum.Amplitudes.begin() +
                        static_cast<std::ptrdiff_t>(first + (end - first) * (part + 1) / parts);
        const auto highest = std::max_element(from, to);
        points.X.push_back(static_cast<double>(highest - spectrum.Amplitudes.begin()) *
                           spectrum.StepHz);
        points.Y.push_back(ShownAmplitude(*highest, decibels));
    }
    return points;
}

} // namespace

Chart SpectrumChart(const std::vector<ChannelInfo>& channels, const std::vector<Spectrum>& spectra,
                    std::optional<AxisRange> frequencyHz, size_t steps, bool decibels) {
    Chart chart;
    for (const Spectrum& spectrum : spectra) {
        const auto lines = static_cast<double>(std::max<size_t>(spectrum.Amplitudes.size(), 1));
        chart.X.To = std::max(chart.X.To, spectrum.StepHz * (lines - 1.0));
    }
    chart.X = frequencyHz.value_or(chart.X);
    constexpr double kilo = 1e3;
    const bool high = chart.X.To >= 2.0 * kilo;
    chart.XUnit = high ? kilo : 1.0;
    chart.XLabel = high ? "f (kHz)" : "f (Hz)";
    chart.Lanes = LanesFor(channels, {});
    const std::vector<size_t> lanes = LanesOf(channels, false);
    for (ChartLane& lane : chart.Lanes) {
        lane.Fallback = {0.0, 1.0};
    }
    for (size_t i = 0; i < channels.size(); ++i) {
        const auto number = static_cast<size_t>(channels[i].Index);
        ChartLane& lane = chart.Lanes[lanes[i]];
        lane.Unit = decibels ? 1.0 : lane.Unit;
        if (decibels) {
            lane.Label = channels[i].Quantity + " (dB" +
                         (channels[i].Unit.empty() ? "" : " / 1 " + channels[i].Unit) + ")";
        }
        lane.Curves.push_back({.Points = LinesIn(spectra[i], chart.X, steps, decibels),
                               .Ink = {number},
                               .Line = CurveDashOf(number),
                               .EndLabel = std::to_string(number + 1)});
    }
    return chart;
}

AxisRange RangeAround(std::span<const double> samples, const ChannelInfo& channel) {
    constexpr double margin = 0.05;
    if (samples.empty()) {
        return {channel.Min, channel.Max};
    }
    const auto [low, high] = std::ranges::minmax(samples);
    const double around = high > low ? margin * (high - low) : 1.0;
    return {low - around, high + around};
}

Chart XyChart(const ChannelInfo& xChannel, std::span<const double> x, const ChannelInfo& yChannel,
              std::span<const double> y) {
    constexpr size_t most = 5000; // points, which take a few milliseconds to draw
    Chart chart;
    chart.Lanes = LanesFor({yChannel}, {.OneEach = true});
    chart.X = RangeAround(x, xChannel);
    const ToldUnit told = ToldUnitOf(xChannel);
    chart.XUnit = told.Factor;
    chart.XLabel = std::to_string(xChannel.Index + 1) + " " + xChannel.Name + ": " +
                   xChannel.Quantity + (told.Name.empty() ? "" : " (" + told.Name + ")");
    ChartCurve curve{.Ink = {static_cast<size_t>(yChannel.Index)}};
    const size_t count = std::min(x.size(), y.size());
    const size_t stride = count / most + 1;
    for (size_t i = 0; i < count; i += stride) {
        curve.Points.X.push_back(x[i]);
        curve.Points.Y.push_back(y[i]);
    }
    chart.Lanes[0].Curves.push_back(std::move(curve));
    return chart;
}

} // namespace orvane
