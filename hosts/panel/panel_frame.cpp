#include "hosts/panel/panel_frame.h"

#include "hosts/panel/habits.h"
#include "hosts/panel/panel_text.h"

#include <wx/dnd.h>
#include <wx/intl.h>
#include <wx/sizer.h>
#include <wx/splitter.h>

#include <algorithm>
#include <cstring>

namespace orvane {

namespace {

constexpr int tickMs = 20;
constexpr unsigned ticksPerMeasure = 10; // values at 5 Hz
constexpr int narrow = 1000;
constexpr int narrowForm = 300;
constexpr int wideForm = 364;

/// Opens a file that is dropped onto the window.
class DropTarget : public wxFileDropTarget {
public:
    explicit DropTarget(PanelFrame& frame) : Frame(frame) {}

    bool OnDropFiles(wxCoord /*x*/, wxCoord /*y*/, const wxArrayString& names) override {
        if (names.empty()) {
            return false;
        }
        // After the drop: opening may ask something.
        Frame.CallAfter([this, name = names.front()] { Frame.OpenFile(name); });
        return true;
    }

private:
    PanelFrame& Frame;
};

} // namespace

PanelFrame::PanelFrame(DriverOptions options)
    : wxFrame(nullptr, wxID_ANY, "orvane-panel"), Options(options), Given(std::move(options)) {
    BindCommands();
    BuildMenus();
    constexpr std::array<int, 3> widths{-2, -3, -2};
    CreateStatusBar(static_cast<int>(widths.size()));
    SetStatusWidths(static_cast<int>(widths.size()), widths.data());
    MessageBar = new wxInfoBar(this);
    MessageBar->AddButton(wxID_CLOSE, _("Close")); // The one of the bar may not be translated.
    MessageBar->Bind(
        wxEVT_BUTTON,
        [this](wxCommandEvent& event) {
            FromDriver.Texts.clear();
            Notice.clear();
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
    if (!RestorePlace(*this)) {
        SetSize(FromDIP(wxSize(1280, 800)));
    }
    SetDropTarget(new DropTarget(*this)); // NOLINT: the window owns it
    Book->Bind(wxEVT_NOTEBOOK_PAGE_CHANGED, [this](wxBookCtrlEvent& event) {
        event.Skip();
        if (event.GetEventObject() != Book) {
            return;
        }
        if (event.GetOldSelection() >= 0) {
            static_cast<Page*>(Book->GetPage(static_cast<size_t>(event.GetOldSelection())))->Left();
        }
        BuildTools();
        if (Page* page = CurrentPage(); page != nullptr) {
            page->Entered();
        }
    });
    Book->Bind(wxEVT_NOTEBOOK_PAGE_CHANGING, [this](wxBookCtrlEvent& event) {
        Page* page = CurrentPage();
        if (event.GetEventObject() == Book && page != nullptr && !page->MayLeave()) {
            event.Veto();
        }
    });
    Bind(wxEVT_SIZE, [this](wxSizeEvent& event) {
        event.Skip();
        FitSize();
    });
    Bind(wxEVT_CLOSE_WINDOW, [this](wxCloseEvent& event) {
        if (event.CanVeto() && !MayLoseUnsaved()) {
            event.Veto();
            return;
        }
        KeepHabits();
        KeepPlace(*this);
        FlushHabits();
        Destroy();
    });
    Timer.Bind(wxEVT_TIMER, [this](wxTimerEvent&) { OnTick(); });
}

PanelFrame::~PanelFrame() {
    Timer.Stop();
    FromDriver.Added = nullptr;
    CloseDriver();
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
    return selection < 0 || Start != nullptr ? nullptr : Pages().at(static_cast<size_t>(selection));
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
    const auto before = Shown;
    std::vector<size_t> made;
    for (const PageKind& kind : PageKinds()) {
        const bool isShown = place < Shown.size() && Shown[place] == &kind;
        bool offered = false;
        {
            const DriverTurn turn(*Access);
            offered = kind.IsOffered(turn.Driver, *Access);
        }
        if (offered && !isShown) {
            Page* page = kind.Make(Book, *Access);
            page->StateChanged = [this] {
                EnableTools();
                ShowState();
            };
            page->StartAgain = [this] { CallAfter([this] { StartAgain(); }); };
            Shown.insert(Shown.begin() + static_cast<std::ptrdiff_t>(place), &kind);
            Book->InsertPage(place, page, wxGetTranslation(kind.Title), place == 0);
            made.push_back(place);
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
    std::ranges::for_each(made, [this](size_t one) { RestorePage(one); });
    if (Shown != before) {
        ShowPageItems();
    }
    BuildTools();
}

/// Of a page that has just been made: as the user left it.
void PanelFrame::RestorePage(size_t place) {
    Page* page = Pages().at(place);
    const wxString name = Shown.at(place)->Title;
    if (Small) {
        for (wxWindow* child : page->GetChildren()) {
            if (auto* splitter = dynamic_cast<wxSplitterWindow*>(child); splitter != nullptr) {
                splitter->SetSashPosition(FromDIP(narrowForm));
            }
        }
    }
    RestoreLayout(*page, (Small ? "Small/" : "") + name);
    InGroup("/Consoles/" + Console + "/" + name,
            [page](wxConfigBase& config) { page->Restore(config); });
}

/// In a narrow window the left column is narrow and the toolbar has no texts.
void PanelFrame::FitSize() {
    const bool isNarrow = GetClientSize().x < FromDIP(narrow);
    if (isNarrow == Small) {
        return;
    }
    Small = isNarrow;
    for (Page* page : Pages()) {
        for (wxWindow* child : page->GetChildren()) {
            if (auto* splitter = dynamic_cast<wxSplitterWindow*>(child); splitter != nullptr) {
                splitter->SetSashPosition(FromDIP(Small ? narrowForm : wideForm));
            }
        }
    }
    BuildTools();
}

void PanelFrame::OnTick() {
    if (!Access) {
        return;
    }
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
        const std::vector<ChannelInfo> before = Access->Channels;
        Access->Enumerate();
        ShowPages();
        TellLeft(before);
    }
}

void PanelFrame::Open(DriverOptions options) {
    auto choices = Access ? std::move(Access->Choices) : KeptChoices();
    CloseDriver();
    Options = std::move(options);
    Access = std::make_unique<DriverAccess>(FromDriver, Options);
    HideStart();
    Access->Choices = std::move(choices);
    Access->PageIsBusy = [this] {
        return std::ranges::any_of(Pages(), [](const Page* page) { return page->IsBusy(); });
    };
    Access->IsMeasuring = [this] {
        return std::ranges::any_of(Pages(), [](const Page* page) { return page->IsMeasuring(); });
    };
    Access->ChannelSetUp = [this](int channel) {
        for (Page* page : Pages()) {
            page->ChannelSetUp(channel);
        }
    };
    {
        const DriverTurn turn(*Access);
        Console = FromUtf8(TextOf(turn->GetInterfaceName()));
    }
    Access->AreAdaptersSame();
    Clock = Options.Scenario.empty() ? wxString() : ClockOf(Options.Scenario);
    Access->Enumerate();
    ShowPages();
    if (Page* page = PageOf(Habit(habit_key::Page).utf8_str()); page != nullptr) {
        Book->SetSelection(static_cast<size_t>(Book->FindPage(page)));
    }
    ShowMessages();
    Timer.Start(tickMs);
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

} // namespace orvane
