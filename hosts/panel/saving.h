#pragma once

#include "hosts/panel/curves.h"
#include "hosts/session/csv_file.h"

#include <wx/window.h>

namespace orvane {

/// Shows an error in a message box.
void ShowError(wxWindow* parent, const std::string& sentence);

/// About how many pixels wide the charts of files are.
constexpr size_t stepsOfFile = 1600;

/// \name Saving
/// Each asks for the file and reports if it cannot be written. False: nothing was saved.
/// @{

/// Saves the samples of a run that has ended as a file of comma-separated values, with its notes.
bool SaveSamplesAs(wxWindow* parent, const ShownRun& run);
/// Saves columns of numbers as a file of comma-separated values.
bool SaveColumnsAs(wxWindow* parent, const wxString& name, const std::vector<CsvColumn>& columns);
/// Saves charts as a picture, beside each other and of this size each.
bool SaveChartsAs(wxWindow* parent, const wxString& name, std::vector<Chart> row,
                  const wxSize& size);
/// Saves a chart as a picture.
bool SaveChartAs(wxWindow* parent, const Chart& chart);

/// @}

} // namespace orvane
