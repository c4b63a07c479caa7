#pragma once

#include "hosts/panel/form.h"
#include "hosts/panel/page.h"

#include <wx/button.h>
#include <wx/choice.h>
#include <wx/listbox.h>
#include <wx/listctrl.h>

namespace orvane {

/// Which console it is and what it can do; of the laboratory its scenario and its clock too.
class ConsolePage : public Page {
public:
    ConsolePage(wxWindow* parent, DriverAccess& access);

    std::vector<PageTool> Tools() override;
    void Entered() override;
    void Measured() override;

    wxListView* Texts;
    wxButton* Copy;
    wxChoice* Speed = nullptr;      ///< Of the laboratory.
    wxStaticText* Clock = nullptr;  ///< Of the laboratory.
    wxTextCtrl* Scenario = nullptr; ///< Of the laboratory.
    wxButton* Again = nullptr;      ///< Of the laboratory: reads the scenario.
    wxListBox* Errors = nullptr;    ///< Of the laboratory.

private:
    void BuildLeft(Form* form);
    void BuildClock(Form* form);
    void BuildScenario(wxWindow* parent);
    void AddText(const wxString& label, const wxString& text);
    void ReadConsole();
    void ReadScenario();
    void CopyTexts();
    void ChooseSpeed();
    void ShowErrorLine();

    bool IsRead = false;
    std::optional<double> BeganAt; ///< On the driver's clock, at the first look.
    double DriverSec = 0.0;        ///< At the last look.
    wxLongLong MachineMs;
};

Page* MakeConsolePage(wxWindow* parent, DriverAccess& access);

} // namespace orvane
