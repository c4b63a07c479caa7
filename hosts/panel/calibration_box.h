#pragma once

#include "hosts/panel/driver_access.h"
#include "hosts/panel/form.h"

#include <wx/button.h>
#include <wx/listctrl.h>
#include <wx/spinctrl.h>

#include <array>

namespace orvane {

/// The calibration of a channel, step by step. Nothing comes back from the console: readings from
/// before and after stand beside each point.
class CalibrationBox : public wxPanel {
public:
    CalibrationBox(wxWindow* parent, DriverAccess& access);

    /// \param channel as the console delivers it; another one than before begins anew
    void ShowChannel(const ChannelInfo& channel);
    /// Between its start and its end.
    bool IsActive() const {
        return Active;
    }
    /// The step that is next, and how many there are, from 1.
    size_t Step() const {
        return Active ? Points.size() + 2 : 1;
    }
    size_t Steps() const {
        return Points.size() + 3;
    }
    /// The reading without scale, now.
    void ShowReading(double value);
    void Allow(bool allowed);
    /// Has the console drop what was begun. Waits for a call in the background.
    void GiveUpNow();

    wxListView* List;
    wxSpinCtrl* Point;
    NumberField* Value;
    wxButton* Start;
    wxButton* Take;
    wxButton* Factory;
    wxButton* GiveUp;
    wxButton* Done;
    /// It began or ended: what is shown of the channel changes between its own and the user's
    /// scale.
    std::function<void()> Changed = [] {};

private:
    struct TakenPoint {
        int Number = 0;
        double Written = 0.0;
        double Before = 0.0;
        std::optional<double> After;
    };

    using Row = std::array<wxString, 3>; ///< Sign, step, reading.

    void BuildRow(wxSizer* whole);
    void Begin();
    void TakePoint();
    void RestoreFactory();
    void End();
    void Call(std::function<void(const DriverExports&)> call, std::function<void()> done);
    void Drop();
    std::vector<Row> Rows() const;
    void ShowSteps();
    void EnableButtons();
    wxString Reading(double value) const;

    DriverAccess& Access;
    ChannelInfo Channel;
    bool Active = false;
    bool Allowed = true;
    wxString BegunAt;
    std::vector<TakenPoint> Points;
    std::optional<double> Now;
    wxStaticText* Title;
    wxStaticText* UnitText;
};

} // namespace orvane
