#include "hosts/panel/adjustment_box.h"

#include "hosts/panel/panel_text.h"
#include "hosts/session/translation.h"

#include <wx/bitmap.h>
#include <wx/intl.h>

#include <cmath>

namespace orvane {

AdjustmentBox::AdjustmentBox(wxWindow* parent, DriverAccess& access)
    : wxPanel(parent), Access(access) {
    Title = new wxStaticText(this, wxID_ANY, _("Adjustment"));
    Title->SetFont(Title->GetFont().Bold());
    Picture = new wxStaticBitmap(this, wxID_ANY, wxBitmap());
    auto* label = new wxStaticText(this, wxID_ANY, _("Ad&justment"));
    Value = new NumberField(this, _("Adjustment"), "");
    Set = new wxButton(this, wxID_ANY, _("S&et"));
    State = new wxStaticText(this, wxID_ANY, "");
    State->SetName(_("State of the adjustment"));
    auto* row = new wxBoxSizer(wxHORIZONTAL);
    row->Add(label, wxSizerFlags().CentreVertical().Border(wxRIGHT, FromDIP(8)));
    row->Add(Value, wxSizerFlags(1).CentreVertical().Border(wxRIGHT, FromDIP(8)));
    row->Add(Set, wxSizerFlags().CentreVertical());
    auto* rows = new wxBoxSizer(wxVERTICAL);
    rows->Add(Title, wxSizerFlags().Expand().Border(wxBOTTOM, FromDIP(4)));
    rows->Add(row, wxSizerFlags().Expand());
    rows->Add(Value->Message);
    rows->Add(State, wxSizerFlags().Expand().Border(wxTOP, FromDIP(4)));
    auto* whole = new wxBoxSizer(wxHORIZONTAL);
    whole->Add(Picture, wxSizerFlags().Border(wxRIGHT, FromDIP(8)));
    whole->Add(rows, wxSizerFlags(1).Expand());
    SetSizer(whole);
    Set->Bind(wxEVT_BUTTON, [this](wxCommandEvent&) { SetNow(); });
}

void AdjustmentBox::ShowChannel(int channel) {
    Channel = channel;
    IsBeingSet = false;
    Value->ShowText("");
    Refresh();
    const bool has = HasAdjustment(Info);
    if (has) {
        Title->SetLabelText(Info.Label.empty()
                                ? _("Adjustment")
                                : FromUtf8(Translated("Adjustment: %s", {Info.Label})));
        Value->ShowText(wxString::Format("%d", Info.Value.value_or(0)));
        ShowPicture();
    }
    Show(has);
    GetParent()->Layout();
}

void AdjustmentBox::ShowPicture() {
    const DriverTurn turn(Access);
    const wxBitmap picture = turn->QuelImageReglagePour(Channel);
    Picture->Show(picture.IsOk());
    if (picture.IsOk()) {
        Picture->SetBitmap(picture);
    }
    Layout();
}

void AdjustmentBox::Refresh() {
    if (IsBeingSet || Channel < 0) {
        return;
    }
    const AdjustmentInfo before = Info;
    {
        const DriverTurn turn(Access);
        Info = DescribeAdjustment(turn.Driver, Channel);
    }
    wxString text;
    if (Info.Value) {
        text = wxString::Format(_("at %d"), *Info.Value);
    }
    if (Info.State) {
        text += (text.empty() ? "" : ", ") +
                wxString::Format("%lc %d ", wxUniChar(0x25cf).GetValue(), *Info.State) +
                FromUtf8(Info.StateText);
    }
    if (text != State->GetLabelText()) {
        State->SetLabelText(text);
    }
    if (before.State != Info.State) {
        ShowPicture();
    }
}

void AdjustmentBox::Allow(bool allowed) {
    Set->Enable(allowed);
}

void AdjustmentBox::SetNow() {
    const auto value = Value->Number();
    if (!value || Access.IsBusy()) {
        return;
    }
    if (!HasPresets(Info)) {
        {
            const DriverTurn turn(Access);
            turn->MetReglagePour(Channel, *value);
        }
        Refresh();
        return;
    }
    IsBeingSet = true;
    State->SetLabelText(wxString(wxUniChar(0x25d0)) + " " + _("being set") + wxUniChar(0x2026));
    const int channel = Channel;
    const int preset = static_cast<int>(std::lround(*value));
    Access.CallInBackground(
        [channel, preset](const DriverExports& driver) {
            driver.PresetAdaptateurPour(channel, preset);
        },
        [this] {
            IsBeingSet = false;
            Refresh();
        });
}

} // namespace orvane
