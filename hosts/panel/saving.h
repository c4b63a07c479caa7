#pragma once

#include "hosts/panel/curves.h"

namespace orvane {

/// Shows an error in a message box.
void ShowError(wxWindow* parent, const std::string& sentence);

/// \name Saving a run that has ended
/// Each asks for the file and reports if it cannot be written.
/// @{

/// Saves the samples as a file of comma-separated values.
void SaveSamplesAs(wxWindow* parent, const ShownRun& run);
/// Saves a picture of all of the run, or of the stretch that the zoom shows.
void SavePictureAs(wxWindow* parent, const ShownRun& run, std::optional<AxisRange> zoom);

/// @}

} // namespace orvane
