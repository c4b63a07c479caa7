#pragma once

#include <wx/modalhook.h>
#include <wx/string.h>

#include <functional>
#include <vector>

namespace orvane {

/// Intercepts the driver's message boxes during its lifetime, so that none blocks the window or
/// appears before it. The window's own boxes are not intercepted.
class DriverMessages : public wxModalDialogHook {
public:
    DriverMessages() {
        Register();
    }

    /// Those that the user has not dismissed, each text once, the oldest first.
    std::vector<wxString> Texts;
    /// Called on the toolkit's main thread, inside the driver's call, after each message.
    std::function<void()> Added;

protected:
    int Enter(wxDialog* dialog) override;
};

} // namespace orvane
