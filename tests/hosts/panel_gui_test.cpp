// The window of the panel, worked with by clicks and keys.

#include "hosts/panel/catalogue.h"
#include "hosts/panel/panel_frame.h"
#include "hosts/session/run_follower.h"

#include <wx/app.h>
#include <wx/evtloop.h>
#include <wx/image.h>
#include <wx/infobar.h>
#include <wx/modalhook.h>
#include <wx/msgdlg.h>
#include <wx/timer.h>
#include <wx/uiaction.h>

#include <gmock/gmock.h>

#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <semaphore>
#include <set>
#include <sstream>
#include <utility>

using namespace orvane;

namespace {

using testing::DoubleNear;
using testing::Each;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using testing::StartsWith;

/// Answers a message at once and notes it. In a file dialog, takes the name that it offers.
class Dialogs : public wxModalDialogHook {
public:
    Dialogs() {
        Register();
        timer.Bind(wxEVT_TIMER, [this](wxTimerEvent&) {
            if (wxDialog* dialog = std::exchange(shown, nullptr)) {
                dialog->Raise();
            } else {
                wxUIActionSimulator().Char(WXK_RETURN);
            }
        });
    }
    std::vector<std::string> Messages;

protected:
    int Enter(wxDialog* dialog) override {
        if (auto* box = dynamic_cast<wxMessageDialog*>(dialog)) {
            Messages.push_back(box->GetMessage().utf8_string());
            return wxID_OK;
        }
        shown = dialog;
        timer.Start(300);
        return wxID_NONE;
    }
    void Exit(wxDialog* /*dialog*/) override {
        timer.Stop();
    }

private:
    wxDialog* shown = nullptr; ///< A file dialog that has not been raised yet.
    wxTimer timer;
};

class Panel : public testing::Test {
protected:
    Panel() {
        // In place of a box that nobody closes.
        wxSetAssertHandler([](const wxString& file, int line, const wxString& /*function*/,
                              const wxString& condition, const wxString& /*message*/) {
            ADD_FAILURE() << file << ":" << line << ": " << condition;
        });
    }
    void Open(const DriverOptions& options = {.Library = "", .Language = "en"}) {
        UseLanguage(options.Language);
        ShowPanel(options);
        Take();
    }
    void Take() {
        frame = dynamic_cast<PanelFrame*>(wxTheApp->GetTopWindow());
        frame->Move(0, 0);
        frame->Raise();
        ASSERT_TRUE(Until([&] { return frame->StripChartView->CurveArea().width > 0; }));
    }
    void TearDown() override {
        if (frame != nullptr) {
            frame->Destroy();
            frame = nullptr;
        }
        loop.ProcessIdle();
    }

    /// Lets the window work until something holds. \return whether it came to hold
    template <class Condition> static bool Until(const Condition& holds) {
        const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(20);
        while (!holds() && std::chrono::steady_clock::now() < end) {
            wxTheApp->Yield();
            wxMilliSleep(2);
        }
        return holds();
    }
    static void Settle() {
        const auto end = std::chrono::steady_clock::now() + std::chrono::milliseconds(150);
        Until([&] { return std::chrono::steady_clock::now() > end; });
    }

    void Click(const wxWindow* window) {
        ClickAt(window->GetScreenRect().GetTopLeft() +
                wxSize(window->GetSize().x / 2, window->GetSize().y / 2));
    }
    void ClickAt(const wxPoint& place) {
        mouse.MouseMove(place);
        Settle();
        mouse.MouseClick();
        Settle();
    }
    void Press(int key, int modifiers = wxMOD_NONE) {
        mouse.Char(key, modifiers);
        Settle();
    }
    /// Puts a text in place of that of a field, and ends with Tab.
    void Write(wxWindow* field, const char* text) {
        Click(field);
        Press('A', wxMOD_CONTROL);
        mouse.Text(text);
        Press(WXK_TAB);
    }
    std::string Cell(long row, int column) const {
        return frame->Table->GetItemText(row, column).utf8_string();
    }
    std::string Status() const {
        wxString status = frame->Form->Status->GetLabelText();
        status.Replace("\n", " ");
        return status.utf8_string();
    }
    bool Running() const {
        return frame->Form->Stop->IsEnabled();
    }
    /// A place in the curves of the run, as parts of their area.
    wxPoint InCurves(double x, double y) const {
        const wxRect area = frame->RunView->CurveArea();
        return frame->RunView->ClientToScreen(
            wxPoint(area.x + wxRound(x * area.width), area.y + wxRound(y * area.height)));
    }

