#pragma once

/// \file
/// Message boxes, which only the toolkit's main thread may open.

#include <wx/string.h>

namespace orvane::platform {

/// Shows a text in a message box and blocks until the user closes it. Main thread.
void ShowBox(const wxString& text);

/// Asks the main thread to show a text in a message box, and waits until the user closes it. Any
/// other thread.
///
/// Never waits for a main thread that waits for the caller: one that doesn't take the text within
/// 1 s isn't left with it, and one that stops handling events while the box is open is no longer
/// waited for. From the first call on the driver library stays in the process, because the main
/// thread may be on its way out of it when the caller is told.
/// \return false if the text was not taken and won't be shown
bool ShowBoxOnMainThread(const wxString& text);

} // namespace orvane::platform
