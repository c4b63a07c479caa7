#include "radio/host_notification.h"

#include "platform/keep_loaded.h"
#include "radio_exports.h"

#include <wx/app.h>
#include <wx/event.h>
#include <wx/window.h>

#include <new>

namespace orvane {

namespace {

/// The top window, which only an application object with a GUI can have, or that object itself.
wxEvtHandler* HostTarget() {
    const wxAppBase* gui = wxAppBase::GetGUIInstance();
    wxEvtHandler* window = gui != nullptr ? gui->GetTopWindow() : nullptr;
    return window != nullptr ? window : wxAppConsole::GetInstance();
}

} // namespace

void NotifyHostOfRadio(bool started) try {
    wxEvtHandler* target = HostTarget();
    if (target == nullptr) {
        return;
    }
    // The host may unload the driver while the event is pending. In a host without windows, that
    // would also unload the toolkit's GUI library, which contains the event's class.
    platform::KeepLoaded(&wxEVT_MENU);
    wxCommandEvent event(wxEVT_MENU, RadioEventId);
    // NOLINTNEXTLINE(performance-no-int-to-ptr): a number, which nobody dereferences.
    event.SetClientData(reinterpret_cast<void*>(std::uintptr_t{started}));
    target->AddPendingEvent(event);
} catch (const std::bad_alloc&) {
    // A start or stop doesn't fail because there is no memory for the event.
}

} // namespace orvane
