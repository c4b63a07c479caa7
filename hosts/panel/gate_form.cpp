#include "hosts/panel/gate_form.h"

#include "hosts/panel/panel_text.h"
#include "hosts/session/number_text.h"
#include "hosts/session/translation.h"

#include <wx/intl.h>
#include <wx/settings.h>

namespace orvane {

namespace {

constexpr int accelerationDecimals = 3;
constexpr int speedDecimals = 4;

enum RunColumn { Number, At, Acceleration, LastSpeed };

wxString AccelerationText(const GateFall& fall) {
    return fall.Line ? LocalNumbers(FixedText(fall.Line->Acceleration, accelerationDecimals))
                     : wxString();
}

/// Mean and spread of the runs with positions; empty with less than two.
wxString MeanText(const std::vector<TimedFall>& runs) {
    std::vector<double> values;
    for (const TimedFall& run : runs) {
        if (run.Fall.Line) {
            values.push_back(run.Fall.Line->Acceleration);
        }
    }
    if (values.size() < 2) {
        return "";
    }
    const RunSpread spread = SpreadOf(values);
    return FromUtf8(
        Translated("mean of %s runs %s, spread %s",
                   {std::to_string(values.size()),
                    LocalNumbers(FixedText(spread.Mean, accelerationDecimals)).utf8_string(),
                    LocalNumbers(FixedText(spread.Spread, accelerationDecimals)).utf8_string()}));
}

} // namespace

GateForm::GateForm(wxWindow* parent, const std::vector<GatePlace>& places)
    : Form(parent), Rows(new GateRows(this, places)) {
    AddGroup(_("Gates"));
    AddWide(Rows);
    AddGroup(_("Timed run"));
    const int most = static_cast<int>(places.size() / 2);
    Forks = new wxSpinCtrl(this, wxID_ANY, "", wxDefaultPosition, wxDefaultSize,
                           wxSP_ARROW_KEYS | wxALIGN_RIGHT, 1, most, most);
    AddRow(_("&Forks"), Forks);
    Arm = new wxButton(this, wxID_ANY, _("&Arm"));
    Stop = new wxButton(this, wxID_ANY, _("S&top"));
    AddPair(Arm, Stop);
    AddGroup(_("Result"));
    Result = new wxStaticText(this, wxID_ANY, "g");
    Result->SetFont(Result->GetFont().Bold().Scaled(1.8F));
    Result->SetName(_("Result"));
    Result->SetMinSize(FromDIP(wxSize(-1, 40)));
    AddWide(Result);
    How = AddNote("");
    Mean = AddNote("");
    Correct = new wxButton(this, wxID_ANY, _("Use these &positions for this run"));
    AddWide(Correct);
    Runs = new wxListView(this, wxID_ANY, wxDefaultPosition, FromDIP(wxSize(-1, 150)),
                          wxLC_REPORT | wxLC_SINGLE_SEL);
    Runs->SetName(_("Runs"));
    Runs->AppendColumn(_("No."), wxLIST_FORMAT_RIGHT, FromDIP(46));
    Runs->AppendColumn(_("at"), wxLIST_FORMAT_LEFT, FromDIP(80));
    Runs->AppendColumn(wxString::FromUTF8("g (m/s²)"), wxLIST_FORMAT_RIGHT, FromDIP(84));
    Runs->AppendColumn(_("v at the last fork"), wxLIST_FORMAT_RIGHT, FromDIP(120));
    AddWide(Runs, 1);
    Correct->Hide();
}

void GateForm::EnableFor(bool armed, bool canArm) {
    Arm->Enable(canArm);
    Stop->Enable(armed);
    Forks->Enable(!armed && Forks->GetMax() > 1);
}

void GateForm::ShowResult(const std::vector<TimedFall>& runs, size_t shown) {
    wxString result = "g = –";
    wxString how;
    if (shown < runs.size()) {
        const GateFall& fall = runs[shown].Fall;
        if (fall.Line) {
            result = "g = " + AccelerationText(fall) + wxString::FromUTF8(" m/s²");
            how = fall.Forks.size() == 1
                      ? FromUtf8(Translated("from the door and the fork: %s",
                                            {"2 (x₂/t₂ − x₁/t₁) / (t₂ − t₁)"}))
                      : FromUtf8(Translated("slope of the speeds at the mid-times of %s forks",
                                            {std::to_string(fall.Forks.size())}));
        }
    }
    Result->SetLabel(result);
    How->SetLabel(how);
    How->Wrap(FromDIP(330));
    Mean->SetLabel(MeanText(runs));
    Layout();
    FitInside();
}

void GateForm::ShowRuns(const std::vector<TimedFall>& runs, size_t shown) {
    Runs->DeleteAllItems();
    for (const TimedFall& run : runs) {
        const long row = Runs->InsertItem(Runs->GetItemCount(),
                                          wxString::Format("%d", Runs->GetItemCount() + 1));
        Runs->SetItem(row, At, FromUtf8(run.At));
        Runs->SetItem(row, Acceleration, AccelerationText(run.Fall));
        const auto& speed = run.Fall.Forks.back().Speed;
        Runs->SetItem(row, LastSpeed,
                      speed ? LocalNumbers(FixedText(*speed, speedDecimals)) : wxString());
    }
    if (shown < runs.size()) {
        Runs->Select(static_cast<long>(shown));
        Runs->EnsureVisible(static_cast<long>(shown));
    }
}

} // namespace orvane
