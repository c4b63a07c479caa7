#pragma once

#include "hosts/panel/gate_rows.h"
#include "hosts/session/gate_motion.h"

#include <wx/button.h>
#include <wx/listctrl.h>
#include <wx/spinctrl.h>

#include <string>

namespace orvane {

/// A run that has ended.
struct TimedFall {
    std::string At; ///< The time of day.
    std::vector<double> RaysSec;
    std::vector<double> Positions; ///< m below the door; empty: not known.
    GateFall Fall;
};

/// The controls of the gates: their rows, the run, its result, the list of runs.
class GateForm : public Form {
public:
    GateForm(wxWindow* parent, const std::vector<GatePlace>& places);

    size_t GateCount() const {
        return 2 * static_cast<size_t>(Forks->GetValue());
    }
    void EnableFor(bool armed, bool canArm);
    /// Shows the result of a run and what all gave. \param shown its index
    void ShowResult(const std::vector<TimedFall>& runs, size_t shown);
    /// Shows the list, with a run selected.
    void ShowRuns(const std::vector<TimedFall>& runs, size_t shown);

    GateRows* Rows;
    wxSpinCtrl* Forks;
    wxButton* Arm;
    wxButton* Stop;
    wxButton* Correct; ///< Gives the shown run the positions that stand in the fields.
    wxStaticText* Result;
    wxListView* Runs;

private:
    wxStaticText* How;
    wxStaticText* Mean;
};

} // namespace orvane
