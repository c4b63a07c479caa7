#include "hosts/panel/driver_messages.h"

#include <wx/msgdlg.h>

#include <algorithm>

namespace orvane {

namespace {

/// The driver's boxes have the toolkit's default title, unlike those of the window, one button, and
/// the toolkit's default icon.
bool IsOfDriver(const wxMessageDialog& box) {
    return box.GetCaption() == wxMessageBoxCaptionStr &&
           box.GetMessageDialogStyle() == (wxOK | wxCENTRE | wxICON_INFORMATION);
}

} // namespace

int DriverMessages::Enter(wxDialog* dialog) {
    const auto* box = dynamic_cast<wxMessageDialog*>(dialog);
    if (box == nullptr || !IsOfDriver(*box)) {
        return wxID_NONE;
    }
    const wxString text = box->GetMessage();
    if (std::ranges::find(Texts, text) == Texts.end()) {
        Texts.push_back(text);
    }
    if (Added) {
        Added();
    }
    return wxID_OK;
}

} // namespace orvane
