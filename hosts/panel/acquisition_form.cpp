#include "hosts/panel/acquisition_form.h"

#include "hosts/panel/channel_table.h"
#include "hosts/panel/panel_text.h"
#include "hosts/panel/theme.h"
#include "hosts/session/durations.h"

#include <wx/intl.h>
#include <wx/settings.h>

#include <algorithm>
#include <cmath>

namespace orvane {

namespace {

constexpr int maxPoints = 10'000'000;
constexpr int firstPoints = 1000;

wxString DurationOf(double seconds) {
    return FromUtf8(DurationText(seconds));
}

} // namespace

AcquisitionForm::AcquisitionForm(wxWindow* parent, wxWindow* table) : Form(parent) {
    table->Reparent(this);
    AddWide(table);
    BuildSampling();
    BuildTrigger();
    AddGroup(_("View"));
    const wxString lanes[] = {_("one for each unit"), _("one for each channel")};
    Lanes = new wxChoice(this, wxID_ANY, wxDefaultPosition, wxDefaultSize, 2, lanes);
    Lanes->SetSelection(0);
    AddRow(_("&Lanes"), Lanes);
    Lanes->Bind(wxEVT_CHOICE, [this](wxCommandEvent&) { ViewChanged(); });
    EnableFields();
    ShowDuration();
}

void AcquisitionForm::BuildSampling() {
    AddGroup(_("Sampling"));
    Period = new NumberField(this, _("Period"), "s");
    Period->ChangeValue("1 ms");
    Applied = new wxStaticText(this, wxID_ANY, "");
    Applied->SetForegroundColour(wxSystemSettings::GetColour(wxSYS_COLOUR_GRAYTEXT));
    AddField(_("Pe&riod"), Period, Applied);
    Points = new wxSpinCtrl(this, wxID_ANY, "", wxDefaultPosition, wxDefaultSize,
                            wxSP_ARROW_KEYS | wxALIGN_RIGHT, 1, maxPoints, firstPoints);
    AddRow(_("Poi&nts"), Points);
    Duration = new NumberField(this, _("Duration"), "s");
    AddField(_("&Duration"), Duration);
    Period->Entered = [this](double) {
        Applied->SetLabelText("");
        ShowDuration();
    };
    Points->Bind(wxEVT_SPINCTRL, [this](wxSpinEvent&) { ShowDuration(); });
    Points->Bind(wxEVT_TEXT, [this](wxCommandEvent&) { ShowDuration(); });
    Duration->Entered = [this](double duration) {
        if (const auto period = Period->Number(); period && *period > 0.0) {
            Points->SetValue(static_cast<int>(
                std::clamp(std::round(duration / *period), 1.0, double{maxPoints})));
        }
    };
}

void AcquisitionForm::BuildTrigger() {
    AddGroup(_("Trigger"));
    Trigger = new wxCheckBox(this, wxID_ANY, _("&Source"));
    TriggerChannel = new wxChoice(this, wxID_ANY);
    TriggerChannel->SetName(_("Trigger channel"));
    auto* source = new wxBoxSizer(wxHORIZONTAL);
    source->Add(Trigger, wxSizerFlags().CentreVertical().Border(wxRIGHT, FromDIP(8)));
    source->Add(TriggerChannel, wxSizerFlags(1));
    AddSizer(source);
    const wxString edges[] = {_("rising"), _("falling")};
    TriggerEdge = new wxChoice(this, wxID_ANY, wxDefaultPosition, wxDefaultSize, 2, edges);
    TriggerEdge->SetSelection(0);
    TriggerEdge->SetName(_("Edge"));
    TriggerLevel = new NumberField(this, _("Level"), "");
    TriggerLevel->ChangeValue("0");
    AddRow(_("&Edge"), TriggerEdge);
    AddField(_("Le&vel"), TriggerLevel);
    PreTrigger = new wxCheckBox(this, wxID_ANY, "");
    AddWide(PreTrigger);
    PreTrigger->Hide();
    Trigger->Bind(wxEVT_CHECKBOX, [this](wxCommandEvent&) {
        EnableFields();
        TriggerChanged();
    });
    TriggerLevel->Entered = [this](double) { TriggerChanged(); };
    for (wxChoice* choice : {TriggerChannel, TriggerEdge}) {
        choice->Bind(wxEVT_CHOICE, [this](wxCommandEvent&) { TriggerChanged(); });
    }
}

void AcquisitionForm::ShowChannels(const std::vector<ChannelInfo>& channels) {
    const int selected = TriggerChannel->GetSelection();
    TriggerChannel->Clear();
    for (const ChannelInfo& channel : channels) {
        TriggerChannel->Append(FromUtf8(NumberedName(channel) + " (" + PlaceOf(channel) + ")"));
    }
    if (!channels.empty()) {
        TriggerChannel->SetSelection(
            selected >= 0 && static_cast<size_t>(selected) < channels.size() ? selected : 0);
    }
    EnableFields();
}

void AcquisitionForm::ShowLimits(size_t preTriggerPoints) {
    PreTriggerPoints = preTriggerPoints;
    PreTrigger->Show(preTriggerPoints > 0);
    ShowDuration();
    Layout();
}

std::optional<AcquisitionRequest> AcquisitionForm::Request() {
    const auto period = Period->Number();
    const auto level = Trigger->GetValue() ? TriggerLevel->Number() : std::optional(0.0);
    if (!period || !level) {
        (period ? TriggerLevel : Period)->SetFocus();
        return std::nullopt;
    }
    AcquisitionRequest request;
    request.PeriodSec = *period;
    request.Points = Points->GetValue();
    if (Trigger->GetValue() && TriggerChannel->GetSelection() != wxNOT_FOUND) {
        request.Trigger = AcquisitionTrigger{TriggerChannel->GetSelection(), *level,
                                             TriggerEdge->GetSelection() == 0};
        request.PreTrigger = PreTriggerPoints > 0 && PreTrigger->GetValue();
    }
    return request;
}

AcquisitionFields AcquisitionForm::Fields() const {
    return {.Period = Period->GetValue(),
            .Points = Points->GetValue(),
            .Triggered = Trigger->GetValue(),
            .TriggerChannel = TriggerChannel->GetSelection(),
            .Rising = TriggerEdge->GetSelection() == 0,
            .Level = TriggerLevel->GetValue(),
            .PreTrigger = PreTrigger->GetValue(),
            .OneLaneEach = Lanes->GetSelection() == 1};
}

void AcquisitionForm::SetFields(const AcquisitionFields& fields) {
    Period->ChangeValue(fields.Period);
    Points->SetValue(fields.Points);
    Trigger->SetValue(fields.Triggered);
    if (fields.TriggerChannel >= 0 &&
        static_cast<unsigned>(fields.TriggerChannel) < TriggerChannel->GetCount()) {
        TriggerChannel->SetSelection(fields.TriggerChannel);
    }
    TriggerEdge->SetSelection(fields.Rising ? 0 : 1);
    TriggerLevel->ChangeValue(fields.Level);
    PreTrigger->SetValue(fields.PreTrigger);
    Lanes->SetSelection(fields.OneLaneEach ? 1 : 0);
    ShowDuration();
    EnableFields();
}

void AcquisitionForm::SetLevel(double level, int decimals) {
    TriggerLevel->SetNumber(level, decimals);
    TriggerChanged();
}

void AcquisitionForm::ShowAppliedPeriod(double periodSec) {
    constexpr double tolerated = 0.01;
    const double asked = Period->Number().value_or(periodSec);
    const double off = std::abs(periodSec - asked);
    Applied->SetForegroundColour(off > tolerated * asked
                                     ? WarningColour()
                                     : wxSystemSettings::GetColour(wxSYS_COLOUR_GRAYTEXT));
    Applied->SetLabelText(off > 0.0 ? wxString::Format(_("console: %s"), DurationOf(periodSec))
                                    : wxString());
    Layout();
}

void AcquisitionForm::ShowDuration() {
    if (const auto period = Period->Number(); period) {
        Duration->ChangeValue(DurationOf(*period * Points->GetValue()));
        PreTrigger->SetLabel(
            wxString::Format(_("%zu points before: %s"), PreTriggerPoints,
                             DurationOf(*period * static_cast<double>(PreTriggerPoints))));
    }
}

void AcquisitionForm::SetRunActive(bool active) {
    RunActive = active;
    EnableFields();
}

void AcquisitionForm::EnableFields() {
    for (wxWindow* field : std::initializer_list<wxWindow*>{Period, Points, Duration, Trigger}) {
        field->Enable(!RunActive);
    }
    for (wxWindow* field :
         std::initializer_list<wxWindow*>{TriggerChannel, TriggerEdge, TriggerLevel, PreTrigger}) {
        field->Enable(!RunActive && Trigger->GetValue());
    }
}

} // namespace orvane
