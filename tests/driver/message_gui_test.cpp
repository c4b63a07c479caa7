// A host with windows is shown messages in a box.

#include "lifecycle_exports.h"
#include "platform/user_message.h"
#include "tests/support/scripted_console.h"

#include <wx/modalhook.h>
#include <wx/msgdlg.h>

#include <gmock/gmock.h>

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

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

} // namespace
