// A host with windows is shown messages in a box.

#include "driver_loader.h"
#include "platform/user_message.h"
#include "tests/support/scripted_console.h"

#include <wx/app.h>
#include <wx/bitmap.h>
#include <wx/modalhook.h>
#include <wx/msgdlg.h>

#include <gmock/gmock.h>

namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

/// Answers every message box at once and keeps what it said.
class MessageBoxes : public wxModalDialogHook {
public:
    MessageBoxes() {
        Register();
    }
    std::vector<std::string> Texts;

protected:
    int Enter(wxDialog* dialog) override {
        const auto* box = dynamic_cast<wxMessageDialog*>(dialog);
        Texts.push_back(box == nullptr ? "no message box" : box->GetMessage().utf8_string());
        return wxID_OK;
    }
};

TEST(Message, IsAFormattedBoxInAHostWithWindows) {
    MessageBoxes boxes;
    ShowUserMessage(L"%d of %s", 3, "é");
    EXPECT_THAT(boxes.Texts, ElementsAre("3 of é"));
}

TEST(Message, OfAStartIsShownOnceAndTheStartGoesOn) {
    MessageBoxes boxes;
    EXPECT_TRUE(StartDll(0, "", "fr", 0));
    EXPECT_THAT(boxes.Texts,
                ElementsAre("Erreur pendant la lecture dans la mémoire de la console !!!"));
    boxes.Texts.clear();
    Console.Memory.assign(32768, 0);
    EXPECT_TRUE(StartDll(0, "", "fr", 0));
    EXPECT_THAT(boxes.Texts, IsEmpty());
}

TEST(Library, ComesAndGoesInAHostWithWindows) {
    MessageBoxes boxes;
    for (int load = 0; load < 20; ++load) {
        LoadedDriver driver = LoadDriver(ORVANE_LIBRARY);
        ASSERT_NE(driver.Library, nullptr) << driver.Error;
        EXPECT_TRUE(driver.Exports.StartDll(0, "", "fr", 0));
        EXPECT_EQ(driver.Exports.CombienDeCanauxEnEntree(), 2);
        EXPECT_FALSE(driver.Exports.QuelBitmapPour(0).IsOk());
        driver.Exports.StartO150(); // Its event is pending when the library goes.
        UnloadDriver(driver);
        EXPECT_EQ(dlopen(ORVANE_LIBRARY, RTLD_NOLOAD | RTLD_NOW), nullptr) << "it is really gone";
        wxTheApp->ProcessPendingEvents();
    }
    EXPECT_THAT(boxes.Texts, SizeIs(20));
}

} // namespace
