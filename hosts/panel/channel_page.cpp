#include "hosts/panel/channel_page.h"

#include "hosts/panel/panel_text.h"
#include "hosts/panel/saving.h"
#include "hosts/panel/tool_icons.h"
#include "hosts/plot/reading_picture.h"
#include "hosts/session/host_error.h"
#include "hosts/session/translation.h"

#include <wx/intl.h>
#include <wx/msgdlg.h>
#include <wx/settings.h>
#include <wx/splitter.h>
#include <wx/time.h>

#include <algorithm>

namespace orvane {

namespace {

constexpr int formWidth = 364;
constexpr double spreadSec = 2.0;
constexpr unsigned looksPerQuestion = 5; // the adjustment is read back once a second

} // namespace

ChannelPage::ChannelPage(wxWindow* parent, DriverAccess& access)
    : Page(parent, access, _("Channel")) {
    auto* split = new wxSplitterWindow(this, wxID_ANY, wxDefaultPosition, wxDefaultSize,
                                       wxSP_LIVE_UPDATE | wxSP_NOBORDER);
    Fields = new ChannelForm(split);
    auto* right = new wxPanel(split);
    right->SetSizer(BuildRight(right));
    split->SplitVertically(Fields, right, FromDIP(formWidth));
    split->SetMinimumPaneSize(FromDIP(280));
    auto* whole = new wxBoxSizer(wxVERTICAL);
    whole->Add(split, wxSizerFlags(1).Expand());
    SetSizer(whole);
    BindControls();
}

wxSizer* ChannelPage::BuildRight(wxWindow* parent) {
    Curve = new ChartView(parent, _("Readings"),
                          {.Chart = [this](const ChartZoom&, size_t) { return MakeChart(); }},
                          FromDIP(wxSize(300, 110)));
    auto* label = new wxStaticText(parent, wxID_ANY, _("Now"));
    const wxColour grey = wxSystemSettings::GetColour(wxSYS_COLOUR_GRAYTEXT);
    label->SetForegroundColour(grey);
    Now = new wxStaticText(parent, wxID_ANY, "", wxDefaultPosition, FromDIP(wxSize(300, -1)),
                           wxALIGN_RIGHT | wxST_NO_AUTORESIZE);
    constexpr float large = 2.6F;
    Now->SetFont(Now->GetFont().Bold().Scaled(large));
    Now->SetMinSize(wxSize(FromDIP(300), Now->GetCharHeight()));
    Now->SetName(_("Value now"));
    Spread = new wxStaticText(parent, wxID_ANY, "", wxDefaultPosition, FromDIP(wxSize(300, -1)),
                              wxALIGN_RIGHT | wxST_NO_AUTORESIZE);
    Spread->SetForegroundColour(grey);
    Spread->SetName(_("Spread"));
    Adjustment = new AdjustmentBox(parent, Access);
    Calibration = new CalibrationBox(parent, Access);
    auto* now = new wxBoxSizer(wxVERTICAL);
    now->Add(label);
    now->Add(Now);
    now->Add(Spread);
    auto* middle = new wxBoxSizer(wxHORIZONTAL);
    const int margin = FromDIP(8);
    middle->Add(now, wxSizerFlags(1).Border(wxALL, margin));
    middle->Add(Adjustment, wxSizerFlags(1).Border(wxALL, margin));
    auto* whole = new wxBoxSizer(wxVERTICAL);
    whole->Add(Curve->Frame(), wxSizerFlags(1).Expand());
    whole->Add(middle, wxSizerFlags().Expand());
    whole->Add(Calibration, wxSizerFlags(1).Expand().Border(wxALL, margin));
    return whole;
}

void ChannelPage::BindControls() {
    Fields->Table->Bind(wxEVT_LIST_ITEM_SELECTED, [this](wxListEvent& event) {
        Select(static_cast<size_t>(event.GetIndex()));
    });
    for (const auto& type : {wxEVT_LIST_ITEM_CHECKED, wxEVT_LIST_ITEM_UNCHECKED}) {
        Fields->Table->Bind(type, [this](wxListEvent& event) {
            const auto row = static_cast<size_t>(event.GetIndex());
            if (row < Access.Channels.size()) {
                Access.ChoiceOf(Access.Channels[row]).Checked =
                    Fields->Table->IsItemChecked(event.GetIndex());
            }
        });
    }
    Fields->Chosen = [this](const ChannelSetup& setup) { Choose(setup); };
    Fields->Undo->Bind(wxEVT_BUTTON, [this](wxCommandEvent&) { Undo(); });
    Fields->Delivered->Bind(wxEVT_BUTTON, [this](wxCommandEvent&) { SetScale({}); });
    Calibration->Changed = [this] {
        Readings = {};
        AllowControls();
        Curve->Invalidate();
        StateChanged();
    };
}

std::vector<PageTool> ChannelPage::Tools() {
    const auto canChange = [this] {
        return Access.Channels.size() > 1 && !Calibration->IsActive() && !Access.IsBusy();
    };
    return {{.Label = _("Previous"),
             .Icon = tool_icon::Previous,
             .Keys = "Alt+Up",
             .Do = [this] { SelectNext(-1); },
             .CanDo = canChange},
            {.Label = _("Next"),
             .Icon = tool_icon::Next,
             .Keys = "Alt+Down",
             .Do = [this] { SelectNext(1); },
             .CanDo = canChange},
            {.Label = _("Undo"),
             .Icon = tool_icon::Undo,
             .Keys = "Ctrl+Z",
             .Do = [this] { Undo(); },
             .CanDo = [this] { return CanUndo(); }}};
}

PageState ChannelPage::State() const {
    if (Calibration->IsActive()) {
        const ChannelInfo* channel = Selected();
        return {.Now = PageState::Kind::Waiting,
                .Words = _("Calibrating"),
                .Detail = FromUtf8(Translated("%s, step %s of %s",
                                              {channel != nullptr ? NumberedName(*channel) : "",
                                               std::to_string(Calibration->Step()),
                                               std::to_string(Calibration->Steps())}))};
    }
    if (!Failure.empty()) {
        return {.Now = PageState::Kind::Failed, .Words = {}, .Detail = Failure};
    }
    return {};
}

const ChannelInfo* ChannelPage::Selected() const {
    return Channel < Access.Channels.size() ? &Access.Channels[Channel] : nullptr;
}

/// A calibration shows what the console measures: a scale would mislead.
const ChannelInfo& ChannelPage::Shown() const {
    return Calibration->IsActive() ? Access.Delivered[Channel] : Access.Channels[Channel];
}

Chart ChannelPage::MakeChart() const {
    Chart chart;
    if (Selected() == nullptr) {
        chart.Empty = Translated("There is no channel.");
        return chart;
    }
    chart = PictureOf(Readings, Shown());
    if (Calibration->IsActive()) {
        chart.Lanes.front().Label += ", " + Translated("as the console measures it");
    }
    return chart;
}

/// The same channel stays selected wherever it stands now.
void ChannelPage::ChannelsChanged() {
    std::vector<int> checked;
    size_t again = 0;
    for (size_t i = 0; i < Access.Channels.size(); ++i) {
        const ChannelInfo& channel = Access.Channels[i];
        if (Access.ChoiceOf(channel).Checked) {
            checked.push_back(channel.Index);
        }
        again = KeyOf(channel) == Key ? i : again;
    }
    Channel = again;
    Fields->Table->Fill(Access.Channels, checked);
    if (again > 0) {
        Fields->Table->Select(static_cast<long>(again));
    }
    ShowSelected();
}

void ChannelPage::Entered() {
    for (const ChannelInfo& channel : Access.Channels) {
        Fields->Table->CheckItem(channel.Index, Access.ChoiceOf(channel).Checked);
    }
}

void ChannelPage::Select(size_t channel) {
    if (channel < Access.Channels.size() && channel != Channel) {
        Fields->TakeFields(); // Of the channel that was selected until now.
        Channel = channel;
        ShowSelected();
    }
}

void ChannelPage::SelectNext(int step) {
    const auto count = static_cast<long>(Access.Channels.size());
    const long next = (static_cast<long>(Channel) + step + count) % count;
    Fields->SetFocusIgnoringChildren();
    Fields->Table->Select(next);
    Fields->Table->EnsureVisible(next);
}

void ChannelPage::ShowSelected() {
    Failure.clear();
    Readings = {};
    Now->SetLabelText("");
    Spread->SetLabelText("");
    if (const ChannelInfo* channel = Selected(); channel != nullptr) {
        Key = KeyOf(*channel);
        Fields->ShowChannel(Access, *channel);
        Adjustment->ShowChannel(channel->Index);
        Calibration->ShowChannel(Access.Delivered[Channel]);
    }
    AllowControls();
    Curve->Invalidate();
    StateChanged();
}

void ChannelPage::ChannelSetUp(int channel) {
    Fields->Table->UpdateRow(Access.Channels[static_cast<size_t>(channel)]);
    if (static_cast<size_t>(channel) == Channel) {
        ShowSelected();
    }
}

void ChannelPage::Choose(const ChannelSetup& setup) {
    const ChannelInfo* channel = Selected();
    if (channel == nullptr) {
        return;
    }
    const bool isScale = !setup.Function && !setup.Calibre;
    const ChannelSetup before = Access.ChoiceOf(*channel).Setup;
    try {
        Access.SetUp(static_cast<int>(Channel), setup);
        if (isScale) {
            Former.push_back({Key, before});
        }
    } catch (const HostError& error) {
        if (!isScale) {
            Fields->ShowChannel(Access, *channel);
        }
        Fields->ShowError(setup, FromUtf8(error.what()));
        Failure = FromUtf8(error.what());
    }
    AllowControls();
    StateChanged();
}

void ChannelPage::SetScale(const ChannelSetup& setup) {
    if (const ChannelInfo* channel = Selected(); channel != nullptr) {
        Former.push_back({Key, Access.ChoiceOf(*channel).Setup});
        Access.SetScale(static_cast<int>(Channel), setup);
    }
}

bool ChannelPage::CanUndo() const {
    return std::ranges::count(Former, Key, &FormerScale::Key) > 0 && !Calibration->IsActive() &&
           !Access.IsBusy() && !Access.IsMeasuring();
}

/// Takes back the last change of this channel's scale.
void ChannelPage::Undo() {
    const auto last = std::ranges::find(Former.rbegin(), Former.rend(), Key, &FormerScale::Key);
    if (last == Former.rend() || !CanUndo()) {
        return;
    }
    const ChannelSetup setup = last->Setup;
    Former.erase(std::prev(last.base()));
    Access.SetScale(static_cast<int>(Channel), setup);
}

void ChannelPage::AllowControls() {
    const bool free = !Access.IsBusy() && !Access.IsMeasuring();
    const bool calibrates = Calibration->IsActive();
    Fields->Allow(free && !calibrates && Selected() != nullptr, !calibrates && !Access.IsBusy(),
                  CanUndo());
    Adjustment->Allow(free);
    Calibration->Allow(free);
}

void ChannelPage::Tick() {
    constexpr unsigned ticksPerLook = 10;
    if (Ticks++ % ticksPerLook == 0) {
        AllowControls();
    }
}

void ChannelPage::Measured() {
    Fields->Table->ShowValues(Access.Channels, Access.Values);
    if (Channel >= Access.Values.size()) {
        return;
    }
    double value = Access.Values[Channel];
    const auto index = static_cast<int>(Channel);
    if (IsShownOnScreen()) {
        const DriverTurn turn(Access);
        const double own = turn->QuelValeurSansPersonnalisationPour(index);
        Calibration->ShowReading(own);
        value = Calibration->IsActive() ? own : value;
    }
    ShowReading(value);
    if (IsShownOnScreen() && Looks++ % looksPerQuestion == 0) {
        Adjustment->Refresh();
    }
}

void ChannelPage::ShowReading(double value) {
    constexpr double msPerSecond = 1e3;
    Append(Readings, wxGetUTCTimeMillis().ToDouble() / msPerSecond, value);
    Curve->Invalidate();
    const ChannelInfo& channel = Shown();
    const auto text = [&](double number) {
        return FromUtf8(ReadingText(channel, number) + " " + channel.Unit);
    };
    Now->SetLabelText(text(value));
    const ReadingSpread spread = SpreadOf(Readings, spreadSec, channel.Max - channel.Min);
    Spread->SetLabelText(
        FromUtf8(Translated(spread.Steady ? wxTRANSLATE("± %s over the last 2 s, steady")
                                          : wxTRANSLATE("± %s over the last 2 s"),
                            {text(spread.Half).utf8_string()})));
}

bool ChannelPage::MayLeave() {
    if (!Calibration->IsActive()) {
        return true;
    }
    if (wxMessageBox(_("The calibration is not done. Give it up?"), "orvane-panel",
                     wxYES_NO | wxNO_DEFAULT | wxICON_QUESTION, this) != wxYES) {
        return false;
    }
    Calibration->GiveUpNow();
    return true;
}

void ChannelPage::StopMeasuring() {
    Calibration->GiveUpNow();
}

void ChannelPage::SavePicture() {
    SaveChartAs(this, MakeChart());
}

std::any ChannelPage::GiveUp() {
    return Kept{Key, Former};
}

void ChannelPage::TakeOver(std::any given) {
    auto kept = std::any_cast<Kept>(std::move(given));
    Former = std::move(kept.Former);
    Key = kept.Selected;
    ChannelsChanged();
}

Page* MakeChannelPage(wxWindow* parent, DriverAccess& access) {
    return new ChannelPage(parent, access); // NOLINT: its parent owns it
}

} // namespace orvane
