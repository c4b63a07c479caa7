// The page of the radio network, over the laboratory's pods.

#include "hosts/panel/radio_page.h"
#include "tests/hosts/panel_fixture.h"

using namespace orvane;
using namespace testing;

namespace {

TEST_F(Panel, LeadsARadioNetwork) {
    setenv("ORVANE_CLOCK", "scaled:10", 1);
    Open({.Library = "", .Language = "en", .Scenario = "radio"});
    auto* page = Show<RadioPage>("Radio");
    RadioForm& fields = *page->Fields;
    Write(fields.Channel, "30");
    Click(fields.Modes[0]);
    EXPECT_TRUE(fields.Channel->Message->IsShown());
    EXPECT_EQ(Status()(), "Network closed: 0 pods, 0 accepted");
    Write(fields.Channel, "20");
    EXPECT_FALSE(fields.Channel->Message->IsShown());
    Click(fields.Modes[0]);
    Comes(Status(), "Network open: 5 pods, 0 accepted");

    Comes(Cell(page->Pods, 0, 2), EndsWith("not yet"));
    Press(WXK_F5);
    Comes(Cell(page->Pods, 0, 2), EndsWith("accepted"));
    page->Pods->Select(1);
    Press(WXK_F6);
    Comes(Cell(page->Pods, 1, 3), EndsWith("no answer"));
    EXPECT_EQ(Cell(page->Events, 0, 2)(), "no answer to the ping");
    Click(fields.AcceptAll);
    Comes(Status(), "Network open: 5 pods, 5 accepted");

    // The network is there again in another language, with what happened before.
    ActUntil(wxEVT_MENU_OPEN, [&] { mouse.Char('V', wxMOD_ALT); });
    mouse.Char('L');
    mouse.Char('F');
    Comes(Status(), "Réseau ouvert: 5 pods, 0 acceptés");
    page = Show<RadioPage>("Radio");
    EXPECT_EQ(page->Fields->Channel->GetValue(), "20");
    EXPECT_EQ(Cell(page->Events, page->Events->GetItemCount() - 1, 2)(),
              "réseau ouvert sur le canal 20, niveau 4");
    Click(page->Fields->Off);
    Comes(Status(), "Réseau fermé: 0 pods, 0 acceptés");
    EXPECT_EQ(page->Pods->GetItemCount(), 0);
}

} // namespace
