#include "hosts/panel/saving.h"

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
void SaveAs(wxWindow* parent, const wxString& title, const wxString& name, const wxString& kinds,
            const Write& write) {
    wxFileDialog dialog(parent, title, "", name, kinds, wxFD_SAVE | wxFD_OVERWRITE_PROMPT);
    if (dialog.ShowModal() != wxID_OK) {
        return;
    }
    try {
        const wxBusyCursor busy;
        write(dialog.GetPath().utf8_string());
    } catch (const HostError& error) {
        ShowError(parent, error.what());
    }
}

} // namespace

void ShowError(wxWindow* parent, const std::string& sentence) {
    wxMessageBox(FromUtf8(sentence), "Orvane", wxOK | wxICON_ERROR, parent);
}

void SaveSamplesAs(wxWindow* parent, const ShownRun& run) {
    const auto write = [&](const std::string& name) {
        PendingFile file(name);
        const AcquisitionRecording& recording = run.Followed.Recording;
        SaveCsv(file, run.Channels, PointTimes(recording), KeptSamples(recording));
    };
    SaveAs(parent, _("Save samples"), "acquisition.csv", _("CSV files") + "|*.csv", write);
}

void SavePictureAs(wxWindow* parent, const ShownRun& run, std::optional<AxisRange> zoom) {
    const auto write = [&](const std::string& name) {
        CheckChartFile(name);
        constexpr size_t steps = 1600;
        PendingFile file(name);
        SaveChart(PictureOf(run, zoom, steps), file);
    };
    SaveAs(parent, _("Save picture"), "acquisition.png", _("PNG and SVG files") + "|*.png;*.svg",
           write);
}

} // namespace orvane
