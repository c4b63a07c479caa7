#include "hosts/panel/acquisition_form.h"

#include "hosts/panel/panel_text.h"
#include "hosts/session/durations.h"
#include "hosts/session/host_error.h"
#include "hosts/session/translation.h"

#include <wx/intl.h>
#include <wx/sizer.h>

#include <algorithm>

namespace orvane {

namespace {

constexpr int maxPoints = 10'000'000;
constexpr int firstPoints = 1000;
constexpr int gaugeSteps = 1000;

wxSizer* InRow(std::initializer_list<wxWindow*> fields, int gap) {
    auto* row = new wxBoxSizer(wxHORIZONTAL);
    for (wxWindow* field : fields) {
        if (row->GetItemCount() > 0) {
            row->AddSpacer(gap);
        }
        row->Add(field, wxSizerFlags(1).CentreVertical());
    }
    return row;
}

} // namespace

AcquisitionForm::AcquisitionForm(wxWindow* parent) : wxPanel(parent) {
    Build();
    Trigger->Bind(wxEVT_CHECKBOX, [this](wxCommandEvent&) { EnableFields(); });
    Start->Bind(wxEVT_BUTTON, [this](wxCommandEvent&) { StartPressed(); });
    Stop->Bind(wxEVT_BUTTON, [this](wxCommandEvent&) { StopPressed(); });
    for (wxTextCtrl* field : {Period, TriggerLevel}) {
        field->Bind(wxEVT_TEXT_ENTER, [this](wxCommandEvent&) { StartPressed(); });
    }
    EnableFields();
}

void AcquisitionForm::Build() {
    const auto label = [this](const wxString& text) {
        return new wxStaticText(this, wxID_ANY, text);
    };
    const auto text = [this](const wxString& value) {
        return new wxTextCtrl(this, wxID_ANY, value, wxDefaultPosition, wxDefaultSize,
                              wxTE_PROCESS_ENTER);
    };
    const int gap = FromDIP(8);
    auto* grid = new wxFlexGridSizer(2, FromDIP(wxSize(8, 6)));
    grid->AddGrowableCol(1);
    const auto add = [&](wxWindow* name, auto* field) {
        grid->Add(name, wxSizerFlags().CentreVertical());
        grid->Add(field, wxSizerFlags().Expand());
    };
    auto* periodName = label(_("Pe&riod"));
    Period = text("1 ms");
    add(periodName, Period);
    auto* pointsName = label(_("Poi&nts"));
    Points = new wxSpinCtrl(this, wxID_ANY, "", wxDefaultPosition, wxDefaultSize, wxSP_ARROW_KEYS,
                            1, maxPoints, firstPoints);
    add(pointsName, Points);
    Trigger = new wxCheckBox(this, wxID_ANY, _("&Trigger"));
    TriggerChannel = new wxChoice(this, wxID_ANY);
    add(Trigger, TriggerChannel);
    const wxString edges[] = {_("rising"), _("falling")};
    auto* edgeName = label(_("&Edge, level"));
    TriggerEdge = new wxChoice(this, wxID_ANY, wxDefaultPosition, wxDefaultSize, 2, edges);
    TriggerEdge->SetSelection(0);
    TriggerLevel = text("0");
    add(edgeName, InRow({TriggerEdge, TriggerLevel}, gap));

    Start = new wxButton(this, wxID_ANY, _("&Start"));
    Stop = new wxButton(this, wxID_ANY, _("Sto&p"));
    Progress = new wxGauge(this, wxID_ANY, gaugeSteps);
    Status =
        new wxStaticText(this, wxID_ANY, "", wxDefaultPosition, wxDefaultSize, wxST_NO_AUTORESIZE);
    constexpr int statusLines = 3;
    Status->SetMinSize(wxSize(-1, statusLines * GetCharHeight()));
    auto* column = new wxBoxSizer(wxVERTICAL);
    column->Add(grid, wxSizerFlags().Expand());
    column->AddSpacer(gap);
    column->Add(InRow({Start, Stop}, gap), wxSizerFlags().Expand());
    column->AddSpacer(gap);
    column->Add(Progress, wxSizerFlags().Expand());
    column->AddSpacer(gap);
    column->Add(Status, wxSizerFlags(1).Expand());
    SetSizer(column);
}

void AcquisitionForm::ShowChannels(const std::vector<ChannelInfo>& channels) {
    TriggerChannel->Clear();
    for (const ChannelInfo& channel : channels) {
        TriggerChannel->Append(FromUtf8(NameWithUnit(channel)));
    }
    if (!channels.empty()) {
        TriggerChannel->SetSelection(0);
    }
    EnableFields();
}

AcquisitionRequest AcquisitionForm::Request() const {
    AcquisitionRequest request;
    wxString period = Period->GetValue();
    period.Replace(" ", "");
    period.Replace(",", ".");
    request.PeriodSec = ParsePeriod(period.utf8_string());
    request.Points = Points->GetValue();
    if (Trigger->GetValue() && TriggerChannel->GetSelection() != wxNOT_FOUND) {
        const auto level = ParseInput(TriggerLevel->GetValue());
        if (!level) {
            throw WrongArgument(Translated("The trigger level is not a number."));
        }
        request.Trigger = AcquisitionTrigger{TriggerChannel->GetSelection(), *level,
                                             TriggerEdge->GetSelection() == 0};
    }
    return request;
}

void AcquisitionForm::ShowProgress(size_t points, size_t all) {
    const double part = static_cast<double>(points) / static_cast<double>(std::max<size_t>(all, 1));
    Progress->SetValue(std::min(static_cast<int>(part * gaugeSteps), gaugeSteps));
}

void AcquisitionForm::ShowStatus(const wxString& text) {
    if (Status->GetLabelText() != text) {
        Status->SetLabelText(text);
        Status->Wrap(Status->GetClientSize().x);
    }
}

void AcquisitionForm::SetRunActive(bool active) {
    RunActive = active;
    EnableFields();
    (active ? Stop : Start)->SetFocus();
}

void AcquisitionForm::EnableFields() {
    for (wxWindow* field : std::initializer_list<wxWindow*>{Period, Points, Trigger, Start}) {
        field->Enable(!RunActive);
    }
    for (wxWindow* field :
         std::initializer_list<wxWindow*>{TriggerChannel, TriggerEdge, TriggerLevel}) {
        field->Enable(!RunActive && Trigger->GetValue());
    }
    Stop->Enable(RunActive);
}

} // namespace orvane
