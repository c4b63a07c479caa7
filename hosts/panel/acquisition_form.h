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

/// What a buffered acquisition is asked for with, and how far it has come.
class AcquisitionForm : public wxPanel {
public:
    explicit AcquisitionForm(wxWindow* parent);

    /// Offers other channels for the trigger.
    void ShowChannels(const std::vector<ChannelInfo>& channels);
    /// The acquisition as the fields tell it, without its channels. Throws HostError about a field
    /// that cannot be read.
    AcquisitionRequest Request() const;
    void ShowProgress(size_t points, size_t all);
    void ShowStatus(const wxString& text);
    /// Locks the fields while a run goes on.
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
