#pragma once

#include "hosts/panel/curves.h"

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
/// Saves a chart as a picture.
bool SaveChartAs(wxWindow* parent, const Chart& chart);

/// @}

} // namespace orvane
