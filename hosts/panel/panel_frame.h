#pragma once

#include "hosts/panel/page.h"

#include <wx/frame.h>
#include <wx/infobar.h>
#include <wx/notebook.h>
#include <wx/stattext.h>
#include <wx/timer.h>
#include <wx/toolbar.h>

namespace orvane {

/// What a page is for, and whether a console has it.
struct PageKind {
    const char* Title; ///< In English; the tab has it in the window's language.
    bool (*IsOffered)(const DriverExports& driver, const DriverAccess& access);
    Page* (*Make)(wxWindow* parent, DriverAccess& access);
};

/// The pages in the order of their tabs.
const std::vector<PageKind>& PageKinds();

/// The window: menu, toolbar, the pages that the console has, status bar. It knows pages, not
/// instruments.
class PanelFrame : public wxFrame {
public:
    explicit PanelFrame(DriverOptions options);
    ~PanelFrame() override;

    /// Opens the driver and shows its pages. Throws HostError if it does not open; then there is
    /// none.
    void Open(DriverOptions options);
    bool HasConsole() const {
        return Access != nullptr;
    }
    DriverAccess& Driver() {
        return *Access;
    }
    /// The page of this kind, by its English title; null if it is not shown.
    Page* PageOf(const char* title);
    Page* CurrentPage();
    /// The texts in the bar of messages.
    const std::vector<wxString>& Messages() const {
        return FromDriver.Texts;
    }

    wxInfoBar* MessageBar;
    wxNotebook* Book;

private:
    void BuildMenus();
    void BuildTools();
    void OnTool(wxCommandEvent& event);
    void BuildStateText();
    void ShowMessages();
    void ShowPages();
    void OnTick();
    void CheckAdapters();
    void ShowState();
    void EnableTools();
    void CloseDriver();
    void OpenAgain(DriverOptions options);
    void StartAgain();
    void ChangeLanguage(const std::string& code);
    bool MayLoseUnsaved();
    std::vector<Page*> Pages();

    DriverMessages FromDriver; ///< Outlives the access.
    DriverOptions Options;
    std::unique_ptr<DriverAccess> Access; ///< Null: no console.
    std::vector<const PageKind*> Shown;   ///< Of the tabs.
    std::vector<PageTool> Tools;          ///< Of the page that is shown.
    wxStaticText* StateText = nullptr;
    wxString ShownState;
    wxMenu* Measure = nullptr;
    wxTimer Timer;
    unsigned Ticks = 0;
};

} // namespace orvane
