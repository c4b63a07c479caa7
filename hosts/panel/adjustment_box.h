#pragma once

#include "hosts/panel/driver_access.h"
#include "hosts/panel/form.h"
#include "hosts/session/adjustment.h"

#include <wx/button.h>
#include <wx/statbmp.h>

namespace orvane {

/// The adjustment of a channel's adapter: what it is at, its state, and a value for it. Hidden
/// where there is nothing to adjust.
class AdjustmentBox : public wxPanel {
public:
    AdjustmentBox(wxWindow* parent, DriverAccess& access);

    void ShowChannel(int channel);
    /// Asks the console again. The driver is not busy.
    void Refresh();
    /// Whether something can be set now.
    void Allow(bool allowed);

    NumberField* Value;
    wxButton* Set;
    wxStaticText* State;

private:
    void SetNow();
    void ShowPicture();

    DriverAccess& Access;
    AdjustmentInfo Info;
    int Channel = -1;
    bool IsBeingSet = false;
    wxStaticText* Title;
    wxStaticBitmap* Picture;
};

} // namespace orvane
