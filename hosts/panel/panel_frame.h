#pragma once

#include "hosts/panel/page.h"
#include "hosts/panel/start_page.h"

#include <wx/frame.h>
#include <wx/infobar.h>
#include <wx/menu.h>
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
/// instruments. Without a console it shows the start page.
class PanelFrame : public wxFrame {
public:
    explicit PanelFrame(DriverOptions options);
    ~PanelFrame() override;

    /// Opens the driver and shows its pages. Throws HostError if it does not open; then there is
    /// none.
    void Open(DriverOptions options);
    /// Opens the driver; if it does not open, the start page says why. \return whether it opened
    bool OpenOrChoose(const DriverOptions& options);
    /// There is no console: opens the one that the user wants then without being asked, or else
    /// shows the start page.
    void ChooseInstead(const std::string& reason);
    /// Shows the start page. \param reason why there is no console; empty: one is open
    void ShowStart(const wxString& reason);
    /// Opens a scenario or saved samples, asking first for what is not saved.
    void OpenFile(const wxString& path);

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

    /// What the window itself says there.
    const wxString& Said() const {
        return Notice;
    }

    wxInfoBar* MessageBar;
    wxNotebook* Book;
    StartPage* Start = nullptr; ///< Null: it is not shown.

private:
    /// \name Menus and tools
    /// @{
    void BindCommands();
    void BuildMenus();
    wxMenu* FileMenu();
    wxMenu* ViewMenu();
    void ShowRecent();
    void ShowPageItems();
    void BuildTools();
    void OnTool(wxCommandEvent& event);
    void BuildStateText();
    void EnableTools();
    void ChangeLanguage(const std::string& code);
    void ChangeTheme(const wxString& theme);
    void ShowGuide();
    void ShowAbout();
    /// @}

    /// \name What it says
    /// @{
    void ShowMessages();
    void ShowState();
    void ShowTitle();
    void TellLeft(const std::vector<ChannelInfo>& before);
    /// @}

    /// \name Opening and closing
    /// @{
    void HideStart();
    void AskForFile();
    void OpenScenario(const std::string& nameOrPath);
    void OpenSamples(const wxString& path);
    void OpenAgain(DriverOptions options);
    void StartAgain();
    void CloseDriver();
    void KeepHabits();
    bool MayLoseUnsaved();
    /// @}

    void ShowPages();
    void RestorePage(size_t place);
    void OnTick();
    void CheckAdapters();
    void FitSize();
    std::vector<Page*> Pages();

    DriverMessages FromDriver; ///< Outlives the access.
    DriverOptions Options;
    const DriverOptions Given;            ///< Of the program's start.
    std::unique_ptr<DriverAccess> Access; ///< Null: no console.
    std::vector<const PageKind*> Shown;   ///< Of the tabs.
    std::vector<PageTool> Tools;          ///< Of the page that is shown.
    std::vector<wxString> RecentShown;    ///< Of the menu.
    wxString Notice;                      ///< The window's own, in the bar of messages.
    wxString Console;                     ///< Its name.
    wxString Clock;                       ///< How its time passes; empty: it has no scenario.
    wxStaticText* StateText = nullptr;
    wxString ShownState;
    wxMenu* Recent = nullptr;
    wxMenu* View = nullptr;
    wxMenu* Measure = nullptr;
    bool Small = false; ///< Too narrow for texts in the toolbar.
    wxTimer Timer;
    unsigned Ticks = 0;
};

} // namespace orvane
