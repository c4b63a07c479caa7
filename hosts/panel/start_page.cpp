#include "hosts/panel/start_page.h"

#include "hosts/panel/habits.h"
#include "hosts/panel/panel_text.h"

#include <wx/datetime.h>
#include <wx/filename.h>
#include <wx/intl.h>
#include <wx/settings.h>
#include <wx/sizer.h>
#include <wx/stattext.h>

#include <algorithm>

namespace orvane {

namespace {

constexpr int leastWidth = 600;
constexpr int middleShare = 10;
constexpr int gap = 16;

wxStaticText* Heading(wxWindow* parent, const wxString& text, double size) {
    auto* heading = new wxStaticText(parent, wxID_ANY, text);
    heading->SetFont(heading->GetFont().Bold().Scaled(static_cast<float>(size)));
    return heading;
}

wxListView* List(wxWindow* parent, const wxString& name, std::initializer_list<wxString> titles,
                 std::initializer_list<int> widths) {
    auto* list =
        new wxListView(parent, wxID_ANY, wxDefaultPosition,
                       parent->FromDIP(wxSize(leastWidth, 150)), wxLC_REPORT | wxLC_SINGLE_SEL);
    list->SetName(name);
    const int* columnWidth = widths.begin();
    for (const wxString& title : titles) {
        list->AppendColumn(title, wxLIST_FORMAT_LEFT, parent->FromDIP(*columnWidth++));
    }
    return list;
}

void AddRow(wxListView* list, std::initializer_list<wxString> texts) {
    const long row = list->InsertItem(list->GetItemCount(), "");
    int column = 0;
    for (const wxString& text : texts) {
        list->SetItem(row, column++, text);
    }
}

} // namespace

StartPage::StartPage(wxWindow* parent, StartActions actions, const wxString& reason)
    : wxScrolledWindow(parent, wxID_ANY, wxDefaultPosition, wxDefaultSize,
                       wxVSCROLL | wxTAB_TRAVERSAL),
      Reason(reason), Actions(std::move(actions)), Rows(ShippedScenarioRows()) {
    SetScrollRate(0, FromDIP(10));
    auto* whole = new wxBoxSizer(wxVERTICAL);
    Bar = new wxInfoBar(this);
    Bar->AddButton(wxID_REFRESH, _("Look again"));
    Bar->Bind(
        wxEVT_BUTTON, [this](wxCommandEvent&) { CallAfter(Actions.LookAgain); }, wxID_REFRESH);
    whole->Add(Bar, wxSizerFlags().Expand());
    auto* middle = new wxBoxSizer(wxVERTICAL);
    middle->Add(Heading(this, _("Which console?"), 1.6),
                wxSizerFlags().Border(wxTOP | wxBOTTOM, FromDIP(gap)));
    middle->Add(BuildSimulated(), wxSizerFlags().Expand());
    middle->Add(BuildRecent(), wxSizerFlags().Expand());
    auto* note = new wxStaticText(
        this, wxID_ANY, _("A scenario or saved samples can be dropped anywhere on the window."));
    note->SetForegroundColour(wxSystemSettings::GetColour(wxSYS_COLOUR_GRAYTEXT));
    middle->Add(note, wxSizerFlags().CentreHorizontal().Border(wxALL, FromDIP(gap)));
    auto* row = new wxBoxSizer(wxHORIZONTAL);
    row->AddStretchSpacer(1);
    row->Add(middle, wxSizerFlags(middleShare).Border(wxLEFT | wxRIGHT, FromDIP(gap)));
    row->AddStretchSpacer(1);
    whole->Add(row, wxSizerFlags().Expand());
    SetSizer(whole);
    if (!reason.empty()) {
        Bar->ShowMessage(wxString(wxUniChar(0x25b3)) + " " +
                             _("No console is there. Plug one in and look again, or choose a "
                               "simulated one below.") +
                             "\n" + reason,
                         wxICON_WARNING);
    }
    Bind(wxEVT_CHAR_HOOK, [this](wxKeyEvent& event) {
        if (event.GetKeyCode() == WXK_ESCAPE && Actions.Back) {
            Actions.Back();
        } else {
            event.Skip();
        }
    });
    ShowSelected();
    Simulated->SetFocus();
}

wxSizer* StartPage::BuildSimulated() {
    Simulated =
        List(this, _("Simulated consoles"),
             {_("Simulated"), _("Console"), _("What it shows"), _("Pages")}, {90, 100, 500, 300});
    for (const ScenarioRow& row : Rows) {
        AddRow(Simulated, {FromUtf8(row.Name), row.Console, row.What, row.Pages});
    }
    const auto kept =
        std::ranges::find(Rows, Habit(habit_key::Scenario).utf8_string(), &ScenarioRow::Name);
    const auto school = std::ranges::find(Rows, "school", &ScenarioRow::Name);
    const auto first = kept != Rows.end() ? kept : school != Rows.end() ? school : Rows.begin();
    Simulated->Select(static_cast<long>(first - Rows.begin()));
    Simulated->Focus(static_cast<long>(first - Rows.begin()));
    Simulated->Bind(wxEVT_LIST_ITEM_SELECTED, [this](wxListEvent&) { ShowSelected(); });
    Simulated->Bind(wxEVT_LIST_ITEM_ACTIVATED, [this](wxListEvent&) { ChooseSelected(); });
    auto* buttons = new wxBoxSizer(wxHORIZONTAL);
    Start = AddButton(buttons, " ", [this] { ChooseSelected(); });
    Start->SetDefault();
    AddButton(buttons, _("&Open a scenario file..."), Actions.AskForFile);
    if (Actions.Back) {
        AddButton(buttons, _("&Back to the console"), Actions.Back);
    }
    buttons->AddStretchSpacer();
    Always = new wxCheckBox(this, wxID_ANY, _("&choose this one without asking"));
    Always->SetValue(kept != Rows.end());
    buttons->Add(Always, wxSizerFlags().CentreVertical());
    auto* all = new wxBoxSizer(wxVERTICAL);
    all->Add(Simulated, wxSizerFlags().Expand().Border(wxBOTTOM, FromDIP(gap)));
    all->Add(buttons, wxSizerFlags().Expand().Border(wxBOTTOM, FromDIP(gap)));
    return all;
}

wxSizer* StartPage::BuildRecent() {
    Recent =
        List(this, _("Recent files"), {_("Recent"), _("Folder"), _("Changed")}, {240, 500, 180});
    for (const wxString& file : RecentFiles()) {
        const wxFileName name(file);
        if (name.FileExists()) {
            Files.push_back(file);
            AddRow(Recent, {name.GetFullName(), name.GetPath(),
                            name.GetModificationTime().Format("%Y-%m-%d %H:%M")});
        }
    }
    Recent->Bind(wxEVT_LIST_ITEM_ACTIVATED, [this](wxListEvent& event) {
        // A copy: the page may go while the file is opened.
        const wxString file = Files.at(static_cast<size_t>(event.GetIndex()));
        CallAfter([open = Actions.OpenFile, file] { open(file); });
    });
    auto* buttons = new wxBoxSizer(wxHORIZONTAL);
    AddButton(buttons, _("Open sa&mples..."), Actions.AskForFile);
    auto* all = new wxBoxSizer(wxVERTICAL);
    all->Add(Heading(this, _("Or look at what was measured"), 1.2),
             wxSizerFlags().Border(wxTOP | wxBOTTOM, FromDIP(gap / 2)));
    all->Add(Recent, wxSizerFlags().Expand().Border(wxBOTTOM, FromDIP(gap)));
    all->Add(buttons, wxSizerFlags().Expand());
    return all;
}

wxButton* StartPage::AddButton(wxSizer* to, const wxString& label, std::function<void()> act) {
    auto* button = new wxButton(this, wxID_ANY, label);
    // After the click: the page may go.
    button->Bind(wxEVT_BUTTON, [this, act = std::move(act)](wxCommandEvent&) { CallAfter(act); });
    to->Add(button, wxSizerFlags().Border(wxRIGHT, FromDIP(8)));
    return button;
}

void StartPage::ChooseSelected() {
    const long row = Simulated->GetFirstSelected();
    if (row < 0) {
        return;
    }
    const std::string& name = Rows.at(static_cast<size_t>(row)).Name;
    KeepHabit(habit_key::Scenario, Always->GetValue() ? FromUtf8(name) : wxString());
    CallAfter([choose = Actions.Choose, name] { choose(name); });
}

void StartPage::ShowSelected() {
    const long row = Simulated->GetFirstSelected();
    Start->Enable(row >= 0);
    if (row >= 0) {
        Start->SetLabel(wxString::Format(_("&Start %s"), Simulated->GetItemText(row)));
        Layout();
    }
}

} // namespace orvane
