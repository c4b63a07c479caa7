// Which console the window shows: opening, closing, the start page, files.

#include "hosts/panel/habits.h"
#include "hosts/panel/panel_frame.h"
#include "hosts/panel/panel_text.h"
#include "hosts/session/host_error.h"

#include <wx/filedlg.h>
#include <wx/filename.h>
#include <wx/intl.h>
#include <wx/msgdlg.h>
#include <wx/sizer.h>

namespace orvane {

bool PanelFrame::OpenOrChoose(const DriverOptions& options) {
    if (Access) {
        KeepHabits();
    }
    try {
        Open(options);
        return true;
    } catch (const HostError& error) {
        ShowStart(FromUtf8(error.what()));
        return false;
    }
}

void PanelFrame::ChooseInstead(const std::string& reason) {
    const wxString scenario = Habit(habit_key::Scenario);
    if (!scenario.empty() && Options.Scenario.empty()) {
        OpenScenario(scenario.utf8_string());
        Notice =
            wxString::Format(_("No console is there: this is the simulated one, %s."), scenario);
        ShowMessages();
    } else {
        ShowStart(FromUtf8(reason));
    }
}

void PanelFrame::ShowStart(const wxString& reason) {
    HideStart();
    StartActions actions{.Choose = [this](const std::string& scenario) { OpenScenario(scenario); },
                         .LookAgain =
                             [this] {
                                 if (MayLoseUnsaved()) {
                                     OpenOrChoose(Given);
                                 }
                             },
                         .AskForFile = [this] { AskForFile(); },
                         .OpenFile = [this](const wxString& path) { OpenFile(path); },
                         .Back = {}};
    if (!Access) { // The page says all of it.
        FromDriver.Texts.clear();
        Notice.clear();
        MessageBar->Dismiss();
    }
    if (Access) {
        actions.Back = [this] { HideStart(); };
    }
    Book->Hide();
    const wxString errors =
        Access || Options.Scenario.empty() ? wxString() : ScenarioErrors(Options.Scenario);
    Start = new StartPage(this, std::move(actions), errors.empty() ? reason : errors);
    GetSizer()->Add(Start, wxSizerFlags(1).Expand());
    Layout();
    BuildTools();
    Start->Simulated->SetFocus();
}

void PanelFrame::HideStart() {
    if (Start == nullptr) {
        return;
    }
    Start->Destroy();
    Start = nullptr;
    Book->Show();
    Layout();
    BuildTools();
}

void PanelFrame::AskForFile() {
    const wxString kinds = _("Scenarios and samples") + "|*.toml;*.csv|" + _("Scenarios") +
                           "|*.toml|" + _("Samples") + "|*.csv";
    wxFileDialog dialog(this, _("Open"), Habit(habit_key::Folder), "", kinds,
                        wxFD_OPEN | wxFD_FILE_MUST_EXIST);
    if (dialog.ShowModal() == wxID_OK) {
        OpenFile(dialog.GetPath());
    }
}

void PanelFrame::OpenFile(const wxString& path) {
    NoteRecentFile(path);
    if (wxFileName(path).GetExt().IsSameAs("toml", false)) {
        OpenScenario(path.utf8_string());
    } else {
        OpenSamples(path);
    }
}

void PanelFrame::OpenScenario(const std::string& nameOrPath) {
    if (!MayLoseUnsaved()) {
        return;
    }
    DriverOptions options = Options;
    options.Library.clear(); // That of the laboratory.
    options.Scenario = nameOrPath;
    OpenOrChoose(options);
}

/// Samples are looked at on a page of a console: without one, a simulated one is opened.
void PanelFrame::OpenSamples(const wxString& path) {
    if (!Access) {
        OpenScenario("school");
    }
    HideStart();
    Notice.clear();
    try {
        for (Page* page : Pages()) {
            if (page->OpenSamples(path)) {
                Book->SetSelection(static_cast<size_t>(Book->FindPage(page)));
                return;
            }
        }
        Notice = wxString::Format(_("%s holds nothing that this window shows."),
                                  wxFileName(path).GetFullName());
    } catch (const HostError& error) {
        Notice = FromUtf8(error.what());
    }
    ShowMessages();
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
    if (!OpenOrChoose(options)) {
        return;
    }
    for (size_t i = 0; i < Shown.size(); ++i) {
        if (given[Shown[i]].has_value()) {
            Pages().at(i)->TakeOver(std::move(given[Shown[i]]));
        }
    }
    if (selection >= 0 && static_cast<size_t>(selection) < Book->GetPageCount()) {
        Book->SetSelection(static_cast<size_t>(selection));
    }
}

void PanelFrame::StartAgain() {
    OpenAgain(Options);
}

void PanelFrame::KeepHabits() {
    if (!Access) {
        return;
    }
    KeepChoices(Access->Choices);
    for (size_t i = 0; i < Shown.size(); ++i) {
        const Page* page = Pages().at(i);
        const wxString name = Shown[i]->Title;
        KeepLayout(*page, (Small ? "Small/" : "") + name);
        InGroup("/Consoles/" + Console + "/" + name,
                [page](wxConfigBase& config) { page->Keep(config); });
        if (page == Book->GetCurrentPage()) {
            KeepHabit(habit_key::Page, name);
        }
    }
}

bool PanelFrame::MayLoseUnsaved() {
    if (Page* page = CurrentPage(); page != nullptr && !page->MayLeave()) {
        return false;
    }
    for (const Page* page : Pages()) {
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

} // namespace orvane
