#include "hosts/panel/acquisition_form.h"

#include "hosts/panel/channel_table.h"
#include "hosts/panel/panel_text.h"
#include "hosts/panel/theme.h"
#include "hosts/session/durations.h"
#include "hosts/session/unit_prefix.h"

#include <wx/intl.h>
#include <wx/settings.h>

#include <algorithm>
#include <array>
#include <cmath>

namespace orvane {

namespace {

constexpr int maxPoints = 10'000'000;
constexpr int firstPoints = 1000;
constexpr std::array<double, 3> rolledSec{1.0, 10.0, 60.0};

wxString DurationOf(double seconds) {
    return LocalNumbers(DurationText(seconds));
}

} // namespace

AcquisitionForm::AcquisitionForm(wxWindow* parent, wxWindow* table) : Form(parent) {
    table->Reparent(this);
    AddWide(table);
    ChannelsMessage = new FieldMessage(this);
    AddWide(ChannelsMessage);
    BuildSampling();
    BuildTrigger();
    BuildView();
    EnableFields();
    ShowDuration();
}

wxChoice* AcquisitionForm::AddChoice(const wxString& label, const wxArrayString& choices) {
    auto* choice = new wxChoice(this, wxID_ANY, wxDefaultPosition, wxDefaultSize, choices);
    choice->SetSelection(0);
    AddRow(label, choice);
    choice->Bind(wxEVT_CHOICE, [this](wxCommandEvent&) { ViewChanged(); });
    return choice;
}

void AcquisitionForm::BuildView() {
    AddGroup(_("View"));
    wxArrayString times;
    times.Add(_("whole run"));
    for (const double seconds : rolledSec) {
        times.Add(wxString::Format(_("last %s"), DurationOf(seconds)));
    }
    Time = AddChoice(_("&Time"), times);
    const wxString axes[] = {_("fit to the samples"), _("whole range")};
    Axes = AddChoice(_("A&xes"), wxArrayString(2, axes));
    const wxString lanes[] = {_("one for each unit"), _("one for each channel")};
    Lanes = AddChoice(_("&Lanes"), wxArrayString(2, lanes));
}

LaneView AcquisitionForm::View() const {
    return {.OneEach = Lanes->GetSelection() == 1, .WholeRange = Axes->GetSelection() == 1};
}

std::optional<double> AcquisitionForm::RolledSec() const {
    const int selection = Time->GetSelection();
    return selection > 0 ? std::optional(rolledSec.at(static_cast<size_t>(selection) - 1))
                         : std::nullopt;
}

void AcquisitionForm::BuildSampling() {
    AddGroup(_("Sampling"));
    Period = new NumberField(this, _("Period"), "s");
    Period->ChangeValue("1 ms");
    Applied = new wxStaticText(this, wxID_ANY, "");
    Applied->SetForegroundColour(wxSystemSettings::GetColour(wxSYS_COLOUR_GRAYTEXT));
    AddField(_("Pe&riod"), Period, Applied);
    Applied->Hide();
    Points = new wxSpinCtrl(this, wxID_ANY, "", wxDefaultPosition, wxDefaultSize,
                            wxSP_ARROW_KEYS | wxALIGN_RIGHT, 1, maxPoints, firstPoints);
    AddRow(_("Poi&nts"), Points);
    PointsMessage = new FieldMessage(this);
    AddWide(PointsMessage);
    Duration = new NumberField(this, _("Duration"), "s");
    AddField(_("&Duration"), Duration);
    Period->Entered = [this](double) {
        Applied->Hide();
        Layout();
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
    Trigger->SetMinSize(FromDIP(wxSize(104, -1)));
    source->Add(Trigger, wxSizerFlags().CentreVertical());
    source->Add(TriggerChannel, wxSizerFlags(1));
    AddSizer(source);
    const wxString edges[] = {_("rising"), _("falling")};
    TriggerEdge = new wxChoice(this, wxID_ANY, wxDefaultPosition, wxDefaultSize, 2, edges);
    TriggerEdge->SetSelection(0);
    TriggerEdge->SetName(_("Edge"));
    TriggerLevel = new NumberField(this, _("Level"), "");
    TriggerLevel->ChangeValue("0");
    LevelUnit = new wxStaticText(this, wxID_ANY, "");
    LevelUnit->SetForegroundColour(wxSystemSettings::GetColour(wxSYS_COLOUR_GRAYTEXT));
    AddRow(_("&Edge, level"), TriggerEdge, TriggerLevel, LevelUnit);
    PreTrigger = new wxCheckBox(this, wxID_ANY, "");
    AddWide(PreTrigger);
    PreTrigger->Hide();
    Trigger->Bind(wxEVT_CHECKBOX, [this](wxCommandEvent&) {
        EnableFields();
        TriggerChanged();
    });
    TriggerLevel->Entered = [this](double) { TriggerChanged(); };
    for (wxChoice* choice : {TriggerChannel, TriggerEdge}) {
        choice->Bind(wxEVT_CHOICE, [this](wxCommandEvent&) {
            ShowLevelLimits();
            TriggerChanged();
        });
    }
}

void AcquisitionForm::ShowChannels(const std::vector<ChannelInfo>& channels) {
    Channels = channels;
    const int selected = TriggerChannel->GetSelection();
    TriggerChannel->Clear();
    for (const ChannelInfo& channel : channels) {
        TriggerChannel->Append(FromUtf8(NumberedName(channel) + " (" + PlaceOf(channel) + ")"));
    }
    if (!channels.empty()) {
        TriggerChannel->SetSelection(
            selected >= 0 && static_cast<size_t>(selected) < channels.size() ? selected : 0);
    }
    ShowLevelLimits();
    EnableFields();
}

void AcquisitionForm::ShowLevelLimits() {
    const int source = TriggerChannel->GetSelection();
    if (source < 0) {
        return;
    }
    const ChannelInfo& channel = Channels.at(static_cast<size_t>(source));
    const ToldUnit unit = ToldUnitOf(channel);
    TriggerLevel->SetLimits(channel.Min / unit.Factor, channel.Max / unit.Factor);
    LevelUnit->SetLabelText(FromUtf8(unit.Name));
    if (Trigger->GetValue()) {
        TriggerLevel->Number(); // Says so if it is outside.
    }
    Layout();
}

void AcquisitionForm::ShowLimits(const AcquisitionLimits& limits) {
    Period->SetLimits(limits.ShortestSec, limits.LongestSec);
    Period->Number(); // Says so if it is outside.
    ChannelsMessage->Clear();
    PreTriggerPoints = limits.PreTriggerPoints;
    PreTrigger->Show(PreTriggerPoints > 0);
    ShowDuration();
    Layout();
}

std::optional<AcquisitionRequest> AcquisitionForm::Request() {
    PointsMessage->Clear();
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
        request.Trigger = AcquisitionTrigger{TriggerChannel->GetSelection(), Level().value_or(0.0),
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
            .Time = Time->GetSelection(),
            .WholeRange = Axes->GetSelection() == 1,
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
    Time->SetSelection(fields.Time);
    Axes->SetSelection(fields.WholeRange ? 1 : 0);
    Lanes->SetSelection(fields.OneLaneEach ? 1 : 0);
    ShowDuration();
    ShowLevelLimits();
    EnableFields();
}

void AcquisitionForm::SetLevel(double level) {
    const int source = TriggerChannel->GetSelection();
    if (source >= 0) {
        const ChannelInfo& channel = Channels.at(static_cast<size_t>(source));
        TriggerLevel->SetNumber(level / ToldUnitOf(channel).Factor, DecimalsOf(channel));
        TriggerChanged();
    }
}

std::optional<double> AcquisitionForm::Level() const {
    const int source = TriggerChannel->GetSelection();
    const auto level = ParseInput(TriggerLevel->GetValue());
    if (!Trigger->GetValue() || source < 0 || !level) {
        return std::nullopt;
    }
    const ChannelInfo& channel = Channels.at(static_cast<size_t>(source));
    return std::clamp(*level * ToldUnitOf(channel).Factor, channel.Min, channel.Max);
}

void AcquisitionForm::ShowAppliedPeriod(double periodSec) {
    constexpr double tolerated = 0.01;
    const double asked = Period->Number().value_or(periodSec);
    const double off = std::abs(periodSec - asked);
    Applied->SetForegroundColour(off > tolerated * asked
                                     ? WarningColour()
                                     : wxSystemSettings::GetColour(wxSYS_COLOUR_GRAYTEXT));
    constexpr double halfNs = 0.5e-9;
    Applied->SetLabelText(off > halfNs ? wxString::Format(_("console: %s"), DurationOf(periodSec))
                                       : wxString());
    Applied->Show(off > halfNs);
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
