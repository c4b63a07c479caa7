// The page of the generator: what an output will play, what it plays, and what is wrong.

#include "hosts/panel/generator_page.h"
#include "tests/hosts/panel_fixture.h"

#include <fstream>

using namespace orvane;
using namespace testing;

namespace {

class PanelGenerator : public Panel {
protected:
    GeneratorPage& OpenPage() {
        Open({.Library = "", .Language = "en", .Scenario = "school"});
        return *Show<GeneratorPage>("Generator");
    }
    /// What the voltmeter behind output 0 reads.
    auto Voltage() const {
        return [this] {
            const auto& values = frame->Driver().Values;
            return values.empty() ? NAN : values.front();
        };
    }
};

TEST_F(PanelGenerator, ShowsWhatComesOutAndPlaysIt) {
    const GeneratorPage& page = OpenPage();
    Write(page.Fields->Frequency, "440");
    Write(page.Fields->PeakToPeak, "24");
    Write(page.Fields->Centre, "2");
    Comes(Cell(page.Table, 0, 2), "440.141 Hz");
    EXPECT_EQ(Cell(page.Table, 1, 2)(), "2272");
    EXPECT_THAT(page.Fields->PeakToPeak->Message->GetLabelText().utf8_string(),
                EndsWith("Cut off outside -10 … 10 V (27 %)."));
    Press(WXK_F5);
    Comes(Cell(page.Fields->Outputs, 0, 1), "▶ sine, 440 Hz");
    Comes(Status(), "1 of 2 play: Sortie analogique 1");

    ClickAt(page.Fields->Outputs->ClientToScreen(wxPoint(60, 60)));
    Comes([&] { return page.Fields->Frequency->GetValue(); }, "50");
    Write(page.Fields->PeakToPeak, "x");
    EXPECT_THAT(page.Fields->PeakToPeak->Message->GetLabelText().utf8_string(),
                EndsWith("No number: x"));
    Click(page.Fields->Start);
    EXPECT_EQ(Cell(page.Fields->Outputs, 1, 1)(), "○ 0.000 V");
    ClickAt(page.Fields->Outputs->ClientToScreen(wxPoint(60, 36)));
    Comes([&] { return page.Fields->Frequency->GetValue(); }, "440");
}

TEST_F(PanelGenerator, HoldsAValueThroughAChangeOfLanguage) {
    const GeneratorPage* page = &OpenPage();
    Click(page->Fields->Shapes[static_cast<size_t>(SignalKind::Constant)]);
    Write(page->Fields->Centre, "3,5");
    Click(page->Fields->Start);
    Comes(Voltage(), DoubleNear(3.5, 0.2));
    ActUntil(wxEVT_MENU_OPEN, [&] { mouse.Char('V', wxMOD_ALT); });
    mouse.Char('L');
    mouse.Char('F');
    ASSERT_TRUE(Until([&] { return frame->PageOf("Generator") != page; }));
    page = Show<GeneratorPage>("Generator");
    EXPECT_EQ(page->Fields->Centre->GetValue(), "3,5");
    EXPECT_EQ(Cell(page->Fields->Outputs, 0, 1)(), "○ 3.500 V");
    Comes(Voltage(), DoubleNear(3.5, 0.2));
    Click(page->Fields->Stop);
    Comes(Voltage(), DoubleNear(0.0, 0.2));
}

TEST_F(PanelGenerator, PlaysCodesOfAFile) {
    const GeneratorPage& page = OpenPage();
    Click(page.Fields->Shapes[static_cast<size_t>(SignalKind::Codes)]);
    std::ofstream("wrong.txt") << "0\n5000\n";
    page.Fields->TakeCodes("wrong.txt");
    EXPECT_THAT(page.Fields->FileMessage->GetLabelText().utf8_string(),
                EndsWith("Line 2 is not a number from 0 to 4095: 5000"));
    std::ofstream("codes.txt") << "2457\n2457\n2457\n";
    page.Fields->TakeCodes("codes.txt");
    Write(page.Fields->Step, "2 ms");
    Comes(Cell(page.Table, 2, 2), "2 ms");
    Press(WXK_F6);
    Comes(Voltage(), DoubleNear(2.0, 0.2)); // The last point stays.
    Comes(Cell(page.Fields->Outputs, 0, 1), "○ own codes, over");
}

} // namespace
