#pragma once

#include "hosts/panel/form.h"
#include "hosts/plot/run_picture.h"
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
    int Time = 0;
    bool WholeRange = false;
    bool OneLaneEach = false;
};

/// What a console allows.
struct AcquisitionLimits {
    double ShortestSec = 0.0; ///< For the channels that are checked.
    double LongestSec = 0.0;
    size_t PreTriggerPoints = 0; ///< 0: it has none.
};

/// The settings of a buffered acquisition and of its view.
class AcquisitionForm : public Form {
public:
    AcquisitionForm(wxWindow* parent, wxWindow* table);

    /// Offers these channels for the trigger.
    void ShowChannels(const std::vector<ChannelInfo>& channels);
    void ShowLimits(const AcquisitionLimits& limits);
    /// The acquisition that the fields describe, without its channels. Nothing if one is wrong: it
    /// says so and has the focus.
    std::optional<AcquisitionRequest> Request();
    AcquisitionFields Fields() const;
    void SetFields(const AcquisitionFields& fields);
    /// Locks the fields during a run.
    void SetRunActive(bool active);
    /// \param level in the unit of the channel
    void SetLevel(double level);
    /// The level in the unit of its channel, if the run is to wait for one.
    std::optional<double> Level() const;
    void ShowAppliedPeriod(double periodSec);
    LaneView View() const;
    /// The time that a view of a run that goes on shows, up to the newest point; nothing: all.
    std::optional<double> RolledSec() const;

    std::function<void()> ViewChanged = [] {};
    std::function<void()> TriggerChanged = [] {};

    FieldMessage* ChannelsMessage;
    NumberField* Period;
    wxStaticText* Applied;
    wxSpinCtrl* Points;
    FieldMessage* PointsMessage;
    NumberField* Duration;
    wxCheckBox* Trigger;
    wxChoice* TriggerChannel;
    wxChoice* TriggerEdge;
    NumberField* TriggerLevel;
    wxStaticText* LevelUnit;
    wxCheckBox* PreTrigger;
    wxChoice* Time;
    wxChoice* Axes;
    wxChoice* Lanes;

private:
    void BuildSampling();
    void BuildTrigger();
    void BuildView();
    wxChoice* AddChoice(const wxString& label, const wxArrayString& choices);
    void EnableFields();
    void ShowDuration();
    void ShowLevelLimits();

    bool RunActive = false;
    size_t PreTriggerPoints = 0;
    std::vector<ChannelInfo> Channels;
};

} // namespace orvane
