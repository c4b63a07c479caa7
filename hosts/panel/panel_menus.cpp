// The menus and the toolbar of the window, and the commands that are no page's.

#include "hosts/panel/catalogue.h"
#include "hosts/panel/habits.h"
#include "hosts/panel/panel_commands.h"
#include "hosts/panel/panel_frame.h"
#include "hosts/panel/tool_icons.h"
#include "hosts/session/program_folder.h"

#include <wx/filename.h>
#include <wx/intl.h>
#include <wx/msgdlg.h>
#include <wx/utils.h>

#include <filesystem>

namespace orvane {

namespace {

/// The window's guide, in the source tree or installed; empty if there is none.
std::filesystem::path FindGuide() {
    const std::filesystem::path home = ProgramFolder();
    std::error_code ignored;
    for (std::filesystem::path at = BuildRootAbove(home); !at.empty() && at != at.parent_path();
         at = at.parent_path()) {
        if (std::filesystem::exists(at / "docs" / "panel.md", ignored)) {
            return at / "docs" / "panel.md";
        }
    }
    const auto installed = home.parent_path() / "share/doc/orvane-hosts/panel.md";
    return std::filesystem::exists(installed, ignored) ? installed : std::filesystem::path();
}

} // namespace

void PanelFrame::BindCommands() {
    const auto on = [this](int command, auto action) {
        Bind(
            wxEVT_MENU, [action](wxCommandEvent&) { action(); }, command);
    };
    const auto onPage = [this](auto action) {
        return [this, action] {
            if (Page* page = CurrentPage(); page != nullptr && page->CanSave()) {
                (page->*action)();
            }
        };
    };
    on(wxID_OPEN, [this] { AskForFile(); });
    on(wxID_SAVE, onPage(&Page::SaveSamples));
    on(SavePictureCommand, onPage(&Page::SavePicture));
    on(wxID_EXIT, [this] { Close(); });
    on(PreviousPage, [this] { Book->AdvanceSelection(false); });
    on(NextPage, [this] { Book->AdvanceSelection(true); });
    on(French, [this] { ChangeLanguage("fr"); });
    on(English, [this] { ChangeLanguage("en"); });
    on(SystemTheme, [this] { ChangeTheme(""); });
    on(LightTheme, [this] { ChangeTheme("light"); });
    on(DarkTheme, [this] { ChangeTheme("dark"); });
    on(FullScreen, [this] { ShowFullScreen(!IsFullScreen(), wxFULLSCREEN_NOBORDER); });
    on(ChooseCommand, [this] { ShowStart(""); });
    on(LookAgainCommand, [this] {
        if (MayLoseUnsaved()) {
            OpenOrChoose(Given);
        }
    });
    on(wxID_HELP, [this] { ShowGuide(); });
    on(wxID_ABOUT, [this] { ShowAbout(); });
    Bind(
        wxEVT_MENU,
        [this](wxCommandEvent& event) {
            Book->SetSelection(static_cast<size_t>(event.GetId() - FirstPage));
        },
        FirstPage, FirstRecent - 1);
    Bind(
        wxEVT_MENU,
        [this](wxCommandEvent& event) {
            OpenFile(RecentShown.at(static_cast<size_t>(event.GetId() - FirstRecent)));
        },
        FirstRecent, FirstTool - 1);
    for (const int command : {int{wxID_SAVE}, int{SavePictureCommand}}) {
        Bind(
            wxEVT_UPDATE_UI,
            [this](wxUpdateUIEvent& event) {
                Page* page = CurrentPage();
                event.Enable(page != nullptr && page->CanSave());
            },
            command);
    }
    Bind(wxEVT_MENU_OPEN, [this](wxMenuEvent& event) {
        event.Skip();
        ShowRecent();
    });
    // A list would take these keys for itself.
    Bind(wxEVT_CHAR_HOOK, [this](wxKeyEvent& event) {
        const int key = event.GetKeyCode();
        if (event.GetModifiers() == wxMOD_CONTROL && (key == WXK_PAGEUP || key == WXK_PAGEDOWN)) {
            Book->AdvanceSelection(key == WXK_PAGEDOWN);
        } else {
            event.Skip();
        }
    });
}

void PanelFrame::BuildMenus() {
    const std::unique_ptr<wxMenuBar> before(GetMenuBar());
    Measure = new wxMenu;
    auto* console = new wxMenu;
    console->Append(ChooseCommand, _("&Choose..."));
    console->Append(LookAgainCommand, _("&Look again"));
    auto* help = new wxMenu;
    help->Append(wxID_HELP, _("&Guide\tF1"));
    help->Append(wxID_ABOUT, _("&About orvane-panel"));
    auto* bar = new wxMenuBar;
    bar->Append(FileMenu(), _("&File"));
    View = ViewMenu();
    ShowPageItems();
    bar->Append(View, _("&View"));
    bar->Append(Measure, _("&Measure"));
    bar->Append(console, _("C&onsole"));
    bar->Append(help, _("&Help"));
    SetMenuBar(bar);
}

wxMenu* PanelFrame::FileMenu() {
    auto* file = new wxMenu;
    file->Append(wxID_OPEN, _("&Open...\tCtrl+O"));
    Recent = new wxMenu;
    RecentShown.clear();
    file->AppendSubMenu(Recent, _("&Recent"));
    ShowRecent();
    file->AppendSeparator();
    file->Append(wxID_SAVE, _("Save &samples...\tCtrl+S"));
    file->Append(SavePictureCommand, _("Save &picture...\tCtrl+P"));
    file->AppendSeparator();
    file->Append(wxID_EXIT, _("&Quit\tCtrl+Q"));
    return file;
}

void PanelFrame::ShowRecent() {
    const std::vector<wxString> files = RecentFiles();
    if (files == RecentShown) {
        return;
    }
    RecentShown = files;
    while (Recent->GetMenuItemCount() > 0) {
        Recent->Destroy(Recent->FindItemByPosition(0));
    }
    for (size_t i = 0; i < files.size(); ++i) {
        Recent->Append(FirstRecent + static_cast<int>(i),
                       wxString::Format("&%zu ", i + 1) +
                           wxControl::EscapeMnemonics(wxFileName(files[i]).GetFullName()),
                       files[i]);
    }
}

/// The pages that are shown, before what else is in the menu.
void PanelFrame::ShowPageItems() {
    for (int id = FirstPage; View->FindItem(id) != nullptr; ++id) {
        View->Destroy(id);
    }
    for (size_t i = 0; i < Shown.size(); ++i) {
        View->Insert(i, FirstPage + static_cast<int>(i),
                     wxGetTranslation(Shown[i]->Title) + wxString::Format("\tCtrl+%zu", i + 1));
    }
}

wxMenu* PanelFrame::ViewMenu() {
    auto* view = new wxMenu;
    view->Append(PreviousPage, _("&Previous page\tCtrl+PgUp"));
    view->Append(NextPage, _("&Next page\tCtrl+PgDn"));
    view->AppendSeparator();
    auto* language = new wxMenu;
    language->AppendRadioItem(English, "&English");
    language->AppendRadioItem(French, wxString::FromUTF8("&Français"));
    language->Check(Options.Language == "fr" ? French : English, true);
    view->AppendSubMenu(language, _("&Language"));
    auto* theme = new wxMenu;
    theme->AppendRadioItem(SystemTheme, _("of the &system"));
    theme->AppendRadioItem(LightTheme, _("&light"));
    theme->AppendRadioItem(DarkTheme, _("&dark"));
    const wxString chosen = Habit(habit_key::Theme);
    theme->Check(chosen == "dark" ? DarkTheme : chosen == "light" ? LightTheme : SystemTheme, true);
    view->AppendSubMenu(theme, _("&Theme"));
    view->Append(FullScreen, _("&Full screen\tF11"));
    return view;
}

/// The tools of the page that is shown, in the toolbar and in the menu.
void PanelFrame::BuildTools() {
    wxToolBar* bar = GetToolBar();
    const long texts = Small ? 0 : wxTB_TEXT;
    if (bar == nullptr) {
        bar = CreateToolBar(texts | wxTB_FLAT | wxTB_HORIZONTAL);
    } else if ((bar->GetWindowStyle() & wxTB_TEXT) != texts) {
        bar->SetWindowStyle((bar->GetWindowStyle() & ~wxTB_TEXT) | texts);
    }
    bar->ClearTools();
    while (Measure->GetMenuItemCount() > 0) {
        Measure->Destroy(Measure->FindItemByPosition(0));
    }
    bar->AddTool(wxID_OPEN, _("Open"), ToolIcon(tool_icon::Open), _("Open"));
    bar->AddTool(wxID_SAVE, _("Save"), ToolIcon(tool_icon::Save), _("Save"));
    bar->AddSeparator();
    Page* page = CurrentPage();
    Tools = page != nullptr ? page->Tools() : std::vector<PageTool>{};
    for (size_t i = 0; i < Tools.size(); ++i) {
        const PageTool& tool = Tools[i];
        const int id = FirstTool + static_cast<int>(i);
        const bool stays = tool.IsOn != nullptr;
        const wxString keys = tool.Keys.empty() ? wxString() : " (" + tool.Keys + ")";
        bar->AddTool(id, tool.Label, ToolIcon(tool.Icon), tool.Label + keys,
                     stays ? wxITEM_CHECK : wxITEM_NORMAL);
        Measure->Append(id, tool.Label + (tool.Keys.empty() ? "" : "\t" + tool.Keys), "",
                        stays ? wxITEM_CHECK : wxITEM_NORMAL);
        Unbind(wxEVT_MENU, &PanelFrame::OnTool, this, id);
        Bind(wxEVT_MENU, &PanelFrame::OnTool, this, id);
    }
    BuildStateText();
    bar->Realize();
    EnableTools();
    ShowState();
}

void PanelFrame::OnTool(wxCommandEvent& event) {
    const auto tool = static_cast<size_t>(event.GetId() - FirstTool);
    if (tool < Tools.size() && Tools[tool].CanDo()) {
        Tools[tool].Do();
    }
    EnableTools();
    ShowState();
}

void PanelFrame::BuildStateText() {
    wxToolBar* bar = GetToolBar();
    bar->AddStretchableSpace();
    StateText = new wxStaticText(bar, wxID_ANY, Small ? " " : " \n ", wxDefaultPosition,
                                 FromDIP(wxSize(Small ? 340 : 240, -1)),
                                 wxALIGN_RIGHT | wxST_NO_AUTORESIZE);
    StateText->SetName(_("State"));
    ShownState.clear();
    bar->AddControl(StateText);
}

void PanelFrame::EnableTools() {
    for (size_t i = 0; i < Tools.size(); ++i) {
        const int id = FirstTool + static_cast<int>(i);
        const bool can = Tools[i].CanDo();
        GetToolBar()->EnableTool(id, can);
        Measure->Enable(id, can);
        if (Tools[i].IsOn) {
            GetToolBar()->ToggleTool(id, Tools[i].IsOn());
            Measure->Check(id, Tools[i].IsOn());
        }
    }
    Page* page = CurrentPage();
    GetToolBar()->EnableTool(wxID_SAVE, page != nullptr && page->CanSave());
}

void PanelFrame::ChangeLanguage(const std::string& code) {
    if (code == Options.Language) {
        return;
    }
    KeepHabit(habit_key::Language, wxString::FromUTF8(code));
    UseLanguage(code);
    MessageBar->RemoveButton(wxID_CLOSE);
    MessageBar->AddButton(wxID_CLOSE, _("Close"));
    if (Access) {
        // The console is opened again, because the driver takes its language at the start.
        DriverOptions options = Options;
        options.Language = code;
        OpenAgain(std::move(options));
    } else {
        Options.Language = code;
        ShowStart(Start->Reason);
    }
    BuildMenus();
    BuildTools();
}

/// The toolkit takes its theme when it starts.
void PanelFrame::ChangeTheme(const wxString& theme) {
    KeepHabit(habit_key::Theme, theme);
    FlushHabits();
    Notice = _("The theme changes when the window is opened the next time.");
    ShowMessages();
}

void PanelFrame::ShowGuide() {
    const std::filesystem::path guide = FindGuide();
    const wxString path = wxString::FromUTF8(guide.string());
    if (guide.empty() || !wxLaunchDefaultApplication(path)) {
        Notice = guide.empty() ? _("The guide is not installed.")
                               : wxString::Format(_("The guide is the file %s."), path);
        ShowMessages();
    }
}

void PanelFrame::ShowAbout() {
    wxString text = "orvane-panel " ORVANE_VERSION "\n";
    text += _("Shows an Orvane console at work.") + "\n\n";
    text += Access ? wxString::Format(_("Console: %s"), Console) : _("No console");
    wxMessageBox(text, _("About orvane-panel"), wxOK | wxICON_INFORMATION, this);
}

} // namespace orvane
