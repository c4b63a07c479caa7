#include "hosts/panel/console_page.h"

#include "hosts/panel/loaded_scenario.h"
#include "hosts/panel/panel_text.h"
#include "hosts/panel/tool_icons.h"
#include "hosts/session/console_identity.h"
#include "hosts/session/driver_time.h"
#include "hosts/session/number_text.h"
#include "hosts/session/translation.h"

#include <wx/clipbrd.h>
#include <wx/intl.h>
#include <wx/splitter.h>
#include <wx/time.h>
#include <wx/utils.h>

#include <algorithm>
#include <array>
#include <cmath>

namespace orvane {

namespace {

constexpr int leftWidth = 440;
constexpr const char* clockVariable = "ORVANE_CLOCK"; // of the laboratory

/// What the laboratory's clock is set to; none: what the scenario says.
constexpr std::array speeds{"0.1", "0.2", "0.5", "1", "2", "5", "10", "100", "1000"};

wxString ClockFor(const char* speed) {
    return wxString("scaled:") + speed;
}

} // namespace

ConsolePage::ConsolePage(wxWindow* parent, DriverAccess& access)
    : Page(parent, access, _("Console")) {
    auto* whole = new wxBoxSizer(wxVERTICAL);
    if (access.Options.Scenario.empty()) {
        auto* form = new Form(this);
        BuildLeft(form);
        whole->Add(form, wxSizerFlags(1).Expand());
    } else {
        auto* split = new wxSplitterWindow(this, wxID_ANY, wxDefaultPosition, wxDefaultSize,
                                           wxSP_LIVE_UPDATE | wxSP_NOBORDER);
        auto* form = new Form(split);
        BuildLeft(form);
        BuildClock(form);
        auto* right = new wxPanel(split);
        BuildScenario(right);
        split->SplitVertically(form, right, FromDIP(leftWidth));
        split->SetMinimumPaneSize(FromDIP(280));
        whole->Add(split, wxSizerFlags(1).Expand());
    }
    SetSizer(whole);
}

void ConsolePage::BuildLeft(Form* form) {
    Texts = new wxListView(form, wxID_ANY, wxDefaultPosition, FromDIP(wxSize(400, 460)),
                           wxLC_REPORT | wxLC_NO_HEADER | wxLC_SINGLE_SEL);
    Texts->SetName(_("Console"));
    Texts->AppendColumn("", wxLIST_FORMAT_LEFT, FromDIP(180));
    Texts->AppendColumn("", wxLIST_FORMAT_LEFT, FromDIP(220));
    form->AddWide(Texts);
    Copy = new wxButton(form, wxID_ANY, _("&Copy as text"));
    Copy->Bind(wxEVT_BUTTON, [this](wxCommandEvent&) { CopyTexts(); });
    form->AddWide(Copy);
}

void ConsolePage::BuildClock(Form* form) {
    form->AddGroup(_("Clock of the laboratory"));
    Speed = new wxChoice(form, wxID_ANY);
    Speed->SetName(_("Speed"));
    Speed->Append(_("as the scenario says"));
    Speed->SetSelection(0);
    wxString set;
    wxGetEnv(clockVariable, &set);
    for (const char* speed : speeds) {
        Speed->Append(wxString(wxUniChar(0xd7)) + speed);
        if (set == ClockFor(speed)) {
            Speed->SetSelection(static_cast<int>(Speed->GetCount()) - 1);
        }
    }
    form->AddRow(_("&Speed"), Speed);
    Clock = new wxStaticText(form, wxID_ANY, "");
    form->AddRow(_("Time"), Clock);
    form->AddNote(_("Another speed starts the console anew. What was measured and written stays."));
    Speed->Bind(wxEVT_CHOICE, [this](wxCommandEvent&) { ChooseSpeed(); });
}

void ConsolePage::BuildScenario(wxWindow* parent) {
    auto* title = new wxStaticText(
        parent, wxID_ANY, wxString::Format(_("Scenario %s"), FromUtf8(Access.Options.Scenario)));
    title->SetFont(title->GetFont().Bold());
    Scenario = new wxTextCtrl(parent, wxID_ANY, "", wxDefaultPosition, wxDefaultSize,
                              wxTE_MULTILINE | wxTE_READONLY | wxTE_DONTWRAP);
    Scenario->SetName(_("Text of the scenario"));
    Scenario->SetFont(
        wxFont(wxFontInfo(Scenario->GetFont().GetPointSize()).Family(wxFONTFAMILY_TELETYPE)));
    Errors = new wxListBox(parent, wxID_ANY, wxDefaultPosition, FromDIP(wxSize(200, 90)));
    Errors->SetName(_("Errors of the scenario"));
    Errors->Bind(wxEVT_LISTBOX, [this](wxCommandEvent&) { ShowErrorLine(); });
    Again = new wxButton(parent, wxID_ANY, _("&Read it again"));
    Again->Bind(wxEVT_BUTTON, [this](wxCommandEvent&) { ReadScenario(); });
    auto* head = new wxBoxSizer(wxHORIZONTAL);
    head->Add(title, wxSizerFlags(1).CentreVertical());
    head->Add(Again);
    auto* whole = new wxBoxSizer(wxVERTICAL);
    const int margin = FromDIP(8);
    whole->Add(head, wxSizerFlags().Expand().Border(wxALL, margin));
    whole->Add(Scenario, wxSizerFlags(1).Expand().Border(wxLEFT | wxRIGHT, margin));
    whole->Add(Errors, wxSizerFlags().Expand().Border(wxALL, margin));
    parent->SetSizer(whole);
}

std::vector<PageTool> ConsolePage::Tools() {
    return {
        {.Label = _("Copy"), .Icon = tool_icon::Copy, .Keys = "", .Do = [this] { CopyTexts(); }}};
}

/// Only now: a console without memory has the driver show a message.
void ConsolePage::Entered() {
    if (!IsRead) {
        IsRead = true;
        ReadConsole();
        if (Scenario != nullptr) {
            ReadScenario();
        }
    }
}

void ConsolePage::AddText(const wxString& label, const wxString& text) {
    const long row = Texts->InsertItem(Texts->GetItemCount(), label);
    Texts->SetItem(row, 1, text.empty() ? wxString(wxUniChar(0x2013)) : text);
}

void ConsolePage::ReadConsole() {
    if (Access.IsBusy()) {
        IsRead = false;
        return;
    }
    const DriverTurn turn(Access);
    for (const IdentityText& text : IdentityTexts(turn.Driver)) {
        AddText(wxGetTranslation(text.Label), FromUtf8(TextOf(text.Text)));
    }
    for (const LimitText& limit : LimitTexts(turn.Driver)) {
        AddText(wxGetTranslation(limit.Label), FromUtf8(limit.Text));
    }
    AddText(_("Input channels"), wxString::Format("%zu", Access.Channels.size()));
    AddText(_("Trigger channels"), wxString::Format("%d", turn->CombienDeCanauxDeSynchro()));
    AddText(_("Output channels"), wxString::Format("%d", turn->CombienDeCanauxEnSortie()));
}

void ConsolePage::ReadScenario() {
    const LoadedScenario loaded = ReadScenarioOf(Access.Options);
    Scenario->ChangeValue(FromUtf8(loaded.Text));
    Errors->Clear();
    for (const std::string& error : loaded.Errors) {
        Errors->Append(FromUtf8(error));
    }
    Errors->Show(!loaded.Errors.empty());
    Errors->GetParent()->Layout();
}

void ConsolePage::ShowErrorLine() {
    const int line = LineOfError(Errors->GetStringSelection().utf8_string());
    if (line > 0) {
        const long from = Scenario->XYToPosition(0, line - 1);
        Scenario->SetSelection(from, from + Scenario->GetLineLength(line - 1));
        Scenario->ShowPosition(from);
    }
}

void ConsolePage::CopyTexts() {
    wxString all;
    for (long row = 0; row < Texts->GetItemCount(); ++row) {
        all += Texts->GetItemText(row, 0) + ": " + Texts->GetItemText(row, 1) + "\n";
    }
    const wxClipboardLocker clipboard;
    if (!clipboard) {
        return;
    }
    wxTheClipboard->SetData(new wxTextDataObject(all)); // NOLINT: the clipboard owns it
}

void ConsolePage::Measured() {
    if (IsShownOnScreen() && !IsRead) {
        Entered();
    }
    if (Clock == nullptr) {
        return;
    }
    double now = 0.0;
    {
        const DriverTurn turn(Access);
        now = DriverSeconds(turn.Driver);
    }
    constexpr int decimals = 1;
    constexpr double msPerSecond = 1e3;
    const wxLongLong machine = wxGetUTCTimeMillis();
    if (!BeganAt) {
        BeganAt = now;
    } else {
        const double passed = (machine - MachineMs).ToDouble() / msPerSecond;
        Clock->SetLabelText(FromUtf8(
            Translated("%s s, %s s each second",
                       {FixedText(now - *BeganAt, decimals),
                        NumberText(std::round((now - DriverSec) / passed * 10.0) / 10.0)})));
    }
    DriverSec = now;
    MachineMs = machine;
}

void ConsolePage::ChooseSpeed() {
    const int chosen = Speed->GetSelection();
    if (chosen <= 0) {
        wxUnsetEnv(clockVariable);
    } else {
        wxSetEnv(clockVariable, ClockFor(speeds.at(static_cast<size_t>(chosen) - 1)));
    }
    StartAgain();
}

Page* MakeConsolePage(wxWindow* parent, DriverAccess& access) {
    return new ConsolePage(parent, access); // NOLINT: its parent owns it
}

} // namespace orvane
