// A host with windows is shown messages in a box.

#include "connection/console_memory.h"
#include "driver_loader.h"
#include "platform/user_message.h"
#include "tests/support/scripted_console.h"

#include <wx/app.h>
#include <wx/bitmap.h>
#include <wx/evtloop.h>
#include <wx/modalhook.h>
#include <wx/msgdlg.h>

#include <gmock/gmock.h>

#include <atomic>
#include <functional>
#include <future>
#include <semaphore>
#include <thread>

using namespace orvane;

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
        EXPECT_TRUE(wxIsMainThread());
        Texts.push_back(box == nullptr ? "no message box" : box->GetMessage().utf8_string());
        WhileOpen();
        return wxID_OK;
    }

public:
    std::function<void()> WhileOpen = [] {};
};

const std::string memoryMessage = "Erreur pendant la lecture dans la mémoire de la console !!!";

/// A start that finds no memory, unless the test has given the console one.
bool Start() {
    ConsoleMemoryLoaded = false;
    return StartDll(0, "", "fr", 0);
}

/// Does something on another thread while the main one handles its events.
template <class Action> void BesideTheMainLoop(Action action) {
    wxGUIEventLoop loop;
    const wxEventLoopActivator active(&loop);
    std::jthread worker([&] {
        action();
        wxTheApp->CallAfter([&] { loop.Exit(); });
    });
    loop.Run();
}

TEST(Message, IsAFormattedBoxInAHostWithWindows) {
    MessageBoxes boxes;
    ShowUserMessage(L"%d of %s", 3, "é");
    EXPECT_THAT(boxes.Texts, ElementsAre("3 of é"));
}

TEST(Message, OfAStartIsShownOnceAndTheStartGoesOn) {
    MessageBoxes boxes;
    EXPECT_TRUE(Start());
    EXPECT_THAT(boxes.Texts, ElementsAre(memoryMessage));
    boxes.Texts.clear();
    Console.Memory.assign(32768, 0);
    EXPECT_TRUE(Start());
    EXPECT_THAT(boxes.Texts, IsEmpty());
    Console.Memory.clear();
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

TEST(MessageOfAWorker, IsABoxOfTheMainThreadWhileThatHandlesEvents) {
    MessageBoxes boxes;
    std::atomic<bool> closed = false;
    boxes.WhileOpen = [&] { closed = true; };
    BesideTheMainLoop([&] {
        EXPECT_TRUE(Start());
        EXPECT_TRUE(closed) << "the start waits for the user";
    });
    EXPECT_THAT(boxes.Texts, ElementsAre(memoryMessage));
}

TEST(MessageOfAWorker, GoesToStandardErrorWhileTheMainThreadWaitsForTheWorker) {
    MessageBoxes boxes;
    testing::internal::CaptureStderr();
    EXPECT_TRUE(std::async(std::launch::async, Start).get());
    EXPECT_EQ(testing::internal::GetCapturedStderr(), memoryMessage + '\n');
    wxTheApp->ProcessPendingEvents();
    EXPECT_THAT(boxes.Texts, IsEmpty()) << "it isn't shown twice";
}

TEST(MessageOfAWorker, IsNoLongerWaitedForOnceTheMainThreadWaitsForTheWorker) {
    MessageBoxes boxes;
    std::binary_semaphore startOver{0};
    boxes.WhileOpen = [&] { startOver.acquire(); }; // A host's handler under the open box.
    BesideTheMainLoop([&] {
        EXPECT_TRUE(Start());
        startOver.release();
    });
    EXPECT_THAT(boxes.Texts, ElementsAre(memoryMessage));
}

TEST(MessageOfAWorker, OutlivesItsLibrary) {
    MessageBoxes boxes;
    testing::internal::CaptureStderr();
    std::jthread([] {
        LoadedDriver driver = LoadDriver(ORVANE_LIBRARY);
        EXPECT_TRUE(driver.Exports.StartDll(0, "", "fr", 0));
        UnloadDriver(driver);
    }).join();
    testing::internal::GetCapturedStderr();
    wxTheApp->ProcessPendingEvents();
    EXPECT_THAT(boxes.Texts, IsEmpty());
}

} // namespace
