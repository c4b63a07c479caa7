#include "hosts/plot/breath_charts.h"

#include "hosts/session/number_text.h"
#include "hosts/session/translation.h"

#include <algorithm>
#include <array>

namespace orvane {

namespace {

constexpr int decimals = 2;
constexpr double thin = 1.1;
constexpr double thick = 2.2; // of the best

std::string Figure(const char* name, double value, const std::string& unit) {
    return Translated(name) + " " + FixedText(value, decimals) + " " + unit;
}

ChartCurve CurveOf(size_t number, const Manoeuvre& manoeuvre, bool best) {
    return {.Points = {},
            .Ink = {number},
            .Line = DashOfManoeuvre(number),
            .LineWidth = best ? thick : 1.6,
            .Pale = !manoeuvre.Kept};
}

bool IsBest(const std::optional<BreathSummary>& summary, size_t number) {
    return summary && summary->Best == number;
}

/// Lines from the axes to a point.
ChartCurve Guides(double left, double x, double y) {
    return {.Points = {{left, x, x}, {y, y, 0.0}}, .Line = Dash::Dashed, .LineWidth = thin};
}

} // namespace

Dash DashOfManoeuvre(size_t number) {
    constexpr std::array dashes{Dash::Solid, Dash::Dashed, Dash::Dotted};
    return dashes[number % dashes.size()];
}

Chart LoopChart(const std::vector<Manoeuvre>& manoeuvres, const std::vector<BreathPoint>& now,
                const BreathUnits& units) {
    constexpr double flowsPerVolume = 2.0;
    constexpr double recentSec = 8.0; // about two quiet breaths
    constexpr double air = 1.1;
    Chart chart;
    ChartLane lane;
    lane.Label = Translated("Flow (%s), out upward", {units.Flow});
    lane.Rules.push_back({.Horizontal = true, .Line = Dash::Solid});
    AxisRange volume{-0.2, 5.0};
    AxisRange flow{-4.0, 8.0};
    const auto add = [&](ChartCurve curve, const std::vector<BreathPoint>& points) {
        for (const BreathPoint& point : points) {
            curve.Points.X.push_back(point.Volume);
            curve.Points.Y.push_back(point.Flow);
            volume = {std::min(volume.From, point.Volume), std::max(volume.To, point.Volume * air)};
            flow = {std::min(flow.From, point.Flow * air), std::max(flow.To, point.Flow * air)};
        }
        lane.Curves.push_back(std::move(curve));
    };
    const auto summary = SummaryOf(manoeuvres);
    for (size_t i = 0; i < manoeuvres.size(); ++i) {
        add(CurveOf(i, manoeuvres[i], IsBest(summary, i)), manoeuvres[i].Loop);
    }
    const auto recent = std::ranges::find_if(now, [&](const BreathPoint& point) {
        return point.TimeSec >= now.back().TimeSec - recentSec;
    });
    add({.LineWidth = thin}, {recent, now.end()});
    if (summary) {
        const Manoeuvre& best = manoeuvres[summary->Best];
        const BreathPoint& peak =
            *std::max_element(best.Loop.begin() + static_cast<std::ptrdiff_t>(best.First),
                              best.Loop.begin() + static_cast<std::ptrdiff_t>(best.Last + 1),
                              [](auto& one, auto& other) { return one.Flow < other.Flow; });
        const ChartInk ink{summary->Best};
        lane.Marks = {
            {peak.Volume, peak.Flow, ink, false, Figure("PEF", peak.Flow, units.Flow)},
            {best.Breath.Fvc, 0.0, ink, false, Figure("FVC", best.Breath.Fvc, units.Volume)}};
    }
    lane.Value = flow;
    chart.Lanes.push_back(std::move(lane));
    chart.X = volume;
    chart.XLabel = Translated("Volume breathed out (%s)", {units.Volume});
    chart.LockedUnits = flowsPerVolume;
    return chart;
}

Chart ExpirationChart(const std::vector<Manoeuvre>& manoeuvres, const BreathUnits& units) {
    constexpr double before = -0.3;
    constexpr double shortest = 6.0;
    constexpr double air = 1.1;
    constexpr double second = 1.0;
    Chart chart;
    chart.X = {before, shortest};
    ChartLane lane;
    lane.Label = Translated("Volume breathed out (%s)", {units.Volume});
    lane.Value = AxisRange{0.0, 1.0};
    const auto summary = SummaryOf(manoeuvres);
    for (size_t i = 0; i < manoeuvres.size(); ++i) {
        const Manoeuvre& shown = manoeuvres[i];
        ChartCurve curve = CurveOf(i, shown, IsBest(summary, i));
        for (size_t point = shown.First; point <= shown.Last; ++point) {
            curve.Points.X.push_back(shown.Loop[point].TimeSec);
            curve.Points.Y.push_back(shown.Loop[point].Volume);
        }
        curve.EndLabel = std::to_string(i + 1);
        chart.X.To = std::max(chart.X.To, curve.Points.X.back());
        lane.Value->To = std::max(lane.Value->To, shown.Breath.Fvc * air);
        lane.Curves.push_back(std::move(curve));
    }
    if (summary) {
        const double fev1 = manoeuvres[summary->Best].Breath.Fev1;
        lane.Curves.push_back(Guides(before, second, fev1));
        lane.Marks = {{second, fev1, {summary->Best}, false, Figure("FEV1", fev1, units.Volume)}};
    }
    chart.Lanes.push_back(std::move(lane));
    chart.XLabel = Translated("Time after the back-extrapolated start (s)");
    return chart;
}

Chart VolumeChart(const std::vector<BreathPoint>& now, const BreathUnits& units) {
    constexpr double shownSec = 20.0;
    Chart chart;
    ChartLane lane;
    lane.Label = Translated("Volume breathed out (%s)", {units.Volume});
    lane.Fallback = {-1.0, 1.0};
    const double end = now.empty() ? 0.0 : now.back().TimeSec;
    chart.X = {std::max(end - shownSec, 0.0), std::max(end, shownSec)};
    ChartCurve curve;
    for (const BreathPoint& point : now) {
        if (point.TimeSec >= chart.X.From) {
            curve.Points.X.push_back(point.TimeSec);
            curve.Points.Y.push_back(point.Volume);
        }
    }
    lane.Curves.push_back(std::move(curve));
    chart.Lanes.push_back(std::move(lane));
    chart.XLabel = Translated("Time since the start (s)");
    return chart;
}

} // namespace orvane