    wxGUIEventLoop loop;
    wxEventLoopActivator active{&loop};
    Dialogs dialogs;
    wxUIActionSimulator mouse;
    PanelFrame* frame = nullptr;
};

TEST_F(Panel, ShowsTheChannelsAndSetsThem) {
    Open();
    EXPECT_EQ(Cell(0, 0), "Voltmètre");
    EXPECT_EQ(Cell(0, 3), "-12 … 12");
    EXPECT_TRUE(Until([&] { return !Cell(1, 1).empty(); }));

    Click(frame->Settings->Calibre);
    Press(WXK_DOWN);
    Press(WXK_RETURN);
    EXPECT_EQ(Cell(0, 3), "-24 … 24");
    Write(frame->Settings->Ampli, "2");
    Write(frame->Settings->Offset, "0,5");
    EXPECT_EQ(Cell(0, 3), "-47.5 … 48.5");
    Write(frame->Settings->Offset, "x");
    EXPECT_EQ(frame->Settings->Offset->GetValue(), "0.5");

    // A number that is still being written counts for its channel.
    Click(frame->Settings->Offset);
    mouse.Text("1");
    ClickAt(frame->Table->ClientToScreen(wxPoint(60, 60)));
    EXPECT_EQ(Cell(0, 3), "-47.49 … 48.51");
    EXPECT_EQ(frame->Settings->Ampli->GetValue(), "1");
    EXPECT_EQ(frame->Settings->Calibre->GetStringSelection(), "1A");
}

TEST_F(Panel, RunsToTheEndAndSaves) {
    Open();
    Write(frame->Form->Points, "200");
    Click(frame->Form->Start);
    EXPECT_TRUE(Until([&] { return !Running(); }));
    EXPECT_EQ(Status(), "Complete: 200 of 200 points");
    Settle();

    const PlotView& view = *frame->RunView;
    mouse.MouseMove(InCurves(0.25, 0.5));
    Settle();
    mouse.MouseMove(InCurves(0.2525, 0.5));
    Settle();
    EXPECT_THAT(frame->Readout->GetLabelText().utf8_string(),
                testing::MatchesRegex("t = 0.05[01]? s +Voltmètre .* V +Ampèremetre .* A"));
    mouse.MouseDragDrop(InCurves(0.25, 0.5).x, InCurves(0.25, 0.5).y, InCurves(0.75, 0.5).x,
                        InCurves(0.75, 0.5).y);
    ASSERT_TRUE(Until([&] { return view.Zoom().has_value(); }));
    EXPECT_NEAR(view.Zoom()->From, 0.05, 0.001);
    EXPECT_NEAR(view.Zoom()->To, 0.15, 0.001);
    Press('+');
    EXPECT_NEAR(view.Zoom()->To - view.Zoom()->From, 0.08, 0.001);

    std::filesystem::current_path(std::getenv("HOME"));
    Press('S', wxMOD_CONTROL);
    std::ifstream csv("acquisition.csv");
    std::string line;
    std::getline(csv, line);
    EXPECT_EQ(line, "time (s),Voltmètre (V),Ampèremetre (A)");
    size_t rows = 0;
    while (std::getline(csv, line)) {
        EXPECT_THAT(line, StartsWith(rows == 3 ? "0.003," : "0"));
        ++rows;
    }
    EXPECT_EQ(rows, 200);
    Press('P', wxMOD_CONTROL);
    wxImage::AddHandler(new wxPNGHandler); // NOLINT: the toolkit owns it.
    const wxImage picture("acquisition.png", wxBITMAP_TYPE_PNG);
    EXPECT_EQ(picture.GetSize(), wxSize(1600, FileHeight(2)));

    mouse.MouseDblClick();
    EXPECT_TRUE(Until([&] { return !view.Zoom(); }));
    EXPECT_THAT(dialogs.Messages, IsEmpty());
}

TEST_F(Panel, StartsEachRunAfresh) {
    Open();
    const auto run = [&] {
        Click(frame->Form->Start);
        Until([&] { return !Running(); });
        EXPECT_EQ(Status(), "Complete: 1000 of 1000 points");
        return frame->LastRun()->Followed.Recording.Live[1];
    };
    // One value for each look at the run, and one in all if it was full before the first look.
    const auto values = [](const Samples& samples) {
        return std::set(samples.begin(), samples.end()).size();
    };
    EXPECT_GT(values(run()), 5);
    EXPECT_GT(values(run()), 5);
    frame->Driver().StartAcquisitionPortimetre(1); // It takes the console's clock for itself.
    EXPECT_GT(values(run()), 5);

    ClickAt(frame->Table->ClientToScreen(wxPoint(60, 60)));
    Click(frame->Settings->Calibre);
    Press(WXK_DOWN);
    Press(WXK_RETURN);
    Write(frame->Settings->Offset, "1000");
    EXPECT_THAT(run(),
                testing::AllOf(Each(DoubleNear(1001.0, 1.0)), Not(Each(DoubleNear(1000.5, 0.5)))));
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
    EXPECT_THAT(dialogs.Messages, IsEmpty());
    wxMessageBox("Sure?", "Orvane", wxYES_NO, frame);
    EXPECT_THAT(dialogs.Messages, ElementsAre("Sure?"));
}

TEST_F(Panel, BeginsARunWithTheNumberThatIsBeingWritten) {
    Open();
    Write(frame->Form->Points, "50");
    Click(frame->Settings->Offset);
    Press('A', wxMOD_CONTROL);
    mouse.Text("1000");
    Press('S', wxMOD_ALT);
    ASSERT_TRUE(Until([&] { return Status() == "Complete: 50 of 50 points"; }));
    for (const double x : {0.25, 0.26}) {
        mouse.MouseMove(InCurves(x, 0.5));
        Settle();
    }
    EXPECT_THAT(frame->Readout->GetLabelText().utf8_string(),
                testing::ContainsRegex("Voltmètre (99|100|101)[0-9]"));
}

TEST_F(Panel, StopsARunAndEndsOneByClosing) {
    Open();
    Write(frame->Form->Points, "1000000");
    Click(frame->Form->Start);
    EXPECT_TRUE(Running());
    EXPECT_FALSE(frame->Settings->IsEnabled());
    EXPECT_TRUE(Until([&] { return frame->Form->Status->GetLabelText()[0] != '0'; }));
    Click(frame->Form->Stop);
    EXPECT_FALSE(Running());
    EXPECT_THAT(Status(), testing::MatchesRegex("Stopped: [1-9][0-9]* of 1000000 points"));
    Press(WXK_SPACE); // The start has the focus.
    EXPECT_TRUE(Running());
    frame->Close();
    frame = nullptr;
}

TEST_F(Panel, ChangesItsLanguage) {
    Open();
    Press('L', wxMOD_ALT);
    Press('F');
    ASSERT_TRUE(Until([&] { return wxTheApp->GetTopWindow() != frame; }));
    Take();
    wxListItem title;
    title.SetMask(wxLIST_MASK_TEXT);
    frame->Table->GetColumn(0, title);
    EXPECT_EQ(title.GetText(), "Voie");
    EXPECT_THAT(frame->Messages(), testing::SizeIs(1));
    EXPECT_THAT(dialogs.Messages, IsEmpty());
    Write(frame->Form->Period, "1 min");
    Click(frame->Form->Start);
    EXPECT_EQ(Status(), "La période « 1min » n'est pas une durée telle que 1ms, 100us ou 0.5s.");
}

TEST_F(Panel, TellsWhatTheConsoleCannotDo) {
    Open();
    Click(frame->Form->Trigger);
    Write(frame->Form->TriggerLevel, "99");
    Click(frame->Form->Start);
    EXPECT_EQ(Status(), "The trigger level 99 lies outside the range of channel 0, -12 … 12 V.");
    Write(frame->Form->TriggerLevel, "1.5");
    Write(frame->Form->Period, "1 us");
    Click(frame->Form->Start);
    EXPECT_THAT(Status(), HasSubstr("lies outside what the console can do, 100 µs to"));
}

TEST_F(Panel, EnumeratesAnewWhenTheAdaptersChange) {
    Open({.Library = FAULTY_DRIVER, .Language = "en"});
    Write(frame->Form->Points, "100000");
    Click(frame->Form->Start);
    EXPECT_TRUE(Until([&] { return !Running(); }));
    EXPECT_THAT(Status(), StartsWith("The adapters of the console changed: "));
    EXPECT_TRUE(Until([&] { return !Cell(1, 1).empty(); }));
}

TEST(PanelProgram, SaysInOneSentenceWhyThereIsNoWindow) {
    const auto complaint = [](const std::string& before, const std::string& arguments) {
        const std::string file = std::string(std::getenv("HOME")) + "/complaint";
        const std::string command = "env -u WAYLAND_DISPLAY " + before +
                                    " LSAN_OPTIONS=detect_leaks=0"
                                    " " PANEL_PROGRAM " --lang en " +
                                    arguments + " 2>" + file;
        EXPECT_EQ(WEXITSTATUS(std::system(command.c_str())), 1) << command;
        std::ostringstream text;
        text << std::ifstream(file).rdbuf();
        return text.str();
    };
    EXPECT_EQ(complaint("-u DISPLAY", ""),
              "orvane-panel: There is no display to open a window on: DISPLAY is not set.\n");
    EXPECT_EQ(complaint("DISPLAY=:77", ""), "orvane-panel: The display :77 cannot be opened.\n");
    EXPECT_THAT(
        complaint("", "--library /nowhere.so"),
        testing::MatchesRegex("orvane-panel: The driver library cannot be loaded: [^\n]*\n"));
    EXPECT_EQ(complaint("ORVANE_FAULT=start", "--library " FAULTY_DRIVER),
              "orvane-panel: The driver cannot open its console.\n");
}

size_t Reads = 0;

std::binary_semaphore StopMayEnd{0};

/// A driver whose run is full from the start, and whose stop takes its time.
DriverExports FullDriver() {
    DriverExports driver;
    driver.GetNbPointPreSynchro = [] { return uint32_t{0}; };
    driver.InitAcqBuff = [](double dtSec, int32_t, uint32_t, uint8_t) { return dtSec; };
    driver.StartAcqBuff = [](uint8_t, uint8_t, double, int32_t) {};
    driver.StopAcqBuff = [] { StopMayEnd.acquire(); };
    driver.TestFinAcq = [] { return true; };
    driver.TestNombreDePointAcqui = [] { return 200'000; };
    driver.VerifCanaux = [] { return true; };
    driver.RecuperationPoint = [](int32_t voie, uint32_t point) {
        ++Reads;
        return point % 1000 == 500 ? 7.0 + voie : 0.0;
    };
    return driver;
}

TEST(ShownRun, TakesBoundedStepsAndLosesNoPeak) {
    const DriverExports driver = FullDriver();
    AcquisitionRequest request;
    request.PeriodSec = 1e-3;
    request.Points = 100'000;
    request.Channels = {0, 1};
    ShownRun run(driver, request, {ChannelInfo{}, ChannelInfo{}});
    bool waited = false;
    while (run.Followed.Now != FollowedRun::Phase::Ended) {
        Reads = 0;
        Step(run, 1000);
        ASSERT_LE(Reads, 1000);
        if (!waited && run.Followed.Now == FollowedRun::Phase::Fetching) {
            EXPECT_TRUE(IsBusy(run.Followed)) << "no step waits for the driver";
            EXPECT_EQ(Step(run, 1000), 0U);
            waited = true;
            StopMayEnd.release();
        }
    }
    EXPECT_THAT(run.Followed.Recording.Fetched, Each(testing::SizeIs(100'000)));
    // One step of the picture holds one peak.
    const PlotPicture picture = PictureOf(run, std::nullopt, 200);
    ASSERT_THAT(picture.Panels, testing::SizeIs(2));
    EXPECT_THAT(picture.Panels[1].Curve.Values, testing::SizeIs(200));
    EXPECT_EQ(std::ranges::count(picture.Panels[1].Curve.Values, 8.0), 100);
    EXPECT_EQ(PointAt(run, 3.4996)->Values, (std::vector<double>{7.0, 8.0}));
}

/// Saves what a window looks like, in few colours, with ImageMagick.
void SavePicture(const wxWindow& window, const std::string& file) {
    const wxRect place = window.GetScreenRect();
    const wxString command = wxString::Format(
        "import -window root -crop %dx%d+%d+%d +repage +dither -colors 64 png8:", place.width,
        place.height, place.x, place.y);
    // The window goes on meanwhile.
    EXPECT_EQ(std::system((command.utf8_string() + file + " &").c_str()), 0);
}

TEST_F(Panel, TakesItsPictures) {
    const char* folder = std::getenv("ORVANE_PICTURES");
    if (folder == nullptr) {
        GTEST_SKIP() << "ORVANE_PICTURES names no folder.";
    }
    const auto wait = [](int seconds) {
        const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(seconds);
        Until([&] { return std::chrono::steady_clock::now() > end; });
    };
    const auto save = [&](const char* name) {
        SavePicture(*frame, std::string(folder) + "/panel-" + name + ".png");
    };
    Open();
    wait(12);
    save("idle");
    wait(1);
    frame->DriverBar->Dismiss();
    Write(frame->Form->Period, "2 ms");
    Write(frame->Form->Points, "2000");
    Click(frame->Form->Start);
    wait(2);
    save("running");
    Until([&] { return !Running(); });
    mouse.MouseDragDrop(InCurves(0.5, 0.5).x, InCurves(0.5, 0.5).y, InCurves(0.6, 0.5).x,
                        InCurves(0.6, 0.5).y);
    mouse.MouseMove(InCurves(0.4, 0.5));
    Settle();
    mouse.MouseMove(InCurves(0.41, 0.5));
    wait(1);
    save("zoomed");
    wait(3);
}

} // namespace
