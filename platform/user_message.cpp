#include "platform/user_message.h"

#include <wx/app.h>
#include <wx/msgdlg.h>
#include <wx/msgout.h>
#include <wx/utils.h>

#include <cstdarg>

namespace {

bool HostHasGui() {
    const wxAppConsole* host = wxAppConsole::GetInstance();
    return host != nullptr && host->IsGUI();
}

/// Where a host without GUI is told things: standard error, unless the host chose otherwise.
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
    if (HostHasGui()) {
        wxMessageBox(text, wxMessageBoxCaptionStr, wxOK | wxCENTRE);
    } else {
        WriteToMessageOutput(text);
    }
}

void platform::RingBell() {
    if (HostHasGui()) {
        wxBell();
    } else {
        wxMessageOutputStderr().Output(wxS("\a"));
    }
}
