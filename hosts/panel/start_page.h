#pragma once

#include "hosts/panel/scenario_list.h"

#include <wx/button.h>
#include <wx/checkbox.h>
#include <wx/infobar.h>
#include <wx/listctrl.h>
#include <wx/scrolwin.h>

#include <functional>

namespace orvane {

/// What the start page has done.
struct StartActions {
    std::function<void(const std::string& scenario)> Choose;
    std::function<void()> LookAgain;
    std::function<void()> AskForFile;
    std::function<void(const wxString& path)> OpenFile;
    std::function<void()> Back; ///< To the console that is open.
};

/// Where a console is chosen: in place of the pages, while there is none or on request.
class StartPage : public wxScrolledWindow {
public:
    /// \param reason why there is no console; empty: there is one, to which the user may go back
    StartPage(wxWindow* parent, StartActions actions, const wxString& reason);

    const wxString Reason;
    wxInfoBar* Bar;
    wxListView* Simulated;
    wxButton* Start;
    wxCheckBox* Always;
    wxListView* Recent;

private:
    wxSizer* BuildSimulated();
    wxSizer* BuildRecent();
    wxButton* AddButton(wxSizer* to, const wxString& label, std::function<void()> act);
    void ChooseSelected();
    void ShowSelected();

    StartActions Actions;
    std::vector<ScenarioRow> Rows;
    std::vector<wxString> Files;
};

} // namespace orvane
