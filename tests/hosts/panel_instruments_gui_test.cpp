// The pages of the gates and the spirometer, worked with over the laboratory's school bench.

#include "hosts/panel/gates_page.h"
#include "hosts/panel/spirometer_page.h"
#include "tests/hosts/file_content.h"
#include "tests/hosts/panel_fixture.h"

using namespace orvane;
using namespace testing;

namespace {

class Instruments : public Panel {
protected:
    template <class Kind> Kind* OpenPage(const char* title, const char* clock) {
        setenv("ORVANE_CLOCK", clock, 1);
        Open({.Library = "", .Language = "en", .Scenario = "school"});
        return Show<Kind>(title);
    }
    static auto Label(const wxWindow* text) {
        return [text] { return text->GetLabel().utf8_string(); };
    }
};

TEST_F(Instruments, MeasureG) {
    auto* page = OpenPage<GatesPage>("Gates", "virtual");
    for (int run = 1; run <= 3; ++run) {
        Press(WXK_F5);
        Comes([&] { return page->Fields->Runs->GetItemCount(); }, run);
        EXPECT_EQ(Label(page->Fields->Result)(), "g = 9.810 m/s²");
        EXPECT_EQ(Cell(page->Forks, 0, 5)(), "2.4659");
    }
    Comes(Status(), "Done: 3 of 3 passages");

    // Other positions count for runs to come, and for this one if the user says so.
    Write(page->Fields->Rows->Positions[2], "0,330");
    EXPECT_EQ(Label(page->Fields->Result)(), "g = 9.810 m/s²");
    Settle();
    Click(page->Fields->Correct);
    Comes(Label(page->Fields->Result), Not("g = 9.810 m/s²"));
    EXPECT_EQ(Cell(page->Fields->Runs, 0, 2)(), "9.810");
    Write(page->Fields->Rows->Positions[2], "0.3");
    EXPECT_TRUE(page->Fields->Rows->Message->IsShown());
    Write(page->Fields->Rows->Positions[2], "0.320");
    EXPECT_FALSE(page->Fields->Rows->Message->IsShown());

    std::filesystem::current_path(std::getenv("HOME"));
    Press('S', wxMOD_CONTROL);
    EXPECT_THAT(Lines(Content("gates.csv")), AllOf(SizeIs(7), Contains(HasSubstr("0.1463459"))));
    EXPECT_FALSE(page->HasUnsaved());
}

TEST_F(Instruments, GiveUpARunOverGates) {
    auto* page = OpenPage<GatesPage>("Gates", "real");
    Press(WXK_F5);
    Comes(Status(), StartsWith("Armed"));
    EXPECT_FALSE(page->Fields->Arm->IsEnabled());
    Press(WXK_ESCAPE);
    Comes(Status(), "Stopped");
    EXPECT_FALSE(page->IsMeasuring());
    Press(WXK_F5);
    Comes(Status(), StartsWith("Done"));
}

TEST_F(Instruments, MeasureAVitalCapacity) {
    auto* page = OpenPage<SpirometerPage>("Spirometer", "virtual");
    const auto best = [&](int row) {
        return [page, row] {
            return page->Figures->GetItemText(row, page->Figures->GetColumnCount() - 1)
                .utf8_string();
        };
    };
    EXPECT_EQ(best(0)(), "");
    page->Fields->Length->SetValue(22); // With one forced breath.
    Press(WXK_F5);
    Comes(Status(), StartsWith("Running"));
    Until([&] { return !page->IsMeasuring(); }, std::chrono::seconds(60));
    Comes(Status(), "Done: 1 manoeuvres, 1 kept");
    EXPECT_THAT(best(0)(), MatchesRegex("4.(79|80|81)"));
    EXPECT_THAT(best(1)(), MatchesRegex("3.(89|90|91)"));
    page->Fields->Manoeuvres->CheckItem(0, false);
    EXPECT_EQ(best(0)(), "");
    Comes(Status(), "Done: 1 manoeuvres, 0 kept");

    std::filesystem::current_path(std::getenv("HOME"));
    Press('S', wxMOD_CONTROL);
    EXPECT_THAT(Content("spirometer.csv"), HasSubstr("flow (L/s),volume (L)\n"));
    EXPECT_FALSE(page->HasUnsaved());
}

TEST_F(Instruments, StopARecordingByClosing) {
    auto* page = OpenPage<SpirometerPage>("Spirometer", "scaled:20");
    Press(WXK_F5);
    ASSERT_TRUE(Until([&] { return page->Fields->Manoeuvres->GetItemCount() > 0; }));
    EXPECT_THAT(Status()(), StartsWith("Running"));
    frame->Close(true);
    frame = nullptr;
}

} // namespace
