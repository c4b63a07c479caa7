// Runs in the window of the panel: started and stopped, followed, looked at and saved.

#include "tests/hosts/file_content.h"
#include "tests/hosts/panel_fixture.h"

#include <wx/image.h>

using namespace orvane;
using namespace testing;

namespace {

class PanelRun : public Panel {
protected:
    /// A place in the curves of the run, as parts of their area.
    wxPoint InCurves(double x, double y = 0.5) const {
        const wxRect area = frame->RunView->CurveArea();
        return frame->RunView->ClientToScreen(
            wxPoint(area.x + wxRound(x * area.width), area.y + wxRound(y * area.height)));
    }
    void MoveTo(const wxPoint& place) {
        ActUntil(wxEVT_MOTION, [&] { mouse.MouseMove(place); });
    }
    void Drag(double from, double to) {
        mouse.MouseDragDrop(InCurves(from).x, InCurves(from).y, InCurves(to).x, InCurves(to).y);
    }
    auto Readout() const {
        return [this] { return frame->Readout->GetLabelText().utf8_string(); };
    }
    /// How many different values the run gave of the second channel.
    size_t RunToTheEnd() {
        Click(frame->Form->Start);
        Comes(Status(), "Complete: 200 of 200 points");
        const Samples& live = frame->LastRun()->Followed.Recording.Live[1];
        return std::set(live.begin(), live.end()).size();
    }
};

TEST_F(PanelRun, RunsToTheEndAndSaves) {
    Open();
    Write(frame->Form->Points, "200");
    RunToTheEnd();

    const PlotView& view = *frame->RunView;
    ASSERT_TRUE(Until([&] { return view.CurveArea().width > 0; }));
    MoveTo(InCurves(0.25));
    MoveTo(InCurves(0.2525));
    Comes(Readout(), MatchesRegex("t = 0.05[01]? s +Voltmètre .* V +Ampèremetre .* A"));
    Drag(0.25, 0.75);
    ASSERT_TRUE(Until([&] { return view.Zoom().has_value(); }));
    EXPECT_NEAR(view.Zoom()->From, 0.05, 0.001);
    EXPECT_NEAR(view.Zoom()->To, 0.15, 0.001);
    Press('+');
    Comes([&] { return view.Zoom()->To - view.Zoom()->From; }, DoubleNear(0.08, 0.001));
    const std::string before = Readout()();
    Press(WXK_LEFT);
    Comes(Readout(), Not(before));
    Press(WXK_RIGHT);
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
    EXPECT_TRUE(Until([&] { return !view.Zoom(); }));
    EXPECT_THAT(asked, IsEmpty());
}

TEST_F(PanelRun, StartsEachRunAfresh) {
    Open();
    frame->Form->Points->SetValue(200);
    frame->Form->Period->ChangeValue("3 ms"); // Long enough for some looks, also with a sanitizer.
    // One value for each look at the run, and one in all if it was full before the first look.
    EXPECT_GT(RunToTheEnd(), 3);
    EXPECT_GT(RunToTheEnd(), 3);
    frame->Driver().StartAcquisitionPortimetre(1); // It takes the console's clock for itself.
    EXPECT_GT(RunToTheEnd(), 3);

    SelectSecondChannel();
    ChooseNextCalibre();
    Write(frame->Settings->Offset, "100");
    Comes(Cell(1, 3), "100 … 102");
    // A number that is still being written counts, too.
    Click(frame->Settings->Offset);
    Press('A', wxMOD_CONTROL);
    mouse.Text("1000");
    Press('S', wxMOD_ALT);
    Comes([&] { return frame->LastRun()->Followed.Recording.Fetched[1]; },
          AllOf(SizeIs(200), Each(DoubleNear(1001.0, 1.0))));
}

TEST_F(PanelRun, StopsAndEndsByClosing) {
    Open();
    frame->Form->Points->SetValue(1'000'000);
    Click(frame->Form->Start);
    EXPECT_TRUE(Until([&] { return Running() && Status()()[0] != '0'; }));
    EXPECT_FALSE(frame->Settings->IsEnabled());
    Click(frame->Form->Stop);
    Comes(Status(), MatchesRegex("Stopped: [1-9][0-9]* of 1000000 points"));
    EXPECT_FALSE(Running());
    Press(WXK_SPACE); // The start has the focus.
    EXPECT_TRUE(Until([&] { return Running(); }));
    frame->Close();
    frame = nullptr;
}

TEST_F(PanelRun, EnumeratesAnewWhenTheAdaptersChange) {
    Open({.Library = FAULTY_DRIVER, .Language = "en"});
    frame->Form->Points->SetValue(100'000);
    Click(frame->Form->Start);
    Comes(Status(), StartsWith("The adapters of the console changed: "));
    Comes(Cell(1, 1), Not(IsEmpty()));
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
    Open();
    wait(12);
    save("idle");
    frame->DriverBar->Dismiss();
    Write(frame->Form->Period, "2 ms");
    Write(frame->Form->Points, "2000");
    Click(frame->Form->Start);
    wait(2);
    save("running");
    Until([&] { return !Running(); });
    Drag(0.5, 0.6);
    MoveTo(InCurves(0.4));
    MoveTo(InCurves(0.41));
    wait(1);
    save("zoomed");
}

} // namespace
