#include "hosts/panel/gate_rows.h"

#include "hosts/panel/panel_text.h"
#include "hosts/panel/swatch.h"
#include "hosts/session/gate_motion.h"
#include "hosts/session/number_text.h"

#include <wx/intl.h>
#include <wx/settings.h>
#include <wx/statbmp.h>

#include <algorithm>

namespace orvane {

namespace {

constexpr int positionDecimals = 3;

wxStaticText* AddText(wxWindow* parent, wxSizer& grid, const wxString& text,
                      const wxSizerFlags& flags) {
    auto* label = new wxStaticText(parent, wxID_ANY, text);
    grid.Add(label, flags);
    return label;
}

} // namespace

wxString GateName(size_t row) {
    if (row == 0) {
        return _("Door");
    }
    const auto fork = static_cast<unsigned>((row + 1) / 2);
    return wxString::Format(row % 2 == 1 ? _("Fork %u first") : _("Fork %u second"), fork);
}

GateRows::GateRows(wxWindow* parent, const std::vector<GatePlace>& places)
    : wxPanel(parent), Message(new FieldMessage(this)) {
    constexpr int columns = 5;
    auto* grid = new wxFlexGridSizer(columns, FromDIP(wxSize(8, 2)));
    grid->AddGrowableCol(1);
    const wxSizerFlags left = wxSizerFlags().CentreVertical();
    const wxSizerFlags right = wxSizerFlags().CentreVertical().Right();
    grid->AddSpacer(0);
    AddText(this, *grid, _("Gate"), left);
    AddText(this, *grid, _("Place"), right);
    AddText(this, *grid, _("Position (m)"), right);
    AddText(this, *grid, _("State"), left);
    for (size_t row = 0; row < places.size(); ++row) {
        AddRow(*grid, row, places[row]);
    }
    auto* whole = new wxBoxSizer(wxVERTICAL);
    whole->Add(grid, wxSizerFlags().Expand());
    whole->Add(Message, wxSizerFlags().Expand().Border(wxTOP, FromDIP(4)));
    SetSizer(whole);
}

void GateRows::AddRow(wxSizer& grid, size_t row, const GatePlace& place) {
    constexpr int fieldWidth = 72;
    constexpr int stateWidth = 76;
    const wxSizerFlags flags = wxSizerFlags().CentreVertical();
    if (row == 0) {
        grid.AddSpacer(0);
    } else {
        grid.Add(new wxStaticBitmap(this, wxID_ANY, Swatch(*this, {(row - 1) / 2}, Dash::Solid)),
                 flags);
    }
    Names.push_back(AddText(this, grid, GateName(row), flags));
    AddText(this, grid, place.Place, wxSizerFlags(flags).Right());
    auto* field =
        new NumberField(this, wxString::Format(_("Position of %s in m"), GateName(row)), "");
    field->SetMinSize(FromDIP(wxSize(fieldWidth, -1)));
    if (place.Position) {
        field->ChangeValue(LocalNumbers(FixedText(*place.Position, positionDecimals)));
    }
    for (const auto& type : {wxEVT_TEXT_ENTER, wxEVT_TEXT}) {
        field->Bind(type, [this](wxCommandEvent& event) {
            event.Skip();
            Changed();
        });
    }
    Positions.push_back(field);
    grid.Add(field, flags);
    States.push_back(AddText(this, grid, "", flags));
    States.back()->SetMinSize(FromDIP(wxSize(stateWidth, -1)));
}

void GateRows::UseGates(size_t gates) {
    for (size_t row = 0; row < Positions.size(); ++row) {
        Positions[row]->Enable(row <= gates);
        Names[row]->Enable(row <= gates);
        States[row]->Enable(row <= gates);
    }
}

void GateRows::ShowStates(const GateStates& states) {
    const auto show = [this](size_t row, const wxString& text) {
        if (row < States.size() && States[row]->GetLabel() != text) {
            States[row]->SetLabel(text);
        }
    };
    const wxString ring = wxString(wxUniChar(0x25cb)) + " ";
    const wxString disc = wxString(wxUniChar(0x25cf)) + " ";
    show(0, states.DoorClosed ? disc + _("door closed") : ring + _("door open"));
    for (size_t gate = 0; gate < states.Gates.size(); ++gate) {
        show(gate + 1, states.Gates[gate] == 0 ? ring + _("free") : disc + _("crossed"));
    }
}

std::vector<double> GateRows::PositionsOfGates(size_t gates) {
    std::vector<double> positions;
    const auto door = ParseInput(Positions.at(0)->GetValue());
    for (size_t row = 1; row <= gates && row < Positions.size(); ++row) {
        if (const auto position = ParseInput(Positions[row]->GetValue()); position && door) {
            positions.push_back(*position - *door);
        }
    }
    std::vector<double> rising = positions;
    std::ranges::sort(rising);
    if (positions.size() < gates) {
        Message->ShowWarning(_("Speeds need the position of each gate."));
        return {};
    }
    if (!AreGatePositions(rising)) {
        Message->ShowError(_("Each gate lies below the door, at a place of its own."));
        return {};
    }
    Message->Clear();
    return positions;
}

std::vector<wxString> GateRows::Texts() const {
    std::vector<wxString> texts;
    for (const NumberField* field : Positions) {
        texts.push_back(field->GetValue());
    }
    return texts;
}

void GateRows::SetTexts(const std::vector<wxString>& texts) {
    for (size_t row = 0; row < std::min(texts.size(), Positions.size()); ++row) {
        Positions[row]->ChangeValue(texts[row]);
    }
    Changed();
}

} // namespace orvane
