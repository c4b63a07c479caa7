// What the curves of the page of acquisitions show.

#include "hosts/panel/acquisition_page.h"
#include "hosts/panel/panel_text.h"
#include "hosts/session/number_text.h"
#include "hosts/session/translation.h"
#include "hosts/session/unit_prefix.h"

#include <algorithm>

namespace orvane {

namespace {

/// Draws the curves of a channel thicker, and above the others.
void Emphasise(Chart& chart, size_t number) {
    constexpr double width = 2.2;
    for (ChartLane& lane : chart.Lanes) {
        const auto selected = std::ranges::find_if(lane.Curves, [&](const ChartCurve& curve) {
            return curve.Ink.Curve == number && !curve.Pale;
        });
        if (selected != lane.Curves.end() && lane.Curves.size() > 1) {
            selected->LineWidth = width;
            std::rotate(selected, selected + 1, lane.Curves.end());
        }
    }
}

} // namespace

ChartSource AcquisitionPage::Source() {
    return {.Chart = [this](const ChartZoom& zoom, size_t steps) { return MakeChart(zoom, steps); },
            .Whole =
                [this] {
                    return Run ? WholeTime(*Run) : AxisRange{-StripChart::LengthSec, 0.0};
                },
            .At = [this](double& x) { return ValuesAt(x); },
            .Hovered = [this](std::optional<double> x) { ShowPointed(x); },
            .CursorsMoved = [this] { LowerStale = true; },
            .Level = [this] { return TriggerTag(); },
            .LevelMoved = [this](double value) { Fields->SetLevel(value); }};
}

AxisRange AcquisitionPage::UnzoomedTime() const {
    const AxisRange whole = WholeTime(*Run);
    const std::optional<double> rolled = Fields->RolledSec();
    if (!rolled || *rolled >= whole.To - whole.From) {
        return whole;
    }
    const double end = PointTime(RecordingOf(*Run), PointsOf(*Run));
    const double from = std::max(end - *rolled, whole.From);
    return {from, from + *rolled};
}

Chart AcquisitionPage::ChartOfRun(const ChartZoom& zoom, size_t steps) {
    const LaneView view = Fields->View();
    const AxisRange time = zoom.X.value_or(UnzoomedTime());
    Chart chart = ChartOf(CurvesOf(*Run), time, steps, view);
    for (size_t i = 0; Overlaid && i < Former.size(); ++i) {
        AddFormer(chart, Run->Channels, CurvesOf(*Former[i]), i + 1, steps, view);
    }
    const TimeUnit unit = TimeUnitOf(time);
    chart.XLabel = Run->Trigger ? Translated("Time after the trigger (%s)", {unit.Name})
                                : Translated("Time (%s)", {unit.Name});
    if (Run->Trigger) {
        chart.AxisMarks.push_back({0.0, {static_cast<size_t>(Run->Trigger->Channel)}});
    }
    chart.Legend = {{.Text = Run->Title}};
    return chart;
}

Chart AcquisitionPage::MakeChart(const ChartZoom& zoom, size_t steps) {
    Chart chart = Run ? ChartOfRun(zoom, steps) : ChartOf(Strip, ShownChannels(), Fields->View());
    chart.Empty = Translated("Check a channel, then press Run.");
    if (Table->GetFirstSelected() >= 0) {
        Emphasise(chart, static_cast<size_t>(Table->GetFirstSelected()));
    }
    if (zoom.Value && zoom.Lane < chart.Lanes.size()) {
        chart.Lanes[zoom.Lane].Value = zoom.Value;
    }
    LowerStale = LowerStale || chart.X.From != ShownTime.From || chart.X.To != ShownTime.To;
    ShownTime = chart.X;
    return chart;
}

std::vector<ChannelInfo> AcquisitionPage::ShownChannels() const {
    if (Run) {
        return Run->Channels;
    }
    std::vector<ChannelInfo> shown;
    for (const int index : Table->Checked()) {
        shown.push_back(Access.Channels.at(static_cast<size_t>(index)));
    }
    return shown;
}

std::vector<CursorValue> AcquisitionPage::ValuesAt(double& x) const {
    const std::vector<ChannelInfo> shown = ShownChannels();
    const auto point = Run ? PointAt(*Run, x) : PointAt(Strip, shown, x);
    if (!point) {
        return {};
    }
    x = point->TimeSec;
    std::vector<CursorValue> values;
    const std::vector<size_t> lanes = LanesOf(shown, Fields->View().OneEach);
    for (size_t i = 0; i < shown.size(); ++i) {
        values.push_back({lanes[i], point->Values[i], {static_cast<size_t>(shown[i].Index)}});
    }
    return values;
}

void AcquisitionPage::ShowPointed(std::optional<double> x) {
    Pointed.clear();
    const std::vector<ChannelInfo> shown = ShownChannels();
    const auto point = !x ? std::nullopt : Run ? PointAt(*Run, *x) : PointAt(Strip, shown, *x);
    if (!point) {
        return;
    }
    const TimeUnit unit = TimeUnitOf(ShownTime);
    Pointed = "t " + LocalNumbers(WithTrueMinus(NumberText(point->TimeSec / unit.Seconds))) + " " +
              FromUtf8(unit.Name);
    for (size_t i = 0; i < shown.size(); ++i) {
        Pointed += wxString::Format("   %d: ", shown[i].Index + 1) +
                   LocalNumbers(ToldValue(shown[i], point->Values[i])) + " " +
                   FromUtf8(ToldUnitOf(shown[i]).Name);
    }
}

std::optional<LevelTag> AcquisitionPage::TriggerTag() const {
    const int source = Fields->TriggerChannel->GetSelection();
    const std::optional<double> level = Fields->Level();
    const std::vector<ChannelInfo> shown = ShownChannels();
    const auto channel = std::ranges::find(shown, source, &ChannelInfo::Index);
    if (!level || channel == shown.end()) {
        return std::nullopt;
    }
    const std::vector<size_t> lanes = LanesOf(shown, Fields->View().OneEach);
    const bool rising = Fields->TriggerEdge->GetSelection() == 0;
    return LevelTag{lanes[static_cast<size_t>(channel - shown.begin())],
                    *level,
                    {static_cast<size_t>(source)},
                    wxString("T") + (rising ? wxUniChar(0x2191) : wxUniChar(0x2193))};
}

void AcquisitionPage::ShowLower() {
    ShownStretch shown{.Run = Run, .TimeSec = ShownTime, .Cursors = {}};
    if (Curves->HasCursors()) {
        shown.Cursors = {Curves->CursorAt(0), Curves->CursorAt(1)};
    }
    shown.Selected = static_cast<size_t>(std::max(Table->GetFirstSelected(), 0L));
    Lower->ShowStretch(shown);
    LowerStale = false;
    LowerShown = Clock::now();
}

} // namespace orvane
