// A host with windows: messages are boxes, and the top window is told of the radio.

#include "driver_loader.h"
#include "platform/user_message.h"
#include "tests/support/scripted_console.h"

#include <wx/app.h>
#include <wx/evtloop.h>
#include <wx/frame.h>
#include <wx/modalhook.h>
#include <wx/msgdlg.h>

#include <gmock/gmock.h>

#include <functional>
#include <semaphore>
#include <thread>

using namespace orvane;

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// Answers every message box at once and keeps what it said.
class Message : public testing::Test, public wxModalDialogHook {
protected:
    Message() {
        Register();
    }
    int Enter(wxDialog* dialog) override {
        const auto* box = dynamic_cast<wxMessageDialog*>(dialog);
        EXPECT_TRUE(wxIsMainThread());
        Texts.push_back(box == nullptr ? "no message box" : box->GetMessage().utf8_string());
        WhileOpen();
        return wxID_OK;
    }

    std::vector<std::string> Texts;
    std::function<void()> WhileOpen = [] {};
};

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

TEST_F(Message, IsAFormattedBoxInAHostWithWindows) {
    ShowUserMessage(L"%d of %s", 3, "é");
    EXPECT_TRUE(StartDll(0, "", "fr", 0)) << "the start goes on without a memory";
    EXPECT_THAT(Texts, ElementsAre("3 of é", "Erreur pendant la lecture dans la mémoire de la "
                                             "console !!!"));
}

TEST_F(Message, OfAWorkerIsABoxOfTheMainThreadWhileThatHandlesEvents) {
    std::atomic<bool> closed = false;
    WhileOpen = [&] { closed = true; };
    BesideTheMainLoop([&] {
        ShowUserMessage(L"text");
        EXPECT_TRUE(closed) << "the worker waits for the user";
    });
    EXPECT_THAT(Texts, ElementsAre("text"));
}

TEST_F(Message, OfAWorkerGoesToStandardErrorWhileTheMainThreadWaitsForTheWorker) {
    testing::internal::CaptureStderr();
    std::thread(ShowUserMessage, L"text").join();
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "text\n");
    wxTheApp->ProcessPendingEvents();
    EXPECT_THAT(Texts, IsEmpty()) << "it isn't shown twice";
}

TEST_F(Message, OfAWorkerIsNoLongerWaitedForOnceTheMainThreadWaitsForTheWorker) {
    std::binary_semaphore startOver{0};
    WhileOpen = [&] { startOver.acquire(); }; // A host's handler under the open box.
    BesideTheMainLoop([&] {
        ShowUserMessage(L"text");
        startOver.release();
    });
    EXPECT_THAT(Texts, ElementsAre("text"));
}

TEST_F(Message, OfAWorkerOutlivesItsLibrary) {
    testing::internal::CaptureStderr();
    std::jthread([] {
        LoadedDriver driver = LoadDriver(ORVANE_LIBRARY);
        EXPECT_TRUE(driver.Exports.StartDll(0, "", "fr", 0));
        UnloadDriver(driver);
    }).join();
    testing::internal::GetCapturedStderr();
    wxTheApp->ProcessPendingEvents();
    EXPECT_THAT(Texts, IsEmpty());
}

TEST(RadioNotification, GoesToTheTopWindowOrTheApplicationOnceTheHostLooks) {
    static std::vector<std::string> told;
    const auto noteAt = [](wxEvtHandler& receiver, const std::string& name) {
        const auto note = [name](const wxCommandEvent& event) {
            EXPECT_EQ(event.GetEventObject(), nullptr);
            told.push_back(name + (event.GetClientData() != nullptr ? " start" : " stop"));
        };
        receiver.Bind(wxEVT_MENU, note, 7202);
    };
    noteAt(*wxTheApp, "application");
    StartO150();
    wxTheApp->ProcessPendingEvents();
    auto* frame = new wxFrame(nullptr, wxID_ANY, "host"); // NOLINT: the toolkit owns its windows.
    noteAt(*frame, "window");
    StopO150();
    StartO150();
    EXPECT_THAT(told, ElementsAre("application start"));
    wxTheApp->ProcessPendingEvents();
    EXPECT_THAT(told, ElementsAre("application start", "window stop", "window start"));
}

} // namespace
