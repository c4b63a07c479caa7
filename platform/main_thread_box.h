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
/// Can't deadlock with a main thread that waits for the caller: a text that the main thread doesn't
/// take within 1 s is withdrawn, and the call returns if that thread stops handling events while
/// the box is open. After the first call the driver library stays loaded, because the main thread
/// may still be in its code when the call returns.
/// \return false if the text was not taken and won't be shown
bool ShowBoxOnMainThread(const wxString& text);

} // namespace orvane::platform
