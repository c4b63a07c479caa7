// Runs in the window of the panel: started and stopped, followed, looked at and saved.

#include "hosts/panel/acquisition_page.h"
#include "tests/hosts/file_content.h"
#include "tests/hosts/panel_fixture.h"

#include <wx/image.h>
#include <wx/menu.h>

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
    size_t RunToTheEnd(int points = 200) {
        page->Fields->Points->SetValue(points);
        const ShownRun* before = page->LastRun();
        Press(WXK_F6);
        EXPECT_TRUE(Until([&] { return page->LastRun() != before; }));
        const std::string count = std::to_string(points);
        Comes(Status(), "Done: " + count + " of " + count + " points");
        const Samples& live = page->LastRun()->Ended.Live[1];
        return std::set(live.begin(), live.end()).size();
    }

    /// Presses a button of the toolbar, by its label.
    void ClickTool(const char* label) {
        const int id = frame->GetMenuBar()->FindMenuItem("Measure", label);
        ASSERT_NE(id, wxNOT_FOUND);
        wxCommandEvent event(wxEVT_MENU, id);
        frame->ProcessWindowEvent(event);
    }

    AcquisitionPage* page = nullptr;
};

TEST_F(PanelRun, RunsToTheEndAndSaves) {
    OpenPage();
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
    MoveTo(InCurves(0.5));
    const std::string before = Readout()();
    Press(WXK_LEFT, wxMOD_SHIFT);
    Comes(Readout(), Not(before));
    Press(WXK_RIGHT, wxMOD_SHIFT);
    Comes(Readout(), before);

    std::filesystem::current_path(std::getenv("HOME"));
    Press('S', wxMOD_CONTROL);
    EXPECT_THAT(Lines(Content("acquisition.csv")),
                AllOf(Contains("# period: 0.001 s"),
                      Contains("time (s),Voltmètre (V),Ampèremetre (A)"),
                      Contains(StartsWith("0.199,"))));
    EXPECT_FALSE(page->HasUnsaved());
    Press('P', wxMOD_CONTROL);
    wxImage::AddHandler(new wxPNGHandler); // NOLINT: the toolkit owns it.
    EXPECT_EQ(wxImage("acquisition.png").GetSize(), wxSize(1600, 960));

    mouse.MouseDblClick();
    EXPECT_TRUE(Until([&] { return !view.Zoom().X; }));
    const std::vector<Samples> saved = SamplesOf(*page->LastRun());
    RunToTheEnd();
    EXPECT_TRUE(page->OpenSamples("acquisition.csv"));
    EXPECT_EQ(SamplesOf(*page->LastRun()), saved);
    EXPECT_THAT(asked, IsEmpty());
}

TEST_F(PanelRun, MeasuresWhatIsShown) {
    OpenPage({.Library = "", .Language = "en", .Scenario = "school"});
    RunToTheEnd(200);
    page->Curves->ShowCursors(true);
    page->Curves->SetCursor(0, 0.01);
    page->Curves->SetCursor(1, 0.03);
    const MeasuresView& measures = *page->Lower->Measures;
    Comes([&] { return measures.Line->GetLabelText().utf8_string(); },
          AllOf(HasSubstr("20.0 ms"), HasSubstr("50.00 Hz")));
    const auto cell = [&](int column) { return Cell(measures.Table, 0, column); };
    Comes(cell(1), "V");
    Comes(cell(4), Not(IsEmpty()));
    Comes(cell(9), MatchesRegex("(49|50)\\.[0-9]* Hz")); // Of the mains, in the noise.
    ClickTool("Spectrum");
    Comes([&] { return page->Lower->Spectra->Peaks->GetLabelText().utf8_string(); },
          MatchesRegex("1: (49\\.9|50\\.0).*"));
    ClickTool("X-Y");
    EXPECT_TRUE(Until([&] { return !page->Lower->Xy->View->Areas().empty(); }));
    ClickTool("X-Y");
    EXPECT_TRUE(measures.Table->IsShownOnScreen());
}

TEST_F(PanelRun, MeasuresTheSameThreeTimes) {
    OpenPage({.Library = "", .Language = "en", .Scenario = "school"});
    page->Fields->Period->ChangeValue("5 ms");
    // The mass on the spring is pushed when a run starts.
    std::vector<Samples> runs;
    for (int i = 0; i < 3; ++i) {
        RunToTheEnd(100);
        runs.push_back(SamplesOf(*page->LastRun())[1]);
    }
    for (const Samples& run : runs) {
        EXPECT_THAT(run, Pointwise(DoubleNear(0.1), runs[0]));
        EXPECT_GT(run.front(), 5.0);
        EXPECT_LT(run.back(), 4.5);
    }
    ClickTool("Overlay");
    Press(WXK_F5); // Again and again, until it is stopped.
    const ShownRun* first = page->LastRun();
    EXPECT_TRUE(Until([&] { return page->LastRun() != first; }));
    const ShownRun* second = page->LastRun();
    EXPECT_TRUE(Until([&] { return page->LastRun() != second; }));
    Press(WXK_ESCAPE);
    EXPECT_FALSE(Running());
}

TEST_F(PanelRun, StartsEachRunAfresh) {
    OpenPage();
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
    EXPECT_TRUE(Until([&] { return Running() && PointsOf(*page->LastRun()) > 0; }));
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
    const auto message = [](const NumberField* field) {
        return [=] { return field->Message->GetLabelText().utf8_string(); };
    };
    Press(WXK_F6);
    EXPECT_THAT(message(page->Fields->TriggerLevel)(), HasSubstr("From -12 to 12"));
    EXPECT_FALSE(Running());
    Write(page->Fields->TriggerLevel, "1,5");
    page->Fields->TriggerEdge->SetSelection(1);
    const auto trigger = page->Fields->Request()->Trigger;
    EXPECT_EQ(trigger->Level, 1.5);
    EXPECT_FALSE(trigger->Rising);
    Write(page->Fields->Period, "1 us");
    EXPECT_THAT(message(page->Fields->Period)(), HasSubstr("From 100 µs to"));
    Press(WXK_F6);
    EXPECT_FALSE(Running());
    Write(page->Fields->Period, "1 ms");
    EXPECT_FALSE(page->Fields->Period->Message->IsShown());
}

} // namespace
