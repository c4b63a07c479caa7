#include "hosts/panel/panel_frame.h"

#include "hosts/panel/catalogue.h"
#include "hosts/panel/panel_text.h"
#include "hosts/panel/tool_icons.h"
#include "hosts/session/host_error.h"

#include <wx/app.h>
#include <wx/intl.h>
#include <wx/menu.h>
#include <wx/msgdlg.h>
#include <wx/settings.h>
#include <wx/sizer.h>

#include <algorithm>
#include <cstring>

namespace orvane {

namespace {

constexpr int tickMs = 20;
constexpr unsigned ticksPerMeasure = 10; // values at 5 Hz

enum Command {
    SavePictureCommand = wxID_HIGHEST + 1,
    French,
    English,
    FullScreen,
    PreviousPage,
    NextPage,
    FirstPage,
    FirstTool = FirstPage + 20
};

enum StatusField { DetailField, ReadoutField, ConsoleField, StatusFields };

wxString SignOf(PageState::Kind kind) {
    constexpr std::array<wchar_t, 6> signs{L'\u25cb', L'\u25d0', L'\u25b6',
                                           L'\u25a0', L'\u25a1', L'\u25b2'};
    return wxString(signs.at(static_cast<size_t>(kind))) + " ";
}

wxString EscapedMarkup(wxString text) {
    text.Replace("&", "&amp;");
    text.Replace("<", "&lt;");
    return text;
}

wxString WordsOf(const PageState& state) {
    if (!state.Words.empty()) {
        return state.Words;
    }
    switch (state.Now) {
    case PageState::Kind::Waiting:
        return _("Waiting for trigger");
    case PageState::Kind::Running:
        return _("Running");
    case PageState::Kind::Done:
        return _("Done");
    case PageState::Kind::Stopped:
        return _("Stopped");
    case PageState::Kind::Failed:
        return _("Failed");
    case PageState::Kind::Ready:
        break;
    }
    return _("Ready");
}

} // namespace

PanelFrame::PanelFrame(DriverOptions options)
    : wxFrame(nullptr, wxID_ANY, "orvane-panel"), Options(std::move(options)) {
    BuildMenus();
    CreateStatusBar(StatusFields);
    const std::array<int, StatusFields> widths{-2, -3, -2};
    SetStatusWidths(StatusFields, widths.data());
    MessageBar = new wxInfoBar(this);
    MessageBar->AddButton(wxID_CLOSE, _("Close")); // The one of the bar may not be translated.
    MessageBar->Bind(
        wxEVT_BUTTON,
        [this](wxCommandEvent& event) {
            FromDriver.Texts.clear();
            event.Skip(); // The bar closes itself.
        },
        wxID_CLOSE);
    FromDriver.Added = [this] { ShowMessages(); };
    Book = new wxNotebook(this, wxID_ANY);
    BuildTools();
    auto* whole = new wxBoxSizer(wxVERTICAL);
    whole->Add(MessageBar, wxSizerFlags().Expand());
    whole->Add(Book, wxSizerFlags(1).Expand());
    SetSizer(whole);
    SetMinSize(FromDIP(wxSize(860, 580)));
    SetSize(FromDIP(wxSize(1280, 800)));
    Book->Bind(wxEVT_NOTEBOOK_PAGE_CHANGED, [this](wxBookCtrlEvent& event) {
        event.Skip();
        if (event.GetOldSelection() >= 0 && event.GetEventObject() == Book) {
            static_cast<Page*>(Book->GetPage(static_cast<size_t>(event.GetOldSelection())))->Left();
        }
        BuildTools();
        if (Page* page = CurrentPage(); page != nullptr) {
            page->Entered();
        }
    });
    Bind(wxEVT_CLOSE_WINDOW, [this](wxCloseEvent& event) {
        if (event.CanVeto() && !MayLoseUnsaved()) {
            event.Veto();
            return;
        }
        Destroy();
    });
    Timer.Bind(wxEVT_TIMER, [this](wxTimerEvent&) { OnTick(); });
}

PanelFrame::~PanelFrame() {
    Timer.Stop();
    FromDriver.Added = nullptr;
    CloseDriver();
}

void PanelFrame::CloseDriver() {
    Timer.Stop();
    for (Page* page : Pages()) {
        page->StopMeasuring();
    }
    // While the driver exists: a field that loses the focus may call it.
    Book->DeleteAllPages();
    Shown.clear();
    Tools.clear();
    Access.reset();
}

void PanelFrame::Open(DriverOptions options) {
    auto choices = Access ? std::move(Access->Choices) : decltype(Access->Choices){};
    CloseDriver();
    Options = std::move(options);
    Access = std::make_unique<DriverAccess>(FromDriver, Options);
    Access->Choices = std::move(choices);
    Access->PageIsBusy = [this] {
        return std::ranges::any_of(Pages(), [](const Page* page) { return page->IsBusy(); });
    };
    Access->IsMeasuring = [this] {
        return std::ranges::any_of(Pages(), [](const Page* page) { return page->IsMeasuring(); });
    };
    {
        const DriverTurn turn(*Access);
        SetTitle(FromUtf8(TextOf(turn->GetInterfaceName())));
    }
    Access->AreAdaptersSame();
    Access->Enumerate();
    ShowPages();
    ShowMessages();
    Timer.Start(tickMs);
}

/// The same console with other options: nothing that was measured or written is lost.
void PanelFrame::OpenAgain(DriverOptions options) {
    const int selection = Book->GetSelection();
    std::map<const PageKind*, std::any> given;
    for (size_t i = 0; i < Shown.size(); ++i) {
        Page* page = Pages().at(i);
        page->StopMeasuring();
        given[Shown[i]] = page->GiveUp();
    }
    Open(std::move(options));
    for (size_t i = 0; i < Shown.size(); ++i) {
        if (given[Shown[i]].has_value()) {
            Pages().at(i)->TakeOver(std::move(given[Shown[i]]));
        }
    }
    if (selection >= 0 && static_cast<size_t>(selection) < Book->GetPageCount()) {
        Book->SetSelection(static_cast<size_t>(selection));
    }
}

std::vector<Page*> PanelFrame::Pages() {
    std::vector<Page*> pages;
    for (size_t i = 0; i < Book->GetPageCount(); ++i) {
        pages.push_back(static_cast<Page*>(Book->GetPage(i)));
    }
    return pages;
}

Page* PanelFrame::CurrentPage() {
    const int selection = Book->GetSelection();
    return selection < 0 ? nullptr : Pages().at(static_cast<size_t>(selection));
}

Page* PanelFrame::PageOf(const char* title) {
    for (size_t i = 0; i < Shown.size(); ++i) {
        if (std::strcmp(Shown[i]->Title, title) == 0) {
            return Pages().at(i);
        }
    }
    return nullptr;
}

/// A page that the console lost stays while it holds what is not saved.
void PanelFrame::ShowPages() {
    size_t place = 0;
    for (const PageKind& kind : PageKinds()) {
        const bool isShown = place < Shown.size() && Shown[place] == &kind;
        bool offered = false;
        {
            const DriverTurn turn(*Access);
            offered = kind.IsOffered(turn.Driver, *Access);
        }
        if (offered && !isShown) {
            Page* page = kind.Make(Book, *Access);
            page->StateChanged = [this] { ShowState(); };
            Shown.insert(Shown.begin() + static_cast<std::ptrdiff_t>(place), &kind);
            Book->InsertPage(place, page, wxGetTranslation(kind.Title), place == 0);
        } else if (!offered && isShown && !Pages().at(place)->HasUnsaved()) {
            Shown.erase(Shown.begin() + static_cast<std::ptrdiff_t>(place));
            Book->DeletePage(place);
            continue;
        }
        place += offered || isShown ? 1 : 0;
    }
    for (Page* page : Pages()) {
        page->ChannelsChanged();
    }
    BuildTools();
}

void PanelFrame::BuildMenus() {
    auto* file = new wxMenu;
    file->Append(wxID_SAVE, _("Save &samples...\tCtrl+S"));
    file->Append(SavePictureCommand, _("Save &picture...\tCtrl+P"));
    file->AppendSeparator();
    file->Append(wxID_EXIT, _("&Quit\tCtrl+Q"));
    auto* view = new wxMenu;
    view->Append(PreviousPage, _("&Previous page\tCtrl+PgUp"));
    view->Append(NextPage, _("&Next page\tCtrl+PgDn"));
    view->AppendSeparator();
    auto* language = new wxMenu;
    language->AppendRadioItem(English, "&English");
    language->AppendRadioItem(French, wxString::FromUTF8("&Français"));
    language->Check(Options.Language == "fr" ? French : English, true);
    view->AppendSubMenu(language, _("&Language"));
    view->AppendCheckItem(FullScreen, _("&Full screen\tF11"));
    Measure = new wxMenu;
    auto* help = new wxMenu;
    help->Append(wxID_ABOUT, _("&About orvane-panel"));
    auto* bar = new wxMenuBar;
    bar->Append(file, _("&File"));
    bar->Append(view, _("&View"));
    bar->Append(Measure, _("&Measure"));
    bar->Append(help, _("&Help"));
    SetMenuBar(bar);
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
    on(wxID_SAVE, onPage(&Page::SaveSamples));
    on(SavePictureCommand, onPage(&Page::SavePicture));
    on(wxID_EXIT, [this] { Close(); });
    on(PreviousPage, [this] { Book->AdvanceSelection(false); });
    on(NextPage, [this] { Book->AdvanceSelection(true); });
    on(French, [this] { ChangeLanguage("fr"); });
    on(English, [this] { ChangeLanguage("en"); });
    on(FullScreen, [this] { ShowFullScreen(!IsFullScreen()); });
    for (const int command : {int{wxID_SAVE}, int{SavePictureCommand}}) {
        Bind(
            wxEVT_UPDATE_UI,
            [this](wxUpdateUIEvent& event) {
                Page* page = CurrentPage();
                event.Enable(page != nullptr && page->CanSave());
            },
            command);
    }
}

/// The tools of the page that is shown, in the toolbar and in the menu.
void PanelFrame::BuildTools() {
    wxToolBar* bar = GetToolBar();
    if (bar == nullptr) {
        bar = CreateToolBar(wxTB_TEXT | wxTB_FLAT | wxTB_HORIZONTAL);
    }
    bar->ClearTools();
    while (Measure->GetMenuItemCount() > 0) {
        Measure->Destroy(Measure->FindItemByPosition(0));
    }
    bar->AddTool(wxID_SAVE, _("Save"), ToolIcon(tool_icon::Save));
    bar->AddSeparator();
    Page* page = CurrentPage();
    Tools = page != nullptr ? page->Tools() : std::vector<PageTool>{};
    for (size_t i = 0; i < Tools.size(); ++i) {
        const PageTool& tool = Tools[i];
        const int id = FirstTool + static_cast<int>(i);
        const bool stays = tool.IsOn != nullptr;
        bar->AddTool(id, tool.Label, ToolIcon(tool.Icon), tool.Label,
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
    StateText = new wxStaticText(bar, wxID_ANY, " \n ", wxDefaultPosition, FromDIP(wxSize(240, -1)),
                                 wxALIGN_RIGHT | wxST_NO_AUTORESIZE);
    StateText->SetName(_("State"));
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

void PanelFrame::ShowState() {
    Page* page = CurrentPage();
    const PageState state = page != nullptr ? page->State() : PageState{};
    const wxString words = page != nullptr ? SignOf(state.Now) + WordsOf(state)
                                           : SignOf(PageState::Kind::Ready) + _("No console");
    const wxString markup = "<b>" + wxControl::EscapeMnemonics(EscapedMarkup(words)) +
                            "</b>\n<small>" +
                            wxControl::EscapeMnemonics(EscapedMarkup(state.Detail)) + "</small>";
    if (markup != ShownState) {
        ShownState = markup;
        StateText->SetLabelMarkup(markup);
    }
    const auto showField = [this](const wxString& text, StatusField field) {
        if (GetStatusBar()->GetStatusText(field) != text) {
            SetStatusText(text, field);
        }
    };
    showField(state.Detail.empty() ? WordsOf(state) : WordsOf(state) + ": " + state.Detail,
              DetailField);
    showField(page != nullptr ? page->Readout() : wxString(), ReadoutField);
    const wxString console =
        Access ? GetTitle() + (Options.Scenario.empty() ? "" : " · " + FromUtf8(Options.Scenario))
               : wxString();
    showField(page != nullptr && page->HasUnsaved() ? _("not saved") + " · " + console : console,
              ConsoleField);
}

void PanelFrame::ShowMessages() {
    wxString all;
    for (const wxString& text : FromDriver.Texts) {
        all += (all.empty() ? "" : "\n") + text;
    }
    if (!all.empty()) {
        MessageBar->ShowMessage(all, wxICON_WARNING);
    }
}

void PanelFrame::OnTick() {
    const unsigned tick = Ticks++;
    Access->Tick();
    for (Page* page : Pages()) {
        page->Tick();
    }
    if (tick % ticksPerMeasure == 0 && !Access->IsBusy()) {
        if (!Access->IsMeasuring()) {
            CheckAdapters();
        }
        Access->Measure();
        for (Page* page : Pages()) {
            page->Measured();
        }
    }
    if (tick % (ticksPerMeasure / 2) == 0) {
        EnableTools();
        ShowState();
    }
}

void PanelFrame::CheckAdapters() {
    if (!Access->AreAdaptersSame()) {
        Access->Enumerate();
        ShowPages();
    }
}

bool PanelFrame::MayLoseUnsaved() {
    for (Page* page : Pages()) {
        if (page->HasUnsaved() &&
            wxMessageBox(wxString::Format(_("What %s measured is not saved. Close all the same?"),
                                          page->GetName()),
                         "orvane-panel", wxYES_NO | wxNO_DEFAULT | wxICON_QUESTION,
                         this) != wxYES) {
            return false;
        }
    }
    return true;
}

void PanelFrame::ChangeLanguage(const std::string& code) {
    if (code == Options.Language || !Access) {
        return;
    }
    // The console is opened again, because the driver takes its language at the start.
    DriverOptions options = Options;
    options.Language = code;
    UseLanguage(code);
    OpenAgain(std::move(options));
    BuildMenus();
    BuildTools();
}

} // namespace orvane
