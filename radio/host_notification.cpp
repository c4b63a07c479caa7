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
    // The host may unload the driver while the event is pending. A host without windows would lose
    // the toolkit's GUI library with it, which the event's class lies in.
    platform::KeepLoaded(&wxEVT_MENU);
    wxCommandEvent event(wxEVT_MENU, RadioEventId);
    // NOLINTNEXTLINE(performance-no-int-to-ptr): the number is what is told, nobody follows it.
    event.SetClientData(reinterpret_cast<void*>(std::uintptr_t{started}));
    target->AddPendingEvent(event);
} catch (const std::bad_alloc&) {
    // A start or a stop doesn't fail for want of the memory to tell of it.
}

} // namespace orvane
