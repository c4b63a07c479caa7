#pragma once

#include "hosts/panel/form.h"
#include "hosts/session/gate_run.h"

#include <optional>
#include <vector>

namespace orvane {

/// What is known of a gate before the user says where it is.
struct GatePlace {
    wxString Place; ///< "3.6"; empty: not known.
    std::optional<double> Position;
};

/// The door and the gates of the forks in rows: name, place, position in m, state.
class GateRows : public wxPanel {
public:
    /// \param places of the door and the gates, in their order
    GateRows(wxWindow* parent, const std::vector<GatePlace>& places);

    /// Greys all but the door and so many gates.
    void UseGates(size_t gates);
    void ShowStates(const GateStates& states);
    /// In m below the door, of so many gates. Empty if one isn't known, or is above the door, or
    /// lies on another: a message below the rows says so.
    std::vector<double> PositionsOfGates(size_t gates);

    /// \name The texts of the positions
    /// @{
    std::vector<wxString> Texts() const;
    void SetTexts(const std::vector<wxString>& texts);
    /// @}

    std::vector<NumberField*> Positions; ///< Of the door, then of the gates.
    FieldMessage* Message;
    std::function<void()> Changed = [] {};

private:
    void AddRow(wxSizer& grid, size_t row, const GatePlace& place);

    std::vector<wxStaticText*> Names;
    std::vector<wxStaticText*> States;
};

/// The name of the door, 0, or a gate: "Fork 1 first".
wxString GateName(size_t row);

} // namespace orvane
