#include "hosts/panel/acquisition_page.h"

#include "hosts/panel/panel_text.h"
#include "hosts/panel/saving.h"
#include "hosts/panel/tool_icons.h"
#include "hosts/session/durations.h"

#include <wx/confbase.h>
#include <wx/filename.h>
#include <wx/intl.h>
#include <wx/time.h>

#include <algorithm>

namespace orvane {

namespace {

constexpr size_t mostCheckedAtFirst = 4;
constexpr int formWidth = 364;
constexpr int lowerHeight = 205;
constexpr int foldedHeight = 36;

/// What outlives the page.
struct Kept {
    std::shared_ptr<ShownRun> Run;
    FormerRuns Former;
    size_t Runs = 0;
    bool Unsaved = false;
    bool Overlaid = false;
    LowerView::Kind Lower = LowerView::Kind::Measures;
    std::optional<std::array<double, 2>> Cursors;
    ChartZoom Zoom;
    AcquisitionFields Fields;
};

} // namespace

AcquisitionPage::AcquisitionPage(wxWindow* parent, DriverAccess& access)
    : Page(parent, access, _("Acquisition")) {
    constexpr long style = wxSP_LIVE_UPDATE | wxSP_NOBORDER;
    Columns = new wxSplitterWindow(this, wxID_ANY, wxDefaultPosition, wxDefaultSize, style);
    Table = new ChannelTable(Columns);
    Fields = new AcquisitionForm(Columns, Table);
    Results = new wxSplitterWindow(Columns, wxID_ANY, wxDefaultPosition, wxDefaultSize, style);
    Curves = new ChartView(Results, _("Curves"), Source(), FromDIP(wxSize(300, 120)));
    Lower = new LowerView(Results);
    Results->SetSashGravity(1.0);
    Results->SplitHorizontally(Curves->Frame(), Lower, -FromDIP(lowerHeight));
    Columns->SplitVertically(Fields, Results, FromDIP(formWidth));
    Columns->SetMinimumPaneSize(FromDIP(280));
    auto* whole = new wxBoxSizer(wxVERTICAL);
    whole->Add(Columns, wxSizerFlags(1).Expand());
    SetSizer(whole);
    Bind(wxEVT_SIZE, [this](wxSizeEvent& event) {
        event.Skip();
        CallAfter([this] { LayOutPanes(); });
    });
    Fields->ViewChanged = [this] { Curves->Invalidate(); };
    Fields->TriggerChanged = [this] { Curves->Refresh(false); };
    BindTable();
}

/// A low window has only a line of measures.
void AcquisitionPage::LayOutPanes() {
    constexpr int smallHeight = 480;
    const bool folds =
        GetClientSize().y < FromDIP(smallHeight) && Lower->Now() == LowerView::Kind::Measures;
    if (folds == Folded || GetClientSize().y < FromDIP(foldedHeight)) {
        return;
    }
    Folded = folds;
    Lower->Measures->Fold(folds);
    Results->SetMinimumPaneSize(FromDIP(folds ? foldedHeight : 80));
    Results->SetSashPosition(-FromDIP(folds ? foldedHeight : lowerHeight));
    LowerStale = true;
}

void AcquisitionPage::BindTable() {
    for (const auto& type : {wxEVT_LIST_ITEM_CHECKED, wxEVT_LIST_ITEM_UNCHECKED}) {
        Table->Bind(type, [this](wxListEvent& event) {
            const auto row = static_cast<size_t>(event.GetIndex());
            if (row < Access.Channels.size()) {
                Access.ChoiceOf(Access.Channels[row]).Checked =
                    Table->IsItemChecked(event.GetIndex());
                ShowLimits();
            }
            Curves->Invalidate();
        });
    }
    Table->Bind(wxEVT_LIST_ITEM_SELECTED, [this](wxListEvent& event) {
        event.Skip();
        Curves->Invalidate();
        LowerStale = true;
    });
}

std::vector<PageTool> AcquisitionPage::Tools() {
    const auto canStart = [this] { return !Access.IsMeasuring() && !Access.IsBusy(); };
    std::vector<PageTool> tools{{.Label = _("Run"),
                                 .Icon = tool_icon::Run,
                                 .Keys = "F5",
                                 .Do = [this] { Start(true); },
                                 .CanDo = canStart},
                                {.Label = _("Single"),
                                 .Icon = tool_icon::Once,
                                 .Keys = "F6",
                                 .Do = [this] { Start(false); },
                                 .CanDo = canStart},
                                {.Label = _("Stop"),
                                 .Icon = tool_icon::Stop,
                                 .Keys = "Esc",
                                 .Do = [this] { StopRun(); },
                                 .CanDo = [this] { return Current != nullptr; }}};
    for (PageTool& tool : ViewTools()) {
        tools.push_back(std::move(tool));
    }
    return tools;
}

std::vector<PageTool> AcquisitionPage::ViewTools() {
    const auto always = [] { return true; };
    const auto lower = [&](const wxString& label, const char* icon, LowerView::Kind kind) {
        return PageTool{.Label = label,
                        .Icon = icon,
                        .Keys = "",
                        .Do = [this, kind] { ToggleLower(kind); },
                        .CanDo = always,
                        .IsOn = [this, kind] { return Lower->Now() == kind; }};
    };
    return {{.Label = _("Fit"),
             .Icon = tool_icon::Fit,
             .Keys = "",
             .Do = [this] { Curves->ResetZoom(); }},
            {.Label = _("Cursors"),
             .Icon = tool_icon::Cursors,
             .Keys = "",
             .Do = [this] { Curves->ShowCursors(!Curves->HasCursors()); },
             .CanDo = always,
             .IsOn = [this] { return Curves->HasCursors(); }},
            {.Label = _("Overlay"),
             .Icon = tool_icon::Overlay,
             .Keys = "",
             .Do =
                 [this] {
                     Overlaid = !Overlaid;
                     Curves->Invalidate();
                 },
             .CanDo = always,
             .IsOn = [this] { return Overlaid; }},
            lower("X-Y", tool_icon::XY, LowerView::Kind::Xy),
            lower(_("Spectrum"), tool_icon::Spectrum, LowerView::Kind::Spectrum)};
}

void AcquisitionPage::ToggleLower(LowerView::Kind kind) {
    Lower->ShowKind(Lower->Now() == kind ? LowerView::Kind::Measures : kind);
    if (Lower->Now() != LowerView::Kind::Measures) { // It takes half of the height.
        const int height = Results->GetClientSize().y;
        const int needed = std::min(Curves->GetMinSize().y, height * 3 / 5);
        Results->SetSashPosition(std::max(height / 2, needed));
    }
    Folded.reset();
    if (Lower->Now() == LowerView::Kind::Measures) {
        LayOutPanes();
    }
    ShowLower();
}

bool AcquisitionPage::CanSave() const {
    return Run && !Current && PointsOf(*Run) > 0;
}

void AcquisitionPage::ChannelsChanged() {
    std::vector<int> checked;
    const bool isNew = std::ranges::none_of(Access.Channels, [this](const ChannelInfo& channel) {
        return Access.Choices.contains(KeyOf(channel));
    });
    if (isNew && !Access.Channels.empty()) { // Those that the period of the first one suits.
        const double period = Access.Channels.front().DefaultPeriodSec;
        Fields->Period->ChangeValue(LocalNumbers(DurationText(period)));
        for (const ChannelInfo& channel : Access.Channels) {
            if (channel.ShortestPeriodSec <= period && checked.size() < mostCheckedAtFirst) {
                checked.push_back(channel.Index);
                Access.ChoiceOf(channel).Checked = true;
            }
        }
    }
    for (const ChannelInfo& channel : Access.Channels) {
        if (!isNew && Access.ChoiceOf(channel).Checked) {
            checked.push_back(channel.Index);
        }
    }
    Table->Fill(Access.Channels, checked);
    Fields->ShowChannels(Access.Channels);
    ShowLimits();
    if (!Run) {
        Strip = {};
    }
    Curves->Invalidate();
}

void AcquisitionPage::ShowLimits() {
    const DriverTurn turn(Access);
    Fields->ShowLimits(
        {.ShortestSec = ShortestPeriodSec(turn.Driver, Access.Channels, Table->Checked()),
         .LongestSec = LongestPeriodSec(turn.Driver),
         .PreTriggerPoints = turn->GetNbPointPreSynchro()});
}

/// Old and new scale are never in one curve.
void AcquisitionPage::ChannelSetUp(int channel) {
    Table->UpdateRow(Access.Channels[static_cast<size_t>(channel)]);
    Fields->ShowChannels(Access.Channels);
    Strip = {};
    Curves->Invalidate();
}

/// Another page may have checked a channel.
void AcquisitionPage::Entered() {
    for (const ChannelInfo& channel : Access.Channels) {
        Table->CheckItem(channel.Index, Access.ChoiceOf(channel).Checked);
    }
}

void AcquisitionPage::Measured() {
    Table->ShowValues(Access.Channels, Access.Values);
    if (!Run) {
        constexpr double msPerSecond = 1e3;
        Append(Strip, wxGetUTCTimeMillis().ToDouble() / msPerSecond, Access.Values);
        Curves->Invalidate();
    }
}

void AcquisitionPage::SaveSamples() {
    if (SaveSamplesAs(this, *Run)) {
        Unsaved = false;
    }
}

void AcquisitionPage::SavePicture() {
    SaveChartAs(this, MakeChart(Curves->Zoom(), stepsOfFile));
}

bool AcquisitionPage::OpenSamples(const wxString& path) {
    if (Current) {
        return false;
    }
    auto opened = std::make_shared<ShownRun>(ReadSamplesFile(path.utf8_string()));
    opened->Title = wxFileName(path).GetFullName().utf8_string();
    Failure.clear();
    ShowRun(opened);
    StateChanged();
    return true;
}

std::any AcquisitionPage::GiveUp() {
    Kept kept{.Run = std::move(Run),
              .Former = std::move(Former),
              .Runs = Runs,
              .Unsaved = Unsaved,
              .Overlaid = Overlaid,
              .Lower = Lower->Now(),
              .Cursors = {},
              .Zoom = Curves->Zoom(),
              .Fields = Fields->Fields()};
    if (Curves->HasCursors()) {
        kept.Cursors = {Curves->CursorAt(0), Curves->CursorAt(1)};
    }
    return kept;
}

void AcquisitionPage::TakeOver(std::any given) {
    auto kept = std::any_cast<Kept>(std::move(given));
    Run = std::move(kept.Run);
    Former = std::move(kept.Former);
    Runs = kept.Runs;
    Unsaved = kept.Unsaved;
    Overlaid = kept.Overlaid;
    Fields->SetFields(kept.Fields);
    ShowLimits();
    Curves->SetZoom(kept.Zoom);
    if (kept.Cursors) {
        Curves->ShowCursors(true);
        Curves->SetCursor(0, kept.Cursors->at(0));
        Curves->SetCursor(1, kept.Cursors->at(1));
    }
    if (kept.Lower != Lower->Now()) {
        ToggleLower(kept.Lower);
    }
    LowerStale = true;
}

void AcquisitionPage::Keep(wxConfigBase& config) const {
    const AcquisitionFields fields = Fields->Fields();
    config.Write("Period", fields.Period);
    config.Write("Points", fields.Points);
    config.Write("Triggered", fields.Triggered);
    config.Write("TriggerChannel", fields.TriggerChannel);
    config.Write("Rising", fields.Rising);
    config.Write("Level", fields.Level);
    config.Write("PreTrigger", fields.PreTrigger);
    config.Write("Time", fields.Time);
    config.Write("WholeRange", fields.WholeRange);
    config.Write("OneLaneEach", fields.OneLaneEach);
}

void AcquisitionPage::Restore(const wxConfigBase& config) {
    AcquisitionFields fields = Fields->Fields();
    config.Read("Period", &fields.Period);
    config.Read("Points", &fields.Points);
    config.Read("Triggered", &fields.Triggered);
    config.Read("TriggerChannel", &fields.TriggerChannel);
    config.Read("Rising", &fields.Rising);
    config.Read("Level", &fields.Level);
    config.Read("PreTrigger", &fields.PreTrigger);
    config.Read("Time", &fields.Time);
    config.Read("WholeRange", &fields.WholeRange);
    config.Read("OneLaneEach", &fields.OneLaneEach);
    Fields->SetFields(fields);
    ShowLimits();
}

Page* MakeAcquisitionPage(wxWindow* parent, DriverAccess& access) {
    return new AcquisitionPage(parent, access); // NOLINT: its parent owns it
}

} // namespace orvane
