#pragma once

#include "hosts/session/acquisition_request.h"

#include <wx/button.h>
#include <wx/checkbox.h>
#include <wx/choice.h>
#include <wx/gauge.h>
#include <wx/panel.h>
#include <wx/spinctrl.h>
#include <wx/stattext.h>
#include <wx/textctrl.h>

#include <functional>

namespace orvane {

/// The settings of a buffered acquisition, its buttons and its progress.
class AcquisitionForm : public wxPanel {
public:
    explicit AcquisitionForm(wxWindow* parent);

    /// Offers these channels for the trigger.
    void ShowChannels(const std::vector<ChannelInfo>& channels);
    /// The acquisition that the fields describe, without its channels. Throws HostError if a field
    /// is invalid.
    AcquisitionRequest Request() const;
    void ShowProgress(size_t points, size_t all);
    void ShowStatus(const wxString& text);
    /// Locks the fields during a run.
    void SetRunActive(bool active);

    std::function<void()> StartPressed;
    std::function<void()> StopPressed;

    wxTextCtrl* Period;
    wxSpinCtrl* Points;
    wxCheckBox* Trigger;
    wxChoice* TriggerChannel;
    wxChoice* TriggerEdge;
    wxTextCtrl* TriggerLevel;
    wxButton* Start;
    wxButton* Stop;
    wxGauge* Progress;
    wxStaticText* Status;

private:
    void Build();
    void EnableFields();

    bool RunActive = false;
};

} // namespace orvane
