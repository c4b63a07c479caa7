// The page of a channel: its settings, its adjustment and its calibration.

#include "hosts/panel/acquisition_page.h"
#include "hosts/panel/channel_page.h"
#include "tests/hosts/panel_fixture.h"

using namespace orvane;
using namespace testing;

namespace {

class PanelChannel : public Panel {
protected:
    ChannelPage& OpenPage(const char* scenario) {
        Open({.Library = "", .Language = "en", .Scenario = scenario});
        return *Show<ChannelPage>("Channel");
    }
    /// The limits of a channel.
    auto Range(size_t channel) const {
        return [=, this] { return RangeText(frame->Driver().Channels.at(channel)); };
    }
    static std::string Text(const wxStaticText* text) {
        return text->GetLabelText().utf8_string();
    }
};

TEST_F(PanelChannel, SetsCalibreAndScale) {
    const ChannelPage& page = OpenPage("school");
    page.Fields->Calibre->SetFocus();
    Press(WXK_DOWN);
    Comes(Range(0), "-24 … 24 V");
    Write(page.Fields->Ampli, "2");
    Write(page.Fields->Offset, "0,5");
    Comes(Range(0), "-47.5 … 48.5 V");
    Write(page.Fields->Unit, "kV");
    Comes(Range(0), "-47.5 … 48.5 kV");
    Write(page.Fields->Ampli, "0");
    EXPECT_THAT(Text(page.Fields->Ampli->Message), HasSubstr("1e-30 to 1e+30"));
    Write(page.Fields->Ampli, "x");
    EXPECT_THAT(Text(page.Fields->Ampli->Message), EndsWith("No number: x"));
    EXPECT_EQ(page.Fields->Ampli->GetValue(), "x");
    Press('Z', wxMOD_CONTROL);
    Comes(Range(0), "-47.5 … 48.5 V");
    EXPECT_EQ(page.Fields->Ampli->GetValue(), "2");
    Click(page.Fields->Undo);
    Comes(Range(0), "-48 … 48 V");

    // A number that is still being written counts for its channel.
    Click(page.Fields->Offset);
    Press('A', wxMOD_CONTROL);
    mouse.Text("1");
    ClickAt(page.Fields->Table->ClientToScreen(wxPoint(100, 60)));
    Comes(Range(0), "-47 … 49 V");
    EXPECT_EQ(page.Fields->Offset->GetValue(), "0");
    ClickAt(page.Fields->Table->ClientToScreen(wxPoint(100, 36)));
    Click(page.Fields->Delivered);
    Comes(Range(0), "-24 … 24 V");
}

TEST_F(PanelChannel, CalibratesStepByStep) {
    const ChannelPage& page = OpenPage("school");
    const CalibrationBox& box = *page.Calibration;
    Write(page.Fields->Ampli, "10"); // The calibration is without it.
    ClickAt(page.Fields->Table->ClientToScreen(wxPoint(100, 60)));
    Write(page.Fields->Ampli, "10");
    Comes([&] { return Text(page.Now); }, StartsWith("20")); // 20.2 °C, 202 with the scale
    Click(box.Start);
    Comes(Status(), "Calibrating: 2 Thermomètre, step 2 of 3");
    Comes([&] { return Text(page.Now); }, MatchesRegex("20\\.[0-9]+ °C"));
    EXPECT_FALSE(page.Fields->Ampli->IsEnabled());
    Write(box.Value, "25");
    Click(box.Take);
    Comes(Cell(box.List, 1, 1), "Point 0: 25.00 °C taken");
    Comes(Cell(box.List, 1, 2), AllOf(StartsWith("read 20."), HasSubstr("then 2")));
    Comes([&] { return Text(page.Now); }, MatchesRegex("2[45]\\.[0-9]+ °C"));
    ClickAt(frame->Book->GetScreenRect().GetTopLeft() + wxSize(50, 20));
    EXPECT_THAT(asked, ElementsAre(HasSubstr("not done"))); // And not answered with yes.
    EXPECT_EQ(frame->CurrentPage()->GetName(), "Channel");
    EXPECT_TRUE(box.IsActive());
    Click(box.GiveUp);
    Comes([&] { return Text(page.Now); }, MatchesRegex("20[0-9]\\.[0-9] °C"));
}

TEST_F(PanelChannel, SetsAPresetInTheBackground) {
    const ChannelPage& page = OpenPage("radio");
    ASSERT_TRUE(Until([&] { return page.Adjustment->IsShown(); }));
    Write(page.Adjustment->Value, "2");
    Click(page.Adjustment->Set);
    Comes([&] { return Text(page.Adjustment->State); }, HasSubstr("being set"));
    EXPECT_TRUE(frame->Driver().IsBusy());
    Comes([&] { return Text(page.Adjustment->State); }, EndsWith("0 Prêt"));
}

} // namespace
