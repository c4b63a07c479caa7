#include "hosts/panel/spirometer_form.h"

#include "hosts/panel/panel_text.h"
#include "hosts/panel/swatch.h"
#include "hosts/session/number_text.h"
#include "hosts/session/translation.h"

#include <wx/intl.h>

#include <array>
#include <cmath>

namespace orvane {

namespace {

constexpr int flowDecimals = 2;

wxString KeptText(const Manoeuvre& manoeuvre, bool best) {
    if (!manoeuvre.Kept) {
        return _("not kept");
    }
    return best ? _("kept, best") : _("kept");
}

} // namespace

SpirometerForm::SpirometerForm(wxWindow* parent) : Form(parent) {
    BuildTurbine();
    BuildMeasure();
    BuildManoeuvres();
}

void SpirometerForm::BuildTurbine() {
    AddGroup(_("Turbine"));
    Connector = new wxStaticText(this, wxID_ANY, "");
    Flow = new wxStaticText(this, wxID_ANY, "");
    Flow->SetFont(Flow->GetFont().Bold());
    Breathes = new wxStaticText(this, wxID_ANY, "");
    AddRow(_("Connector"), Connector);
    AddRow(_("Flow now"), Flow);
    AddRow(_("Breathes"), Breathes);
}

void SpirometerForm::BuildMeasure() {
    constexpr int shortest = 5;
    constexpr int longest = 600;
    constexpr int usual = 60;
    AddGroup(_("Measure"));
    Start = new wxButton(this, wxID_ANY, _("St&art"));
    Stop = new wxButton(this, wxID_ANY, _("S&top"));
    AddPair(Start, Stop);
    Length = new wxSpinCtrl(this, wxID_ANY, "", wxDefaultPosition, wxDefaultSize,
                            wxSP_ARROW_KEYS | wxALIGN_RIGHT, shortest, longest, usual);
    AddRow(_("&Length"), Length, new wxStaticText(this, wxID_ANY, "s"));
    Zero = new wxButton(this, wxID_ANY, _("Set to &zero"));
    AddRow(_("Volume zero"), Zero);
    Zero->SetName(_("Set the volume to zero"));
}

void SpirometerForm::BuildManoeuvres() {
    AddGroup(_("Manoeuvre"));
    const std::array<wxString, 4> steps{
        _("Start. Breathe quietly, three breaths."), _("Breathe in as deeply as you can."),
        _("Breathe out hard, fast, as long as you can."), _("Breathe in deeply. Stop.")};
    constexpr size_t important = 2;
    for (size_t i = 0; i < steps.size(); ++i) {
        auto* step =
            new wxStaticText(this, wxID_ANY, wxString::Format("%zu. ", i + 1) + steps.at(i));
        step->SetFont(i == important ? step->GetFont().Bold() : step->GetFont());
        AddWide(step);
    }
    AddNote(_("Forced breaths are found in the curve: at their peak within 0.25 s, and a second "
              "long at least."));
    AddGroup(_("Manoeuvres"));
    Manoeuvres = new wxListView(this, wxID_ANY, wxDefaultPosition, FromDIP(wxSize(-1, 110)),
                                wxLC_REPORT | wxLC_SINGLE_SEL);
    Manoeuvres->EnableCheckBoxes();
    Manoeuvres->SetName(_("Manoeuvres"));
    Manoeuvres->AppendColumn(_("Number"), wxLIST_FORMAT_LEFT, FromDIP(96));
    Manoeuvres->AppendColumn(_("at"), wxLIST_FORMAT_LEFT, FromDIP(90));
    Manoeuvres->AppendColumn("", wxLIST_FORMAT_LEFT, FromDIP(130));
    AddWide(Manoeuvres, 1);
    for (const auto& type : {wxEVT_LIST_ITEM_CHECKED, wxEVT_LIST_ITEM_UNCHECKED}) {
        Manoeuvres->Bind(type, [this](wxListEvent& event) {
            if (!Filling) {
                Keeps(static_cast<size_t>(event.GetIndex()),
                      Manoeuvres->IsItemChecked(event.GetIndex()));
            }
        });
    }
}

void SpirometerForm::ShowTurbine(const ChannelInfo* turbine) {
    Connector->SetLabel(
        turbine == nullptr
            ? wxString()
            : FromUtf8(Translated("%s, reference %s", {std::to_string(turbine->Connector),
                                                       std::to_string(turbine->Reference)})));
    Layout();
}

void SpirometerForm::ShowFlow(std::optional<double> flow, const std::string& unit) {
    constexpr double still = 0.02; // L/s
    wxString text;
    wxString way = wxString::FromUTF8("–");
    if (flow) {
        const std::string sign = *flow <= -0.005 ? "\u2212" : "";
        text = LocalNumbers(sign + FixedText(std::abs(*flow), flowDecimals)) + " " + FromUtf8(unit);
        way = *flow > still ? _("breathes out") : *flow < -still ? _("breathes in") : way;
    }
    if (Flow->GetLabel() != text) {
        Flow->SetLabel(text);
    }
    if (Breathes->GetLabel() != way) {
        Breathes->SetLabel(way);
    }
}

void SpirometerForm::ShowManoeuvres(const std::vector<Manoeuvre>& list) {
    Filling = true;
    const auto summary = SummaryOf(list);
    if (static_cast<size_t>(Manoeuvres->GetItemCount()) != list.size()) {
        Manoeuvres->DeleteAllItems();
        Manoeuvres->AssignImageList(SwatchList(*this, list.size(), DashOfManoeuvre),
                                    wxIMAGE_LIST_SMALL);
        for (size_t i = 0; i < list.size(); ++i) {
            Manoeuvres->InsertItem(static_cast<long>(i), wxString::Format("%zu", i + 1),
                                   static_cast<int>(i));
        }
    }
    for (size_t i = 0; i < list.size(); ++i) {
        const auto row = static_cast<long>(i);
        Manoeuvres->SetItem(row, 1, FromUtf8(list[i].At));
        Manoeuvres->SetItem(row, 2, KeptText(list[i], summary && summary->Best == i));
        Manoeuvres->CheckItem(row, list[i].Kept);
    }
    Filling = false;
}

void SpirometerForm::EnableFor(bool recording, bool canStart) {
    Start->Enable(canStart);
    Stop->Enable(recording);
    Zero->Enable(recording);
    Length->Enable(!recording);
}

} // namespace orvane
