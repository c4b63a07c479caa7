#include "platform/user_message.h"

#include "platform/main_thread_box.h"

#include <wx/app.h>
#include <wx/msgout.h>
#include <wx/thread.h>
#include <wx/utils.h>

#include <cstdarg>

namespace {

bool HostHasGui() {
    const wxAppConsole* host = wxAppConsole::GetInstance();
    return host != nullptr && host->IsGUI();
}

void WriteToStandardError(const wxString& text) {
    wxMessageOutputStderr().Output(text);
}

} // namespace

void ShowUserMessage(const wchar_t* format, ...) {
    wxString text;
    va_list arguments;
    va_start(arguments, format);
    text.PrintfV(format, arguments);
    va_end(arguments);
    if (HostHasGui() && wxIsMainThread()) {
        platform::ShowBox(text);
    } else if (!HostHasGui() || !platform::ShowBoxOnMainThread(text)) {
        WriteToStandardError(text);
    }
}

void platform::RingBell() {
    if (HostHasGui() && wxIsMainThread()) {
        wxBell();
    } else {
        WriteToStandardError(wxS("\a"));
    }
}
