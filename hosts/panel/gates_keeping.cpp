// What the page of the gates saves, remembers, and shows fork by fork.

#include "hosts/panel/gates_page.h"
#include "hosts/panel/panel_text.h"
#include "hosts/panel/saving.h"
#include "hosts/panel/swatch.h"
#include "hosts/plot/gate_charts.h"
#include "hosts/session/number_text.h"

#include <wx/confbase.h>
#include <wx/intl.h>

#include <array>

namespace orvane {

namespace {

/// Of a scenario or of the console itself.
wxString PositionKey(const DriverOptions& options, size_t row) {
    wxString key = FromUtf8(options.Scenario);
    key.Replace("/", "_");
    return wxString::Format("Position%s/%zu", key.empty() ? key : "-" + key, row);
}

wxString Milliseconds(double seconds) {
    constexpr double msPerSecond = 1e3;
    constexpr int decimals = 4;
    return LocalNumbers(FixedText(seconds * msPerSecond, decimals));
}

wxString Optional(const std::optional<double>& value, int decimals) {
    return value ? LocalNumbers(FixedText(*value, decimals)) : wxString();
}

} // namespace

void GatesPage::ShowForks() {
    Forks->DeleteAllItems();
    if (Forks->GetColumnCount() == 0) {
        Forks->AppendColumn(_("Fork"), wxLIST_FORMAT_LEFT, FromDIP(100));
        for (const wxString& title :
             {_("first (ms)"), _("second (ms)"), wxString::FromUTF8("Δt (ms)"), _("mid-time (ms)"),
              wxString("v (m/s)")}) {
            Forks->AppendColumn(title, wxLIST_FORMAT_RIGHT, FromDIP(122));
        }
        Forks->AppendColumn(_("g from the one before") + wxString::FromUTF8(" (m/s²)"),
                            wxLIST_FORMAT_RIGHT, FromDIP(195));
    }
    const GateFall* fall = ShownFall();
    if (fall == nullptr) {
        return;
    }
    Forks->AssignImageList(
        SwatchList(*this, fall->Forks.size(), [](size_t) { return Dash::Solid; }),
        wxIMAGE_LIST_SMALL);
    for (size_t i = 0; i < fall->Forks.size(); ++i) {
        const ForkPassage& fork = fall->Forks[i];
        const long row =
            Forks->InsertItem(static_cast<long>(i), wxString::Format(_("Fork %u"), unsigned(i + 1)),
                              static_cast<int>(i));
        int column = 1;
        for (const wxString& text :
             {Milliseconds(fork.FirstSec), Milliseconds(fork.SecondSec),
              Milliseconds(fork.SecondSec - fork.FirstSec), Milliseconds(fork.MidSec),
              Optional(fork.Speed, 4), Optional(fork.Acceleration, 3)}) {
            Forks->SetItem(row, column++, text);
        }
    }
}

void GatesPage::SaveSamples() {
    std::array<std::vector<double>, 4> values;
    for (size_t i = 0; i < Runs.size(); ++i) {
        const GateFall& fall = Runs[i].Fall;
        for (size_t gate = 0; gate < fall.TimesSec.size(); ++gate) {
            values[0].push_back(static_cast<double>(i + 1));
            values[1].push_back(static_cast<double>(gate));
            values[2].push_back(fall.TimesSec[gate]);
        }
        values[3].insert(values[3].end(), fall.Positions.begin(), fall.Positions.end());
    }
    std::vector<CsvColumn> columns{{_("run").utf8_string(), values[0]},
                                   {_("gate").utf8_string(), values[1]},
                                   {_("time after the door (s)").utf8_string(), values[2]}};
    if (values[3].size() == values[2].size()) {
        columns.push_back({_("position below the door (m)").utf8_string(), values[3]});
    }
    if (SaveColumnsAs(this, "gates.csv", columns)) {
        Unsaved = false;
        StateChanged();
    }
}

void GatesPage::SavePicture() {
    constexpr int width = 560;
    constexpr int height = 480;
    std::vector<Chart> row{Passages()};
    if (ShownFall()->Line) {
        row.push_back(Speeds());
        row.push_back(Positions());
    }
    SaveChartsAs(this, "gates.png", std::move(row), wxSize(width, height));
}

void GatesPage::Keep(wxConfigBase& config) const {
    const std::vector<wxString> texts = Fields->Rows->Texts();
    for (size_t row = 0; row < texts.size(); ++row) {
        config.Write(PositionKey(Access.Options, row), texts[row]);
    }
}

void GatesPage::Restore(const wxConfigBase& config) {
    std::vector<wxString> texts = Fields->Rows->Texts();
    for (size_t row = 0; row < texts.size(); ++row) {
        texts[row] = config.Read(PositionKey(Access.Options, row), texts[row]);
    }
    Fields->Rows->SetTexts(texts);
}

} // namespace orvane
