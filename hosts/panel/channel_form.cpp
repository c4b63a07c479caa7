#include "hosts/panel/channel_form.h"

#include "hosts/panel/panel_text.h"
#include "hosts/session/durations.h"
#include "hosts/session/number_text.h"
#include "hosts/session/translation.h"

#include <wx/bitmap.h>
#include <wx/image.h>
#include <wx/intl.h>
#include <wx/settings.h>

namespace orvane {

namespace {

constexpr int pictureSize = 64;

void Fill(wxChoice& choice, const std::vector<std::string>& names, int selected) {
    choice.Clear();
    for (const std::string& name : names) {
        choice.Append(FromUtf8(name));
    }
    if (selected >= 0 && static_cast<size_t>(selected) < names.size()) {
        choice.SetSelection(selected);
    }
}

} // namespace

ChannelForm::ChannelForm(wxWindow* parent) : Form(parent) {
    Table = new ChannelTable(this);
    AddWide(Table);
    BuildHead();
    BuildSelections();
    BuildScale();
}

void ChannelForm::BuildHead() {
    Picture = new wxStaticBitmap(this, wxID_ANY, wxBitmap(), wxDefaultPosition,
                                 FromDIP(wxSize(pictureSize, pictureSize)));
    Picture->SetName(_("Picture of the channel"));
    Name = new wxStaticText(this, wxID_ANY, "");
    Name->SetFont(Name->GetFont().Bold().Larger());
    Place = new wxStaticText(this, wxID_ANY, "");
    Place->SetForegroundColour(wxSystemSettings::GetColour(wxSYS_COLOUR_GRAYTEXT));
    auto* texts = new wxBoxSizer(wxVERTICAL);
    texts->Add(Name);
    texts->Add(Place);
    auto* head = new wxBoxSizer(wxHORIZONTAL);
    head->Add(Picture, wxSizerFlags().Border(wxRIGHT, FromDIP(12)));
    head->Add(texts, wxSizerFlags(1).CentreVertical());
    AddSizer(head);
}

void ChannelForm::BuildSelections() {
    AddGroup(_("Measures"));
    Function = new wxChoice(this, wxID_ANY);
    Function->SetName(_("Function"));
    AddRow(_("&Function"), Function);
    Calibre = new wxChoice(this, wxID_ANY);
    Calibre->SetName(_("Calibre"));
    AddRow(_("&Calibre"), Calibre);
    SelectionMessage = new FieldMessage(this);
    AddWide(SelectionMessage);
    Function->Bind(wxEVT_CHOICE, [this](wxCommandEvent& event) {
        Chosen({.Function = Functions.at(static_cast<size_t>(event.GetSelection()))});
    });
    Calibre->Bind(wxEVT_CHOICE, [this](wxCommandEvent& event) {
        Chosen({.Calibre = Calibres.at(static_cast<size_t>(event.GetSelection()))});
    });
}

void ChannelForm::BuildScale() {
    AddGroup(FromUtf8(Translated("Scale: value × ampli + offset")));
    Ampli = new NumberField(this, _("Ampli"), "");
    AddField(_("&Ampli"), Ampli);
    Offset = new NumberField(this, _("Offset"), "");
    AddField(_("&Offset"), Offset);
    Ampli->Entered = [this](double ampli) { Chosen({.Ampli = ampli}); };
    Offset->Entered = [this](double offset) { Chosen({.Offset = offset}); };
    Quantity = new wxTextCtrl(this, wxID_ANY, "", wxDefaultPosition, FromDIP(wxSize(80, -1)),
                              wxTE_PROCESS_ENTER);
    Quantity->SetName(_("Symbol"));
    Unit = new wxTextCtrl(this, wxID_ANY, "", wxDefaultPosition, FromDIP(wxSize(120, -1)),
                          wxTE_PROCESS_ENTER);
    Unit->SetName(_("Unit"));
    AddRow(_("S&ymbol, unit"), Quantity, Unit);
    for (wxTextCtrl* field : {Quantity, Unit}) {
        field->Bind(wxEVT_TEXT_ENTER, [this](wxCommandEvent&) { TakeSymbols(); });
        field->Bind(wxEVT_KILL_FOCUS, [this](wxFocusEvent& event) {
            event.Skip();
            TakeSymbols();
        });
    }
    Undo = new wxButton(this, wxID_ANY, _("&Undo"));
    Delivered = new wxButton(this, wxID_ANY, _("As &delivered"));
    AddPair(Undo, Delivered);
}

void ChannelForm::TakeSymbols() {
    if (Quantity->IsModified() || Unit->IsModified()) {
        Quantity->SetModified(false);
        Unit->SetModified(false);
        Chosen({.Quantity = Quantity->GetValue().utf8_string(),
                .Unit = Unit->GetValue().utf8_string()});
    }
}

void ChannelForm::TakeFields() {
    Ampli->Take();
    Offset->Take();
    TakeSymbols();
}

void ChannelForm::ShowChannel(DriverAccess& access, const ChannelInfo& channel) {
    Name->SetLabelText(FromUtf8(NumberedName(channel)));
    Place->SetLabelText(FromUtf8(
        Translated("connector %s, channel %s, adapter %s",
                   {std::to_string(channel.Connector), std::to_string(channel.Channel),
                    std::to_string(channel.Reference)}) +
        "\n" + Translated("shortest period %s", {DurationText(channel.ShortestPeriodSec)})));
    int function = 0;
    {
        const DriverTurn turn(access);
        Functions = FunctionNames(turn.Driver, channel.Index);
        function = turn->QuelFonctionPour(channel.Index);
    }
    Calibres = channel.Calibres;
    Fill(*Function, Functions, function);
    Fill(*Calibre, Calibres, channel.Calibre);
    const ChannelSetup& chosen = access.ChoiceOf(channel).Setup;
    constexpr int digits = 10;
    Ampli->ShowText(FromUtf8(NumberText(chosen.Ampli.value_or(1.0), digits)));
    Offset->ShowText(FromUtf8(NumberText(chosen.Offset.value_or(0.0), digits)));
    Quantity->ChangeValue(FromUtf8(channel.Quantity));
    Unit->ChangeValue(FromUtf8(channel.Unit));
    SelectionMessage->Clear();
    ShowPicture(access, channel.Index);
    Layout();
}

void ChannelForm::ShowPicture(DriverAccess& access, int channel) {
    if (wxImage::FindHandler(wxBITMAP_TYPE_PNG) == nullptr) {
        wxInitAllImageHandlers(); // The driver decodes with those of its host.
    }
    wxBitmap picture;
    {
        const DriverTurn turn(access);
        picture = turn->QuelBitmapPour(channel);
    }
    Picture->Show(picture.IsOk());
    if (picture.IsOk()) {
        const int size = FromDIP(pictureSize);
        Picture->SetBitmap(wxBitmap(picture.ConvertToImage().Scale(size, size)));
    }
}

void ChannelForm::Allow(bool settings, bool channels, bool undo) {
    for (wxWindow* control : std::initializer_list<wxWindow*>{Function, Calibre, Ampli, Offset,
                                                              Quantity, Unit, Delivered}) {
        control->Enable(settings);
    }
    Undo->Enable(settings && undo);
    Table->Enable(channels);
}

void ChannelForm::ShowError(const ChannelSetup& setup, const wxString& text) {
    FieldMessage* message = setup.Ampli    ? Ampli->Message
                            : setup.Offset ? Offset->Message
                                           : SelectionMessage;
    message->ShowError(text);
}

} // namespace orvane
