#include "hosts/panel/radio_form.h"

#include "hosts/session/radio_network.h"

#include <wx/intl.h>
#include <wx/settings.h>

namespace orvane {

namespace {

constexpr int usualChannel = 15;
constexpr int usualLevel = 4;

} // namespace

RadioForm::RadioForm(wxWindow* parent) : Form(parent) {
    BuildNetwork();
    BuildMode();
    BuildPod();
    SetEntered({usualChannel, usualLevel});
    ShowNetwork(false, NetworkMode::Closed);
    ShowSelected(-1);
}

void RadioForm::BuildNetwork() {
    AddGroup(_("Network"));
    Pilot = new wxStaticText(this, wxID_ANY, "");
    AddRow(_("Pilot radio"), Pilot);
    Channel = new NumberField(this, _("Radio channel"), "");
    Channel->SetLimits(leastRadioChannel, greatestRadioChannel);
    AddField(_("&Channel"), Channel, LimitsText(leastRadioChannel, greatestRadioChannel));
    Level = new NumberField(this, _("Radio level"), "");
    Level->SetLimits(leastRadioLevel, greatestRadioLevel);
    AddField(_("&Level"), Level, LimitsText(leastRadioLevel, greatestRadioLevel));
    Stored = AddNote("");
    Apply = new wxButton(this, wxID_ANY, _("Appl&y"));
    AsStored = new wxButton(this, wxID_ANY, _("As &stored"));
    Off = new wxButton(this, wxID_ANY, _("&Off"));
    AddButtons({Apply, AsStored, Off});
}

void RadioForm::BuildMode() {
    AddGroup(_("Mode"));
    const std::array<wxString, 3> words{_("op&en: pods may join"),
                                        _("pilo&t: the console leads the pods"),
                                        _("close&d: no more pods")};
    for (size_t i = 0; i < words.size(); ++i) {
        Modes.at(i) = new wxRadioButton(this, wxID_ANY, words.at(i), wxDefaultPosition,
                                        wxDefaultSize, i == 0 ? wxRB_GROUP : 0);
        Modes.at(i)->SetName(wxControl::RemoveMnemonics(words.at(i)));
        AddWide(Modes.at(i));
    }
}

void RadioForm::BuildPod() {
    Selected = AddGroup("");
    Accept = new wxButton(this, wxID_ANY, _("&Accept"));
    Ping = new wxButton(this, wxID_ANY, _("Pin&g"));
    AcceptAll = new wxButton(this, wxID_ANY, _("Accept a&ll"));
    AddButtons({Accept, Ping, AcceptAll});
    AddNote(_("A ping tells whether the pod answers. The values rest meanwhile."));
}

void RadioForm::AddButtons(std::initializer_list<wxButton*> buttons) {
    auto* row = new wxBoxSizer(wxHORIZONTAL);
    for (wxButton* button : buttons) {
        button->SetMinSize(FromDIP(wxSize(60, -1)));
        row->Add(button,
                 wxSizerFlags(1).Border(wxRIGHT, FromDIP(button == *(buttons.end() - 1) ? 0 : 8)));
    }
    AddSizer(row);
}

wxStaticText* RadioForm::LimitsText(int least, int greatest) {
    wxString text = wxString::Format(_("from %d to %d"), least, greatest);
    text.Replace("-", wxUniChar(0x2212));
    auto* grey = new wxStaticText(this, wxID_ANY, text);
    grey->SetForegroundColour(wxSystemSettings::GetColour(wxSYS_COLOUR_GRAYTEXT));
    return grey;
}

std::optional<RadioForm::Setting> RadioForm::Entered() {
    Setting setting;
    for (const auto& [field, into] :
         {std::pair{Channel, &setting.Channel}, {Level, &setting.Level}}) {
        const auto number = field->Number();
        if (!number) {
            field->SetFocus();
            return std::nullopt;
        }
        *into = static_cast<int>(*number);
    }
    return setting;
}

void RadioForm::SetEntered(Setting setting) {
    Channel->SetNumber(setting.Channel, 0);
    Level->SetNumber(setting.Level, 0);
}

void RadioForm::ShowNetwork(bool on, NetworkMode mode) {
    Pilot->SetLabelText(on ? wxString(wxUniChar(0x25cf)) + " " + _("on")
                           : wxString(wxUniChar(0x25cb)) + " " + _("off"));
    Modes.at(static_cast<size_t>(mode))->SetValue(true);
}

void RadioForm::ShowStored(int channel) {
    Stored->SetLabelText(wxString::Format(_("stored in the console: channel %d"), channel));
}

void RadioForm::ShowSelected(int pod) {
    Selected->SetLabelText(pod < 0 ? _("Selected pod: none")
                                   : wxString::Format(_("Selected pod: %d"), pod));
}

} // namespace orvane
