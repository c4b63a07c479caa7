#include "hosts/panel/breath_table.h"

#include "hosts/panel/panel_text.h"
#include "hosts/session/number_text.h"
#include "hosts/session/translation.h"

#include <wx/intl.h>

#include <algorithm>
#include <functional>

namespace orvane {

namespace {

constexpr int fixedColumns = 2;
constexpr double percent = 100.0;

/// A row of the table.
struct Figure {
    wxString Name;
    std::string Unit;
    int Decimals;
    std::function<double(const ForcedBreath&)> Of;
    std::optional<double> Best;
};

std::vector<Figure> FiguresOf(const std::optional<BreathSummary>& best, const BreathUnits& units) {
    const auto of = [&](double BreathSummary::*member) {
        return best ? std::optional((*best).*member) : std::nullopt;
    };
    const auto ratio = [](double fev1, double fvc) { return fvc > 0.0 ? percent * fev1 / fvc : 0; };
    return {{_("FVC"), units.Volume, 2, &ForcedBreath::Fvc, of(&BreathSummary::Fvc)},
            {_("FEV1"), units.Volume, 2, &ForcedBreath::Fev1, of(&BreathSummary::Fev1)},
            {_("FEV1/FVC"), "%", 1,
             [=](const ForcedBreath& one) { return ratio(one.Fev1, one.Fvc); },
             best ? std::optional(ratio(best->Fev1, best->Fvc)) : std::nullopt},
            {_("PEF"), units.Flow, 2, &ForcedBreath::Pef, of(&BreathSummary::Pef)},
            {_("Back-extrapolated"), units.Volume, 2, &ForcedBreath::BackVolume, std::nullopt},
            {_("Its limit"), units.Volume, 2, BackVolumeLimit, std::nullopt}};
}

wxString Told(double value, int decimals) {
    return LocalNumbers(FixedText(value, decimals));
}

std::string Litres(double value) {
    return Told(value, 2).utf8_string();
}

wxString Verdict(bool good) {
    return wxString(wxUniChar(good ? 0x2713 : 0x25b2)) + " ";
}

} // namespace

BreathTable::BreathTable(wxWindow* parent)
    : wxListView(parent, wxID_ANY, wxDefaultPosition, parent->FromDIP(wxSize(-1, 176)),
                 wxLC_REPORT | wxLC_SINGLE_SEL) {
    SetName(_("Figures"));
    SetToolTip(_("The flow comes every 25 ms: a peak between two readings is up to 5 % low."));
    MakeColumns(0);
}

void BreathTable::MakeColumns(size_t manoeuvres) {
    constexpr int width = 58;
    DeleteAllItems();
    DeleteAllColumns();
    AppendColumn("", wxLIST_FORMAT_LEFT, FromDIP(140));
    AppendColumn("", wxLIST_FORMAT_LEFT, FromDIP(44));
    for (size_t i = 0; i < manoeuvres; ++i) {
        AppendColumn(wxString::Format("%zu", i + 1), wxLIST_FORMAT_RIGHT, FromDIP(width));
    }
    AppendColumn(_("Best"), wxLIST_FORMAT_RIGHT, FromDIP(width));
}

void BreathTable::Show(const std::vector<Manoeuvre>& list, const BreathUnits& units) {
    if (GetColumnCount() != static_cast<int>(list.size()) + fixedColumns + 1) {
        MakeColumns(list.size());
    }
    const std::vector<Figure> figures = FiguresOf(SummaryOf(list), units);
    for (size_t i = 0; i < figures.size(); ++i) {
        const Figure& figure = figures[i];
        const auto row = static_cast<long>(i);
        if (row >= GetItemCount()) {
            InsertItem(row, figure.Name);
        }
        SetItem(row, 1, FromUtf8(figure.Unit));
        int column = fixedColumns;
        for (const Manoeuvre& manoeuvre : list) {
            SetItem(row, column++, Told(figure.Of(manoeuvre.Breath), figure.Decimals));
        }
        SetItem(row, column, figure.Best ? Told(*figure.Best, figure.Decimals) : wxString());
    }
}

wxString Judgement(const std::vector<Manoeuvre>& list) {
    const auto summary = SummaryOf(list);
    if (!summary) {
        return _("Press Start, and breathe out hard.");
    }
    wxString text;
    if (summary->FvcApart) {
        const double apart = std::max(*summary->FvcApart, *summary->Fev1Apart);
        text =
            Verdict(apart <= repeatableWithin) +
            FromUtf8(Translated("The two largest FVC differ by %s L, FEV1 by %s L (%s L allowed).",
                                {Litres(*summary->FvcApart), Litres(*summary->Fev1Apart),
                                 Litres(repeatableWithin)}));
    } else {
        text = Verdict(false) + _("One manoeuvre: whether it repeats is not known.");
    }
    text += "\n" + Verdict(summary->StartsWell);
    text += summary->StartsWell
                ? _("Back-extrapolated volumes are within 5 % of FVC or 0.10 L.")
                : _("A back-extrapolated volume is above 5 % of FVC and 0.10 L: a slow start.");
    return text;
}

} // namespace orvane
