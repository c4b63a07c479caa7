// The window of the panel: its channels and their settings, what the driver says, its language.

#include "tests/hosts/file_content.h"
#include "tests/hosts/panel_fixture.h"

#include <wx/infobar.h>

using namespace orvane;
using namespace testing;

namespace {

TEST_F(Panel, ShowsTheChannelsAndSetsThem) {
    Open();
    EXPECT_EQ(Cell(0, 0)(), "Voltmètre");
    EXPECT_EQ(Cell(0, 3)(), "-12 … 12");
    Comes(Cell(1, 1), Not(IsEmpty()));

    ChooseNextCalibre();
    Comes(Cell(0, 3), "-24 … 24");
    Write(frame->Settings->Ampli, "2");
    Write(frame->Settings->Offset, "0,5");
    Comes(Cell(0, 3), "-47.5 … 48.5");
    Write(frame->Settings->Offset, "x");
    Comes([&] { return frame->Settings->Offset->GetValue(); }, "0.5");

    // A number that is still being written counts for its channel.
    Click(frame->Settings->Offset);
    mouse.Text("1");
    SelectSecondChannel();
    Comes(Cell(0, 3), "-47.49 … 48.51");
    EXPECT_EQ(frame->Settings->Ampli->GetValue(), "1");
    EXPECT_EQ(frame->Settings->Calibre->GetStringSelection(), "1A");
}

TEST_F(Panel, TakesTheMessagesOfTheDriverInABar) {
    Open();
    const auto said = ElementsAre(
        wxString::FromUTF8("Erreur pendant la lecture dans la mémoire de la console !!!"));
    const wxInfoBar& bar = *frame->DriverBar;
    EXPECT_TRUE(bar.IsShown());
    frame->Driver().GetSerialNumber(); // Says the same.
    EXPECT_THAT(frame->Messages(), said);
    ClickAt(bar.GetScreenRect().GetTopRight() + wxSize(-20, bar.GetSize().y / 2));
    EXPECT_TRUE(Until([&] { return !bar.IsShown(); }));
    EXPECT_THAT(frame->Messages(), IsEmpty());
    frame->Driver().GetSerialNumber();
    EXPECT_THAT(frame->Messages(), said);
    EXPECT_TRUE(bar.IsShown());
    EXPECT_THAT(asked, IsEmpty());
    wxMessageBox("Sure?", "Orvane", wxYES_NO, frame);
    EXPECT_THAT(asked, ElementsAre("Sure?"));
}

TEST_F(Panel, ChangesItsLanguage) {
    Open();
    ActUntil(wxEVT_MENU_OPEN, [&] { mouse.Char('L', wxMOD_ALT); });
    mouse.Char('F');
    ASSERT_TRUE(Until([&] { return wxTheApp->GetTopWindow() != frame; }));
    Take();
    wxListItem title;
    title.SetMask(wxLIST_MASK_TEXT);
    frame->Table->GetColumn(0, title);
    EXPECT_EQ(title.GetText(), "Voie");
    EXPECT_THAT(frame->Messages(), SizeIs(1));
    EXPECT_THAT(asked, IsEmpty());
    Write(frame->Form->Period, "1 min");
    Click(frame->Form->Start);
    Comes(Status(), "La période « 1min » n'est pas une durée telle que 1ms, 100us ou 0.5s.");
}

TEST_F(Panel, TellsWhatTheConsoleCannotDo) {
    Open();
    Click(frame->Form->Trigger);
    Write(frame->Form->TriggerLevel, "99");
    Click(frame->Form->Start);
    Comes(Status(), "The trigger level 99 lies outside the range of channel 0, -12 … 12 V.");
    Write(frame->Form->TriggerLevel, "1,5");
    frame->Form->TriggerEdge->SetSelection(1);
    const auto trigger = frame->Form->Request().Trigger;
    EXPECT_EQ(trigger->Level, 1.5);
    EXPECT_FALSE(trigger->Rising);
    Write(frame->Form->Period, "1 us");
    Click(frame->Form->Start);
    Comes(Status(), HasSubstr("lies outside what the console can do, 100 µs to"));
}

TEST(PanelProgram, SaysInOneSentenceWhyThereIsNoWindow) {
    fs::current_path(std::getenv("HOME"));
    const std::string program = " LSAN_OPTIONS=detect_leaks=0 " PANEL_PROGRAM " --lang en ";
    for (const auto& [command, sentence] :
         {std::pair{"-u DISPLAY" + program,
                    "There is no display to open a window on: DISPLAY is not set"},
          {"DISPLAY=:77" + program, "The display :77 cannot be opened"},
          {program + "--library /nowhere.so", "The driver library cannot be loaded: [^\n]*"},
          {"ORVANE_FAULT=start" + program + "--library " FAULTY_DRIVER,
           "The driver cannot open its console"}}) {
        const int status =
            std::system(("env -u WAYLAND_DISPLAY " + command + " 2>complaint").c_str());
        EXPECT_EQ(WEXITSTATUS(status), 1) << command;
        EXPECT_THAT(Content("complaint"),
                    MatchesRegex(std::string("orvane-panel: ") + sentence + "\\.?\n"));
    }
}

} // namespace
