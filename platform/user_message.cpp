#include "platform/user_message.h"

#include "platform/main_thread_box.h"

#include <wx/app.h>
#include <wx/msgout.h>
#include <wx/thread.h>
#include <wx/utils.h>

#include <cstdarg>

namespace orvane {

namespace {

bool HostHasGui() {
    const wxAppConsole* host = wxAppConsole::GetInstance();
    return host != nullptr && host->IsGUI();
}

/// Shows a message of a host without GUI: on standard error, unless the host has set another
/// output.
void WriteToMessageOutput(const wxString& text) {
    wxMessageOutput* const output = wxMessageOutput::Get();
    if (output != nullptr) {
        output->Output(text);
    } else {
        wxMessageOutputStderr().Output(text); // The toolkit is not initialised.
    }
}

} // namespace

void ShowUserMessage(const wchar_t* format, ...) {
    wxString text;
    va_list arguments;
    va_start(arguments, format);
    text.PrintfV(format, arguments);
    va_end(arguments);
    if (!HostHasGui()) {
        WriteToMessageOutput(text);
    } else if (wxIsMainThread()) {
        platform::ShowBox(text);
    } else if (!platform::ShowBoxOnMainThread(text)) {
        wxMessageOutputStderr().Output(text);
    }
}

void platform::RingBell() {
    if (HostHasGui() && wxIsMainThread()) {
        wxBell();
    } else {
        wxMessageOutputStderr().Output(wxS("\a"));
    }
}

} // namespace orvane
