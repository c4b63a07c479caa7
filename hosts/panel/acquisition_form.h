#pragma once

#include "hosts/panel/form.h"
#include "hosts/session/acquisition_request.h"

#include <wx/checkbox.h>
#include <wx/choice.h>
#include <wx/spinctrl.h>

namespace orvane {

/// What stands in the fields of an acquisition.
struct AcquisitionFields {
    wxString Period = "1 ms";
    int Points = 1000;
    bool Triggered = false;
    int TriggerChannel = 0;
    bool Rising = true;
    wxString Level = "0";
    bool PreTrigger = false;
    bool OneLaneEach = false;
};

/// The settings of a buffered acquisition and of its view.
class AcquisitionForm : public Form {
public:
    AcquisitionForm(wxWindow* parent, wxWindow* table);

    /// Offers these channels for the trigger.
    void ShowChannels(const std::vector<ChannelInfo>& channels);
    /// \param preTriggerPoints of the console; 0: it has none
    void ShowLimits(size_t preTriggerPoints);
    /// The acquisition that the fields describe, without its channels. Nothing if one is wrong: it
    /// says so and has the focus.
    std::optional<AcquisitionRequest> Request();
    AcquisitionFields Fields() const;
    void SetFields(const AcquisitionFields& fields);
    /// Locks the fields during a run.
    void SetRunActive(bool active);
    void SetLevel(double level, int decimals);
    void ShowAppliedPeriod(double periodSec);

    std::function<void()> ViewChanged = [] {};
    std::function<void()> TriggerChanged = [] {};

    NumberField* Period;
    wxStaticText* Applied;
    wxSpinCtrl* Points;
    NumberField* Duration;
    wxCheckBox* Trigger;
    wxChoice* TriggerChannel;
    wxChoice* TriggerEdge;
    NumberField* TriggerLevel;
    wxCheckBox* PreTrigger;
    wxChoice* Lanes;

private:
    void BuildSampling();
    void BuildTrigger();
    void EnableFields();
    void ShowDuration();

    bool RunActive = false;
    size_t PreTriggerPoints = 0;
};

} // namespace orvane
