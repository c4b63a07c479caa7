// The window of the panel: what the driver says, its language, why it does not open.

#include "hosts/panel/acquisition_page.h"
#include "tests/hosts/file_content.h"
#include "tests/hosts/panel_fixture.h"

#include <wx/infobar.h>
#include <wx/menu.h>

using namespace orvane;
using namespace testing;

namespace {

TEST_F(Panel, TakesTheMessagesOfTheDriverInABar) {
    Open();
    const auto said = ElementsAre(
        wxString::FromUTF8("Erreur pendant la lecture dans la mémoire de la console !!!"));
    const wxInfoBar& bar = *frame->MessageBar;
    EXPECT_TRUE(bar.IsShown());
    const DriverTurn turn(frame->Driver());
    turn->GetSerialNumber(); // Says the same.
    EXPECT_THAT(frame->Messages(), said);
    ClickAt(bar.GetScreenRect().GetTopRight() + wxSize(-20, bar.GetSize().y / 2));
    EXPECT_TRUE(Until([&] { return !bar.IsShown(); }));
    EXPECT_THAT(frame->Messages(), IsEmpty());
    turn->GetSerialNumber();
    EXPECT_THAT(frame->Messages(), said);
    EXPECT_TRUE(bar.IsShown());
    EXPECT_THAT(asked, IsEmpty());
    wxMessageBox("Sure?", "Orvane", wxYES_NO, frame);
    EXPECT_THAT(asked, ElementsAre("Sure?"));
}

TEST_F(Panel, ChangesItsLanguage) {
    Open();
    ActUntil(wxEVT_MENU_OPEN, [&] { mouse.Char('V', wxMOD_ALT); });
    mouse.Char('L');
    mouse.Char('F');
    Comes([&] { return frame->GetMenuBar()->GetMenuLabelText(0); }, "Fichier");
    Settle();
    const auto& page = *Show<AcquisitionPage>("Acquisition");
    wxListItem title;
    title.SetMask(wxLIST_MASK_TEXT);
    page.Table->GetColumn(0, title);
    EXPECT_EQ(title.GetText(), "Voie");
    EXPECT_THAT(frame->Messages(), SizeIs(1));
    EXPECT_THAT(asked, IsEmpty());
    Write(page.Fields->Period, "1 min");
    Comes([&] { return page.Fields->Period->Message->GetLabelText().utf8_string(); },
          EndsWith("Pas un nombre : 1 min"));
}

TEST(PanelProgram, SaysInOneSentenceWhyThereIsNoWindow) {
    fs::current_path(std::getenv("HOME"));
    const std::string program = " LSAN_OPTIONS=detect_leaks=0 " PANEL_PROGRAM " --lang en ";
    for (const auto& [command, sentence] :
         {std::pair{"-u DISPLAY" + program,
                    "There is no display to open a window on: DISPLAY is not set"},
          {"DISPLAY=:77" + program, "The display :77 cannot be opened"},
          {program + "--library /nowhere.so", "The driver library cannot be loaded: [^\n]*"}}) {
        const int status =
            std::system(("env -u WAYLAND_DISPLAY " + command + " 2>complaint").c_str());
        EXPECT_EQ(WEXITSTATUS(status), 1) << command;
        EXPECT_THAT(Content("complaint"),
                    MatchesRegex(std::string("orvane-panel: ") + sentence + "\\.?\n"));
    }
}

} // namespace
