#include "hosts/panel/channel_settings.h"

#include "hosts/panel/panel_text.h"
#include "hosts/session/number_text.h"

#include <wx/intl.h>
#include <wx/sizer.h>
#include <wx/stattext.h>
#include <wx/utils.h>

namespace orvane {

ChannelSettings::ChannelSettings(wxWindow* parent) : wxPanel(parent) {
    auto* grid = new wxFlexGridSizer(2, FromDIP(wxSize(8, 6)));
    grid->AddGrowableCol(1);
    const auto add = [&](const wxString& label, wxWindow* field) {
        // The label precedes its field, so that its mnemonic selects the field.
        auto* text = new wxStaticText(this, wxID_ANY, label);
        text->MoveBeforeInTabOrder(field);
        grid->Add(text, wxSizerFlags().CentreVertical());
        grid->Add(field, wxSizerFlags().Expand());
    };
    Calibre = new wxChoice(this, wxID_ANY);
    Ampli =
        new wxTextCtrl(this, wxID_ANY, "", wxDefaultPosition, wxDefaultSize, wxTE_PROCESS_ENTER);
    Offset =
        new wxTextCtrl(this, wxID_ANY, "", wxDefaultPosition, wxDefaultSize, wxTE_PROCESS_ENTER);
    add(_("&Calibre"), Calibre);
    add(_("A&mpli"), Ampli);
    add(_("&Offset"), Offset);
    SetSizer(grid);

    Calibre->Bind(wxEVT_CHOICE,
                  [this](wxCommandEvent& event) { CalibreChosen(Channel, event.GetSelection()); });
    for (wxTextCtrl* field : {Ampli, Offset}) {
        field->Bind(wxEVT_TEXT_ENTER, [this](wxCommandEvent&) { ApplyScale(); });
        field->Bind(wxEVT_KILL_FOCUS, [this](wxFocusEvent& event) {
            event.Skip();
            ApplyScale();
        });
    }
}

void ChannelSettings::ShowChannel(const ChannelInfo& channel, const ChannelScale& scale) {
    ApplyScale();
    Enable();
    Calibre->Clear();
    for (const std::string& name : channel.Calibres) {
        Calibre->Append(FromUtf8(name));
    }
    if (static_cast<size_t>(channel.Calibre) < channel.Calibres.size()) {
        Calibre->SetSelection(channel.Calibre);
    }
    Channel = channel.Index;
    Scale = scale;
    ShowScale();
}

void ChannelSettings::ShowNone() {
    Calibre->Clear();
    Ampli->ChangeValue("");
    Offset->ChangeValue("");
    Disable();
}

void ChannelSettings::ApplyScale() {
    if (!Ampli->IsModified() && !Offset->IsModified()) {
        return;
    }
    const auto ampli = ParseInput(Ampli->GetValue());
    const auto offset = ParseInput(Offset->GetValue());
    if (ampli && offset) {
        Scale = {*ampli, *offset};
    } else {
        wxBell();
    }
    // Before the callback, which may lead here again: the fields are no longer modified.
    ShowScale();
    ScaleChosen(Channel, Scale);
}

void ChannelSettings::ShowScale() {
    constexpr int allDigits = 15;
    Ampli->ChangeValue(FromUtf8(NumberText(Scale.Ampli, allDigits)));
    Offset->ChangeValue(FromUtf8(NumberText(Scale.Offset, allDigits)));
}

} // namespace orvane
