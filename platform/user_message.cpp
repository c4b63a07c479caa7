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
    if (HostHasGui()) {
        wxMessageBox(text, wxMessageBoxCaptionStr, wxOK | wxCENTRE);
    } else {
        WriteToStandardError(text);
    }
}

void platform::RingBell() {
    if (HostHasGui()) {
        wxBell();
    } else {
        WriteToStandardError(wxS("\a"));
    }
}
