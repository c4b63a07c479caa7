#include "hosts/panel/generator_page.h"

#include "hosts/panel/panel_text.h"
#include "hosts/panel/saving.h"
#include "hosts/panel/signal_text.h"
#include "hosts/panel/tool_icons.h"
#include "hosts/plot/output_picture.h"
#include "hosts/session/driver_time.h"
#include "hosts/session/host_error.h"
#include "hosts/session/number_text.h"
#include "hosts/session/translation.h"

#include <wx/intl.h>
#include <wx/splitter.h>

#include <algorithm>
#include <limits>

namespace orvane {

namespace {

constexpr int formWidth = 364;

/// What outlives the page.
struct Kept {
    std::vector<GeneratorFields> Fields;
    std::vector<std::optional<AskedSignal>> Playing; ///< In a loop, or a value.
    size_t Selected = 0;
};

/// Sends a signal, or writes a value.
struct Sender {
    const DriverExports& Driver;
    int32_t Output;

    void operator()(double value) const {
        GiveValue(Driver, Output, value);
    }
    void operator()(const OutputSignal& signal) const {
        PlayCutSignal(Driver, Output, signal);
    }
    void operator()(const OutputCodes& codes) const {
        PlayCodes(Driver, Output, codes);
    }
};

} // namespace

GeneratorPage::GeneratorPage(wxWindow* parent, DriverAccess& access)
    : Page(parent, access, _("Generator")) {
    auto* split = new wxSplitterWindow(this, wxID_ANY, wxDefaultPosition, wxDefaultSize,
                                       wxSP_LIVE_UPDATE | wxSP_NOBORDER);
    Fields = new GeneratorForm(split);
    auto* right = new wxPanel(split);
    BuildRight(right);
    split->SplitVertically(Fields, right, FromDIP(formWidth));
    split->SetMinimumPaneSize(FromDIP(280));
    auto* whole = new wxBoxSizer(wxVERTICAL);
    whole->Add(split, wxSizerFlags(1).Expand());
    SetSizer(whole);
    BindControls();
}

void GeneratorPage::BuildRight(wxWindow* parent) {
    const auto emptyOr = [this](const auto& picture) {
        return [this, picture](const ChartZoom&, size_t) {
            Chart chart;
            if (Planned) {
                chart = picture();
            }
            chart.Empty = Translated("Write a signal to see it here.");
            return chart;
        };
    };
    Preview = new ChartView(
        parent, _("Preview"),
        {.Chart = emptyOr([this] {
             return PreviewOf(*Planned, Limits(),
                              Translated("%s: preview, two periods", {UnitLabel().utf8_string()}));
         })},
        FromDIP(wxSize(300, 180)));
    FirstPoints =
        new ChartView(parent, _("First points"),
                      {.Chart = emptyOr([this] {
                           return FirstPointsOf(*Planned, Translated("The first points (V)"));
                       })},
                      FromDIP(wxSize(240, 150)));
    Table = new wxListView(parent, wxID_ANY, wxDefaultPosition, FromDIP(wxSize(260, 150)),
                           wxLC_REPORT | wxLC_SINGLE_SEL);
    Table->SetName(_("What the console will play"));
    Table->AppendColumn("", wxLIST_FORMAT_LEFT, FromDIP(150));
    Table->AppendColumn(_("asked"), wxLIST_FORMAT_RIGHT, FromDIP(140));
    Table->AppendColumn(_("played"), wxLIST_FORMAT_RIGHT, FromDIP(140));
    auto* title = new wxStaticText(parent, wxID_ANY, _("What the console will play"));
    title->SetFont(title->GetFont().Bold());
    auto* played = new wxBoxSizer(wxVERTICAL);
    played->Add(title, wxSizerFlags().Expand().Border(wxBOTTOM, FromDIP(4)));
    played->Add(Table, wxSizerFlags(1).Expand());
    auto* lower = new wxBoxSizer(wxHORIZONTAL);
    lower->Add(FirstPoints->Frame(), wxSizerFlags(1).Expand().Border(wxRIGHT, FromDIP(8)));
    lower->Add(played, wxSizerFlags(1).Expand().Border(wxALL, FromDIP(8)));
    auto* whole = new wxBoxSizer(wxVERTICAL);
    whole->Add(Preview->Frame(), wxSizerFlags(3).Expand().Border(wxBOTTOM, FromDIP(4)));
    whole->Add(lower, wxSizerFlags(2).Expand());
    parent->SetSizer(whole);
}

void GeneratorPage::BindControls() {
    Fields->Changed = [this] {
        Failure.clear();
        Plan();
    };
    Fields->Outputs->Bind(wxEVT_LIST_ITEM_SELECTED, [this](wxListEvent& event) {
        Select(static_cast<size_t>(event.GetIndex()));
    });
    Fields->Start->Bind(wxEVT_BUTTON, [this](wxCommandEvent&) { Start(Fields->Loop->GetValue()); });
    Fields->Stop->Bind(wxEVT_BUTTON, [this](wxCommandEvent&) { StopOutputNow(); });
}

std::vector<PageTool> GeneratorPage::Tools() {
    return {{.Label = _("Start"),
             .Icon = tool_icon::Run,
             .Keys = "F5",
             .Do = [this] { Start(Fields->Loop->GetValue()); },
             .CanDo = [this] { return CanStart(); }},
            {.Label = _("Start once"),
             .Icon = tool_icon::Once,
             .Keys = "F6",
             .Do = [this] { Start(false); },
             .CanDo = [this] { return CanStart(); }},
            {.Label = _("Stop at 0 V"),
             .Icon = tool_icon::Stop,
             .Keys = "Esc",
             .Do = [this] { StopOutputNow(); },
             .CanDo = [this] { return !Access.IsBusy() && Fields->Stop->IsEnabled(); }}};
}

PageState GeneratorPage::State() const {
    if (!Failure.empty()) {
        return {.Now = PageState::Kind::Failed, .Words = {}, .Detail = Failure};
    }
    wxString names;
    size_t playing = 0;
    for (const Output& output : Outputs) {
        if (Plays(output)) {
            ++playing;
            names += (names.empty() ? "" : ", ") + FromUtf8(output.Look.Name);
        }
    }
    if (playing == 0) {
        return {};
    }
    return {.Now = PageState::Kind::Running,
            .Words = FromUtf8(Translated(
                "%s of %s play", {std::to_string(playing), std::to_string(Outputs.size())})),
            .Detail = names};
}

bool GeneratorPage::CanStart() const {
    return !Outputs.empty() && !Access.IsBusy();
}

bool GeneratorPage::Plays(const Output& output) const {
    return output.Sent.Signal && !std::holds_alternative<double>(*output.Sent.Signal) &&
           NowSec < output.Sent.EndsAt;
}

OutputLimits GeneratorPage::Limits() const {
    const DriverTurn turn(Access);
    OutputLimits limits = LimitsOf(turn.Driver);
    if (Selected < Outputs.size()) {
        limits.ShortestStepSec = Outputs[Selected].Look.ShortestStepSec;
    }
    return limits;
}

wxString GeneratorPage::UnitLabel() const {
    return FromUtf8(Selected < Outputs.size() ? Outputs[Selected].Look.Name : "") + " (V)";
}

/// The outputs are the console's own: they stay while adapters come and go.
void GeneratorPage::ChannelsChanged() {
    size_t count = 0;
    {
        const DriverTurn turn(Access);
        count = static_cast<size_t>(std::max(turn->CombienDeCanauxEnSortie(), 0));
    }
    if (count == Outputs.size()) {
        return;
    }
    Outputs.clear();
    Fields->Outputs->DeleteAllItems();
    const OutputLimits limits = Limits();
    constexpr double quarter = 0.25;
    const wxString peakToPeak = FromUtf8(NumberText(quarter * (limits.Most - limits.Least)));
    for (OutputLook& look : OutputLooks(Access.Options, count)) {
        Fields->Outputs->InsertItem(Fields->Outputs->GetItemCount(), FromUtf8(look.Name));
        Outputs.push_back(
            {.Look = std::move(look), .Fields = {.PeakToPeak = peakToPeak}, .Sent = {}});
    }
    ShowOutputs();
    Selected = 0;
    if (count > 0) {
        Fields->Show(FromUtf8(Outputs[0].Look.Name), Outputs[0].Fields);
        Fields->Outputs->Select(0);
    }
    Plan();
}

void GeneratorPage::Select(size_t output) {
    if (output >= Outputs.size()) {
        return;
    }
    if (output != Selected) {
        Outputs[Selected].Fields = Fields->Fields();
        Selected = output;
        Fields->Show(FromUtf8(Outputs[output].Look.Name), Outputs[output].Fields);
    }
    Failure.clear();
    Plan();
}

/// Computes what would be played of what the fields ask for.
void GeneratorPage::Plan() {
    const OutputLimits limits = Limits();
    Fields->SetLimits(limits);
    Planned.reset();
    Asked = Fields->Asked();
    try {
        if (Asked) {
            Planned = PlanOf(*Asked, limits);
            Fields->ShowCut(limits, Planned->CutPart);
        }
    } catch (const HostError& error) {
        Fields->Centre->Message->ShowError(FromUtf8(error.what()));
    }
    ShowTable();
    Preview->Invalidate();
    FirstPoints->Invalidate();
    ShowOutputs();
    StateChanged();
}

void GeneratorPage::ShowTable() {
    Table->DeleteAllItems();
    if (!Planned) {
        return;
    }
    for (const SignalRow& row : RowsOf(*Asked, *Planned)) {
        const long item = Table->InsertItem(Table->GetItemCount(), row.What);
        Table->SetItem(item, 1, row.Asked);
        Table->SetItem(item, 2, row.Played);
    }
}

void GeneratorPage::ShowOutputs() {
    for (size_t i = 0; i < Outputs.size(); ++i) {
        const Output& output = Outputs[i];
        const wxString text = SentText(output.Sent.Signal, Plays(output));
        const auto row = static_cast<long>(i);
        if (Fields->Outputs->GetItemText(row, 1) != text) {
            Fields->Outputs->SetItem(row, 1, text);
        }
    }
    const bool isSent = Selected < Outputs.size() && Outputs[Selected].Sent.Signal.has_value();
    Fields->Stop->Enable(isSent && !Access.IsBusy());
    Fields->Start->Enable(CanStart());
}

void GeneratorPage::Measured() {
    {
        const DriverTurn turn(Access);
        NowSec = DriverSeconds(turn.Driver);
    }
    ShowOutputs();
}

void GeneratorPage::Start(bool loop) {
    Fields->SetFocusIgnoringChildren(); // A number that is still being written counts.
    Failure.clear();
    Plan();
    if (!Planned || !CanStart()) {
        return;
    }
    AskedSignal asked = *Asked;
    if (auto* signal = std::get_if<OutputSignal>(&asked)) {
        signal->Loop = loop;
    } else if (auto* codes = std::get_if<OutputCodes>(&asked)) {
        codes->Loop = loop;
    }
    try {
        Send(Selected, asked);
    } catch (const HostError& error) {
        Failure = FromUtf8(error.what());
    }
    ShowOutputs();
    StateChanged();
}

void GeneratorPage::Send(size_t output, const AskedSignal& asked) {
    const DriverTurn turn(Access);
    std::visit(Sender{turn.Driver, static_cast<int32_t>(output)}, asked);
    NowSec = DriverSeconds(turn.Driver);
    Outputs[output].Sent = {.Signal = asked,
                            .EndsAt = Repeats(asked)
                                          ? std::numeric_limits<double>::infinity()
                                          : NowSec + PlanOf(asked, Limits()).PeriodSec()};
}

void GeneratorPage::StopOutputNow() {
    if (Selected >= Outputs.size() || Access.IsBusy()) {
        return;
    }
    {
        const DriverTurn turn(Access);
        StopOutput(turn.Driver, static_cast<int32_t>(Selected));
    }
    Outputs[Selected].Sent = {};
    ShowOutputs();
    StateChanged();
}

/// No output goes on once its console is closed.
void GeneratorPage::StopMeasuring() {
    const DriverTurn turn(Access);
    for (size_t i = 0; i < Outputs.size(); ++i) {
        if (Outputs[i].Sent.Signal) {
            StopOutput(turn.Driver, static_cast<int32_t>(i));
        }
    }
}

void GeneratorPage::SavePicture() {
    SaveChartAs(this, PreviewOf(*Planned, Limits(), UnitLabel().utf8_string()));
}

std::any GeneratorPage::GiveUp() {
    Kept kept{.Fields = {}, .Playing = {}, .Selected = Selected};
    if (Selected < Outputs.size()) {
        Outputs[Selected].Fields = Fields->Fields();
    }
    for (const Output& output : Outputs) {
        const std::optional<AskedSignal>& sent = output.Sent.Signal;
        kept.Fields.push_back(output.Fields);
        kept.Playing.push_back(sent && Repeats(*sent) ? sent : std::nullopt);
    }
    return kept;
}

void GeneratorPage::TakeOver(std::any given) {
    const auto kept = std::any_cast<Kept>(std::move(given));
    for (size_t i = 0; i < std::min(Outputs.size(), kept.Fields.size()); ++i) {
        Outputs[i].Fields = kept.Fields[i];
        try {
            if (kept.Playing[i]) {
                Send(i, *kept.Playing[i]);
            }
        } catch (const HostError& error) {
            Failure = FromUtf8(error.what());
        }
    }
    if (kept.Selected < Outputs.size()) {
        Selected = kept.Selected;
        Fields->Show(FromUtf8(Outputs[Selected].Look.Name), Outputs[Selected].Fields);
        Fields->Outputs->Select(static_cast<long>(Selected));
    }
    Plan();
}

Page* MakeGeneratorPage(wxWindow* parent, DriverAccess& access) {
    return new GeneratorPage(parent, access); // NOLINT: its parent owns it
}

} // namespace orvane
