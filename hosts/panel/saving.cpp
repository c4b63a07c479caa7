#include "hosts/panel/saving.h"

#include "hosts/panel/habits.h"
#include "hosts/panel/panel_text.h"
#include "hosts/plot/chart_drawing.h"
#include "hosts/plot/run_picture.h"
#include "hosts/session/host_error.h"

#include <wx/filedlg.h>
#include <wx/intl.h>
#include <wx/msgdlg.h>
#include <wx/utils.h>

namespace orvane {

namespace {

/// Asks for a file and has it written.
template <class Write>
bool SaveAs(wxWindow* parent, const wxString& title, const wxString& name, const wxString& kinds,
            const Write& write) {
    wxFileDialog dialog(parent, title, Habit(habit_key::Folder), name, kinds,
                        wxFD_SAVE | wxFD_OVERWRITE_PROMPT);
    if (dialog.ShowModal() != wxID_OK) {
        return false;
    }
    try {
        const wxBusyCursor busy;
        write(dialog.GetPath().utf8_string());
        NoteRecentFile(dialog.GetPath());
        return true;
    } catch (const HostError& error) {
        ShowError(parent, error.what());
        return false;
    }
}

} // namespace

void ShowError(wxWindow* parent, const std::string& sentence) {
    wxMessageBox(FromUtf8(sentence), "Orvane", wxOK | wxICON_ERROR, parent);
}

bool SaveSamplesAs(wxWindow* parent, const ShownRun& run) {
    const auto write = [&](const std::string& name) {
        PendingFile file(name);
        const AcquisitionRecording& recording = run.Followed.Recording;
        SaveCsv(file, run.Channels, PointTimes(recording), KeptSamples(recording));
    };
    return SaveAs(parent, _("Save samples"), "acquisition.csv", _("CSV files") + "|*.csv", write);
}

bool SaveColumnsAs(wxWindow* parent, const wxString& name, const std::vector<CsvColumn>& columns) {
    const auto write = [&](const std::string& path) {
        PendingFile file(path);
        WriteTitles(file, columns);
        WriteRows(file, columns);
        Publish(file);
    };
    return SaveAs(parent, _("Save samples"), name, _("CSV files") + "|*.csv", write);
}

bool SaveChartsAs(wxWindow* parent, const wxString& name, std::vector<Chart> row,
                  const wxSize& size) {
    constexpr double scale = 1.6;
    for (Chart& chart : row) {
        chart.Scale = scale;
        chart.Width = static_cast<int>(size.x * scale);
        chart.Height = static_cast<int>(size.y * scale);
        UseDecimalPoint(chart, DecimalPoint());
    }
    const auto write = [&](const std::string& path) {
        CheckChartFile(path);
        PendingFile file(path);
        SaveRow(row, file);
    };
    return SaveAs(parent, _("Save picture"), name, _("PNG and SVG files") + "|*.png;*.svg", write);
}

bool SaveChartAs(wxWindow* parent, const Chart& chart) {
    const auto write = [&](const std::string& name) {
        CheckChartFile(name);
        PendingFile file(name);
        SaveChart(chart, file);
    };
    return SaveAs(parent, _("Save picture"), "acquisition.png",
                  _("PNG and SVG files") + "|*.png;*.svg", write);
}

} // namespace orvane
