#include "hosts/panel/form.h"

#include "hosts/panel/panel_text.h"
#include "hosts/panel/theme.h"
#include "hosts/session/durations.h"

#include <wx/intl.h>
#include <wx/settings.h>
#include <wx/statline.h>

#include <limits>

namespace orvane {

namespace {

constexpr int labelWidth = 104;
constexpr int margin = 8;
constexpr int groupGap = 16;

} // namespace

FieldMessage::FieldMessage(wxWindow* parent) : wxStaticText(parent, wxID_ANY, "") {
    Hide();
}

void FieldMessage::ShowText(const wxString& text, const wxColour& colour) {
    SetForegroundColour(colour);
    SetLabelText(text);
    if (!IsShown()) {
        Show();
        GetParent()->Layout();
    }
}

void FieldMessage::ShowError(const wxString& text) {
    ShowText(wxString(wxUniChar(0x25b2)) + " " + text, ErrorColour());
}

void FieldMessage::ShowWarning(const wxString& text) {
    ShowText(wxString(wxUniChar(0x25b3)) + " " + text, WarningColour());
}

void FieldMessage::Clear() {
    if (IsShown()) {
        Hide();
        GetParent()->Layout();
    }
}

NumberField::NumberField(wxWindow* parent, const wxString& name, const wxString& unit)
    : wxTextCtrl(parent, wxID_ANY, "", wxDefaultPosition, wxDefaultSize,
                 wxTE_PROCESS_ENTER | wxTE_RIGHT),
      Message(new FieldMessage(parent)), Unit(unit), Least(std::numeric_limits<double>::lowest()),
      Most(std::numeric_limits<double>::max()) {
    SetName(name);
    Bind(wxEVT_TEXT_ENTER, [this](wxCommandEvent&) { Take(); });
    Bind(wxEVT_KILL_FOCUS, [this](wxFocusEvent& event) {
        event.Skip();
        Take();
    });
}

std::optional<double> NumberField::Number() {
    std::optional<double> number;
    if (Unit == "s") {
        wxString text = GetValue();
        text.Replace(",", ".");
        text.Replace(" ", "");
        number = ParseDuration(text.utf8_string());
    } else {
        number = ParseInput(GetValue());
    }
    if (!number) {
        Message->ShowError(wxString::Format(_("No number: %s"), GetValue()));
        return std::nullopt;
    }
    if (!(*number >= Least && *number <= Most)) {
        Message->ShowError(wxString::Format(_("From %g to %g"), Least, Most));
        return std::nullopt;
    }
    Message->Clear();
    return number;
}

void NumberField::SetNumber(double number, int decimals) {
    ShowText(wxString::Format("%.*f", decimals, number));
}

void NumberField::ShowText(const wxString& text) {
    ChangeValue(text);
    Taken = text;
    Message->Clear();
}

void NumberField::SetLimits(double least, double most) {
    Least = least;
    Most = most;
}

void NumberField::Take() {
    if (GetValue() == Taken) {
        return;
    }
    if (const auto number = Number(); number) {
        Taken = GetValue();
        Entered(*number);
    }
}

Form::Form(wxWindow* parent)
    : wxScrolledWindow(parent, wxID_ANY, wxDefaultPosition, wxDefaultSize,
                       wxVSCROLL | wxTAB_TRAVERSAL),
      Rows(new wxBoxSizer(wxVERTICAL)) {
    SetScrollRate(0, FromDIP(10));
    auto* whole = new wxBoxSizer(wxVERTICAL);
    whole->Add(Rows, wxSizerFlags(1).Expand().Border(wxALL, FromDIP(margin)));
    SetSizer(whole);
    Bind(wxEVT_SIZE, [this](wxSizeEvent& event) {
        WrapNotes();
        event.Skip();
    });
}

wxStaticText* Form::AddGroup(const wxString& title) {
    if (!Rows->IsEmpty()) {
        Rows->AddSpacer(FromDIP(groupGap / 2));
        Rows->Add(new wxStaticLine(this), wxSizerFlags().Expand());
        Rows->AddSpacer(FromDIP(groupGap / 2));
    }
    auto* text = new wxStaticText(this, wxID_ANY, title);
    text->SetFont(text->GetFont().Bold());
    Rows->Add(text, wxSizerFlags().Expand().Border(wxBOTTOM, FromDIP(margin / 2)));
    return text;
}

void Form::AddRow(const wxString& label, wxWindow* control, wxWindow* after) {
    auto* row = new wxBoxSizer(wxHORIZONTAL);
    auto* text =
        new wxStaticText(this, wxID_ANY, label, wxDefaultPosition, FromDIP(wxSize(labelWidth, -1)));
    text->MoveBeforeInTabOrder(control); // So that its letter leads to the control.
    if (control->GetName().empty()) {
        control->SetName(label);
    }
    row->Add(text, wxSizerFlags().CentreVertical());
    row->Add(control, wxSizerFlags(1).CentreVertical());
    if (after != nullptr) {
        row->Add(after, wxSizerFlags().CentreVertical().Border(wxLEFT, FromDIP(margin)));
    }
    Rows->Add(row, wxSizerFlags().Expand().Border(wxBOTTOM, FromDIP(margin / 2)));
}

void Form::AddField(const wxString& label, NumberField* field, wxWindow* after) {
    AddRow(label, field, after);
    Rows->Add(field->Message, wxSizerFlags().Border(wxLEFT, FromDIP(labelWidth)));
}

void Form::AddWide(wxWindow* control, int proportion) {
    Rows->Add(control, wxSizerFlags(proportion).Expand().Border(wxBOTTOM, FromDIP(margin)));
}

void Form::AddSizer(wxSizer* sizer) {
    Rows->Add(sizer, wxSizerFlags().Expand().Border(wxBOTTOM, FromDIP(margin / 2)));
}

void Form::AddPair(wxWindow* left, wxWindow* right) {
    auto* row = new wxBoxSizer(wxHORIZONTAL);
    row->Add(left, wxSizerFlags(1).Border(wxRIGHT, FromDIP(margin)));
    row->Add(right, wxSizerFlags(1));
    Rows->Add(row, wxSizerFlags().Expand().Border(wxBOTTOM, FromDIP(margin)));
}

wxStaticText* Form::AddNote(const wxString& text) {
    auto* note = new wxStaticText(this, wxID_ANY, text);
    note->SetForegroundColour(wxSystemSettings::GetColour(wxSYS_COLOUR_GRAYTEXT));
    note->Wrap(FromDIP(340));
    Rows->Add(note, wxSizerFlags().Expand().Border(wxBOTTOM, FromDIP(margin)));
    Notes.push_back(note);
    return note;
}

/// To the width of the column.
void Form::WrapNotes() {
    const int width = GetClientSize().x - FromDIP(2 * margin);
    if (width == WrappedWidth || width <= 0) {
        return;
    }
    WrappedWidth = width;
    for (wxStaticText* note : Notes) {
        wxString text = note->GetLabelText();
        text.Replace("\n", " ");
        note->SetLabelText(text);
        note->Wrap(width);
    }
}

} // namespace orvane
