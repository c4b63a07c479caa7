// The window without a console, what it opens, and what it remembers.

#include "hosts/panel/acquisition_page.h"
#include "hosts/panel/habits.h"
#include "tests/hosts/panel_fixture.h"

#include <wx/confbase.h>
#include <wx/dnd.h>
#include <wx/splitter.h>

#include <filesystem>
#include <fstream>

using namespace orvane;
using namespace testing;

namespace {

class PanelStart : public Panel {
protected:
    /// The window over a driver that finds no console.
    void OpenWithoutConsole() {
        setenv("ORVANE_FAULT", "start", 1);
        const DriverOptions options{.Library = FAULTY_DRIVER, .Language = "en"};
        UseLanguage(options.Language);
        frame = new PanelFrame(options); // NOLINT: the toolkit owns it
        wxTheApp->SetTopWindow(frame);
        ASSERT_FALSE(frame->OpenOrChoose(options));
        frame->Show();
        frame->Move(0, 0);
        frame->Raise();
        Settle();
    }
    void Drop(const std::string& file) const {
        dynamic_cast<wxFileDropTarget&>(*frame->GetDropTarget())
            .OnDropFiles(0, 0, wxArrayString(1, wxString::FromUTF8(file)));
    }
    /// A new window after the one before was closed.
    void CloseAndOpen(const std::string& scenario) {
        frame->Close();
        loop.ProcessIdle();
        Open({.Library = "", .Language = "en", .Scenario = scenario});
    }
    auto Title() const {
        return [this] { return frame->GetTitle().utf8_string(); };
    }
};

TEST_F(PanelStart, StartsASimulatedConsoleByKeys) {
    OpenWithoutConsole();
    EXPECT_TRUE(frame->Start->Bar->IsShown());
    EXPECT_EQ(Status()(), "No console");
    Press(WXK_UP);
    Press(WXK_UP);
    EXPECT_EQ(frame->Start->Start->GetLabelText(), "Start radio");
    Press(WXK_RETURN);
    Comes(Title(), "Orvane150 (radio) – orvane-panel");
    EXPECT_EQ(frame->Start, nullptr);
    EXPECT_NE(frame->PageOf("Radio"), nullptr);

    ActUntil(wxEVT_MENU_OPEN, [&] { mouse.Char('O', wxMOD_ALT); });
    mouse.Char('C');
    ASSERT_TRUE(Until([&] { return frame->Start != nullptr; }));
    EXPECT_FALSE(frame->Start->Bar->IsShown());
    Press(WXK_ESCAPE);
    EXPECT_TRUE(Until([&] { return frame->Start == nullptr; }));
    EXPECT_EQ(Title()(), "Orvane150 (radio) – orvane-panel");
    EXPECT_THAT(asked, IsEmpty());
}

TEST_F(PanelStart, LooksAgainAndOpensWhatIsDropped) {
    OpenWithoutConsole();
    std::ofstream("bad.toml") << "scenario = 1\nsed = 3\n";
    Drop("bad.toml");
    Comes([&] { return frame->Start->Reason.utf8_string(); }, HasSubstr("bad.toml:2:1"));
    std::ofstream("good.toml") << "scenario = 1\nconsole = { model = 12336 }\n";
    Drop("good.toml");
    Comes(Title(), "Orvane150 (good.toml) – orvane-panel");
    Drop("bad.toml");
    ASSERT_TRUE(Until([&] { return frame->Start != nullptr; }));
    unsetenv("ORVANE_FAULT");
    wxCommandEvent again(wxEVT_BUTTON, wxID_REFRESH);
    frame->Start->Bar->ProcessWindowEvent(again);
    EXPECT_TRUE(Until([&] { return frame->HasConsole(); }));
}

TEST_F(PanelStart, SaysWhichAdaptersLeft) {
    std::ofstream("pulled.toml")
        << "scenario = 1\n"
           "[adapter.a]\nname = \"A\"\nconnector = 1\nreference = 1\n"
           "[[adapter.a.channel]]\nname = \"Ampère\"\ncalibres = [[0, 1]]\n"
           "[adapter.b]\nname = \"B\"\nconnector = 2\nreference = 2\n"
           "[[adapter.b.channel]]\nname = \"Bar\"\ncalibres = [[0, 1]]\n"
           "[timeline]\n\"0.3\" = [{ unplug = \"b\" }]\n";
    Open({.Library = "", .Language = "en", .Scenario = "pulled.toml"});
    const auto message = [&] {
        return frame->MessageBar->IsShown() ? frame->Said().utf8_string() : "";
    };
    Comes(message, "Bar (2.0) left.");
    EXPECT_EQ(Show<AcquisitionPage>("Acquisition")->Table->GetItemCount(), 1);
}

TEST_F(PanelStart, RemembersWhatTheUserArranged) {
    UseHabits();
    Open({.Library = "", .Language = "en", .Scenario = "radio"});
    const auto splitter = [&] {
        return dynamic_cast<wxSplitterWindow*>(frame->PageOf("Acquisition")->GetChildren()[0]);
    };
    frame->SetSize(1100, 700);
    splitter()->SetSashPosition(420);
    Show<AcquisitionPage>("Acquisition")->Table->CheckItem(2, false);
    ChannelSetup setup;
    setup.Unit = "mol";
    frame->Driver().SetUp(1, setup);
    Press('2', wxMOD_CONTROL);
    EXPECT_EQ(frame->CurrentPage(), frame->PageOf("Radio"));

    CloseAndOpen("radio");
    EXPECT_EQ(frame->GetSize(), wxSize(1100, 700));
    EXPECT_EQ(frame->CurrentPage(), frame->PageOf("Radio"));
    Press('1', wxMOD_CONTROL);
    EXPECT_EQ(splitter()->GetSashPosition(), 420);
    EXPECT_THAT(Show<AcquisitionPage>("Acquisition")->Table->Checked(), ElementsAre(0, 1, 3));
    EXPECT_EQ(frame->Driver().Channels.at(1).Unit, "mol");

    // Another console has its own places.
    CloseAndOpen("school");
    EXPECT_NE(frame->Driver().Channels.at(1).Unit, "mol");
    NoteRecentFile("one.csv");
    NoteRecentFile("two.csv");
    NoteRecentFile("one.csv");
    EXPECT_THAT(RecentFiles(),
                ElementsAre(wxString(std::filesystem::absolute("one.csv").string()),
                            wxString(std::filesystem::absolute("two.csv").string())));
    delete wxConfigBase::Set(nullptr);
}

} // namespace
