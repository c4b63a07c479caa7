// Runs in the window of the panel: started and stopped, followed, looked at and saved.

#include "hosts/panel/acquisition_page.h"
#include "tests/hosts/file_content.h"
#include "tests/hosts/panel_fixture.h"

#include <wx/image.h>

using namespace orvane;
using namespace testing;

namespace {

class PanelRun : public Panel {
protected:
    void OpenPage(const DriverOptions& options = {.Library = "", .Language = "en"}) {
        Open(options);
        page = Show<AcquisitionPage>("Acquisition");
    }
    /// A place in the curves, as parts of the area of the first lane.
    wxPoint InCurves(double x, double y = 0.5) const {
        const ChartArea& area = page->Curves->Areas().at(0);
        return page->Curves->ClientToScreen(
            wxPoint(wxRound(area.Left + x * (area.Right - area.Left)),
                    wxRound(area.Top + y * (area.Bottom - area.Top))));
    }
    void MoveTo(const wxPoint& place) {
        ActUntil(wxEVT_MOTION, [&] { mouse.MouseMove(place); });
    }
    void Drag(const wxPoint& from, const wxPoint& to) {
        mouse.MouseDragDrop(from.x, from.y, to.x, to.y);
    }
    auto Readout() const {
        return [this] { return page->Readout().utf8_string(); };
    }
    bool Running() const {
        return page->IsMeasuring();
    }
    /// How many different values the run gave of the second channel.
    size_t RunToTheEnd() {
        Press(WXK_F6);
        Comes(Status(), "Done: 200 of 200 points");
        const Samples& live = page->LastRun()->Followed.Recording.Live[1];
        return std::set(live.begin(), live.end()).size();
    }

    AcquisitionPage* page = nullptr;
};

TEST_F(PanelRun, RunsToTheEndAndSaves) {
    OpenPage();
    Write(page->Fields->Points, "200");
    RunToTheEnd();

    const ChartView& view = *page->Curves;
    ASSERT_TRUE(Until([&] { return !view.Areas().empty(); }));
    MoveTo(InCurves(0.25));
    MoveTo(InCurves(0.2525));
    Comes(Readout(), MatchesRegex("t .*   1: .* V   2: .* A"));
    Drag(InCurves(0.25), InCurves(0.75));
    ASSERT_TRUE(Until([&] { return view.Zoom().X.has_value(); }));
    EXPECT_NEAR(view.Zoom().X->From, 0.05, 0.001);
    EXPECT_NEAR(view.Zoom().X->To, 0.15, 0.001);
    Press('+');
    Comes([&] { return view.Zoom().X->To - view.Zoom().X->From; }, DoubleNear(0.08, 0.001));
    const std::string before = Readout()();
    Press(WXK_LEFT, wxMOD_SHIFT);
    Comes(Readout(), Not(before));
    Press(WXK_RIGHT, wxMOD_SHIFT);
    Comes(Readout(), before);

    std::filesystem::current_path(std::getenv("HOME"));
    Press('S', wxMOD_CONTROL);
    EXPECT_THAT(Lines(Content("acquisition.csv")),
                AllOf(SizeIs(201), Contains("time (s),Voltmètre (V),Ampèremetre (A)"),
                      Contains(StartsWith("0.199,"))));
    Press('P', wxMOD_CONTROL);
    wxImage::AddHandler(new wxPNGHandler); // NOLINT: the toolkit owns it.
    EXPECT_EQ(wxImage("acquisition.png").GetSize(), wxSize(1600, 960));

    mouse.MouseDblClick();
    EXPECT_TRUE(Until([&] { return !view.Zoom().X; }));
    EXPECT_THAT(asked, IsEmpty());
}

TEST_F(PanelRun, StartsEachRunAfresh) {
    OpenPage();
    page->Fields->Points->SetValue(200);
    page->Fields->Period->ChangeValue("3 ms"); // Long enough for some looks, also with a sanitizer.
    // One value for each look at the run, and one in all if it was full before the first look.
    EXPECT_GT(RunToTheEnd(), 3);
    EXPECT_GT(RunToTheEnd(), 3);
    {
        const DriverTurn turn(frame->Driver());
        turn->StartAcquisitionPortimetre(1); // It takes the console's clock for itself.
    }
    EXPECT_GT(RunToTheEnd(), 3);
}

TEST_F(PanelRun, StopsAndEndsByClosing) {
    OpenPage();
    page->Fields->Points->SetValue(1'000'000);
    Press(WXK_F6);
    EXPECT_TRUE(
        Until([&] { return Running() && !page->LastRun()->Followed.Recording.Live[0].empty(); }));
    EXPECT_FALSE(page->Fields->Period->IsEnabled());
    Press(WXK_ESCAPE);
    Comes(Status(), MatchesRegex("Stopped: [1-9][0-9]* of 1000000 points"));
    EXPECT_FALSE(Running());
    Press(WXK_F5);
    EXPECT_TRUE(Until([&] { return Running(); }));
    frame->Close(true);
    frame = nullptr;
}

TEST_F(PanelRun, EnumeratesAnewWhenTheAdaptersChange) {
    OpenPage({.Library = FAULTY_DRIVER, .Language = "en"});
    page->Fields->Points->SetValue(100'000);
    Press(WXK_F6);
    Comes(Status(), StartsWith("The adapters of the console changed: "));
    Comes(Cell(page->Table, 1, 2), Not(IsEmpty()));
}

TEST_F(PanelRun, TellsWhatTheConsoleCannotDo) {
    OpenPage();
    Click(page->Fields->Trigger);
    Write(page->Fields->TriggerLevel, "99");
    Press(WXK_F6);
    Comes(Status(), HasSubstr("The trigger level 99 lies outside the range of channel 0"));
    Write(page->Fields->TriggerLevel, "1,5");
    page->Fields->TriggerEdge->SetSelection(1);
    const auto trigger = page->Fields->Request()->Trigger;
    EXPECT_EQ(trigger->Level, 1.5);
    EXPECT_FALSE(trigger->Rising);
    Write(page->Fields->Period, "1 us");
    Press(WXK_F6);
    Comes(Status(), HasSubstr("lies outside what the console can do, 100 µs to"));
}

TEST_F(PanelRun, TakesItsPictures) {
    const char* folder = std::getenv("ORVANE_PICTURES");
    if (folder == nullptr) {
        GTEST_SKIP() << "ORVANE_PICTURES names no folder.";
    }
    const auto wait = [](int seconds) {
        Until([] { return false; }, std::chrono::seconds(seconds));
    };
    const auto save = [&](const std::string& name) {
        const wxSize size = frame->GetSize(); // It lies in the corner, and goes on meanwhile.
        const std::string command = "import -window root -crop " + std::to_string(size.x) + "x" +
                                    std::to_string(size.y) + "+0+0 +repage +dither -colors 64 ";
        EXPECT_EQ(std::system((command + "png8:" + folder + "/panel-" + name + ".png &").c_str()),
                  0);
        wait(1);
    };
    OpenPage();
    wait(12);
    save("idle");
    frame->MessageBar->Dismiss();
    Write(page->Fields->Period, "2 ms");
    Write(page->Fields->Points, "2000");
    Press(WXK_F6);
    wait(2);
    save("running");
    Until([&] { return !Running(); });
    Drag(InCurves(0.5), InCurves(0.6));
    MoveTo(InCurves(0.4));
    MoveTo(InCurves(0.41));
    wait(1);
    save("zoomed");
}

} // namespace
