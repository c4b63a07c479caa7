// The page of the console: who it is, its scenario and its clock.

#include "hosts/panel/console_page.h"
#include "tests/hosts/panel_fixture.h"

#include <fstream>

using namespace orvane;
using namespace testing;

namespace {

TEST_F(Panel, ChangesTheSpeedOfTheClock) {
    Open({.Library = "", .Language = "en", .Scenario = "school"});
    const auto* page = Show<ConsolePage>("Console");
    Comes(Cell(page->Texts, 3, 1), "LAB-0001");
    EXPECT_THAT(page->Scenario->GetValue().utf8_string(), HasSubstr("[adapter.voltmeter]"));
    page->Speed->SetFocus();
    mouse.Char(WXK_END);
    ASSERT_TRUE(Until([&] { return frame->PageOf("Console") != page; }));
    page = Show<ConsolePage>("Console");
    EXPECT_THAT(page->Speed->GetStringSelection().utf8_string(), EndsWith("1000"));
    const auto seconds = [&] {
        double told = 0.0;
        page->Clock->GetLabelText().BeforeFirst(' ').ToCDouble(&told);
        return told;
    };
    Comes(seconds, Gt(100.0));
}

TEST_F(Panel, TellsWhatIsWrongWithAScenario) {
    std::ofstream("own.toml") << "[adapter.voltmeter]\nreference = 482034\n"
                                 "[[adapter.voltmeter.channel]]\ncalibres = [[-1, 1]]\n";
    Open({.Library = "", .Language = "en", .Scenario = "own.toml"});
    const auto* page = Show<ConsolePage>("Console");
    EXPECT_FALSE(page->Errors->IsShown());
    std::ofstream("own.toml", std::ios::app) << "color = 1\n";
    Click(page->Again);
    ASSERT_TRUE(Until([&] { return page->Errors->GetCount() == 1; }));
    EXPECT_THAT(page->Errors->GetString(0).utf8_string(), StartsWith("own.toml:5:1: "));
    page->Errors->SetFocus();
    Press(WXK_DOWN);
    Press(WXK_UP);
    Comes([&] { return page->Scenario->GetStringSelection(); }, "color = 1");
}

} // namespace
