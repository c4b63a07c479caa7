#pragma once

#include <wx/string.h>

#include <string>
#include <vector>

namespace orvane {

/// A simulated console, as the start page shows it.
struct ScenarioRow {
    std::string Name;
    wxString Console; ///< Of which model: "Orvane3600".
    wxString What;
    wxString Pages;
};

/// The scenarios that ship.
std::vector<ScenarioRow> ShippedScenarioRows();

/// What is wrong with a scenario, a line each; empty: nothing.
wxString ScenarioErrors(const std::string& nameOrPath);

/// How time passes for a scenario: "real time", "10 times as fast". \param scenario name or file
wxString ClockOf(const std::string& scenario);

} // namespace orvane
