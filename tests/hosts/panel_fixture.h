#pragma once

#include "hosts/panel/catalogue.h"
#include "hosts/panel/panel_frame.h"

#include <wx/app.h>
#include <wx/eventfilter.h>
#include <wx/evtloop.h>
#include <wx/listctrl.h>
#include <wx/modalhook.h>
#include <wx/msgdlg.h>
#include <wx/timer.h>
#include <wx/uiaction.h>

#include <gmock/gmock.h>

#include <chrono>
#include <map>
#include <utility>

/// The window of the panel, worked with by clicks and keys. A message is answered at once; in a
/// file dialog, the name that it offers is taken.
class Panel : public testing::Test, wxModalDialogHook, wxEventFilter {
protected:
    Panel() {
        // In place of a box that nobody closes.
        wxSetAssertHandler([](const wxString& file, int line, auto&... said) {
            ADD_FAILURE() << file << ":" << line << (wxString() + ... + (": " + said));
        });
        Register();
        wxEvtHandler::AddFilter(this);
        takeName.Bind(wxEVT_TIMER, [this](wxTimerEvent&) { mouse.Char(WXK_RETURN); });
    }
    ~Panel() override {
        wxEvtHandler::RemoveFilter(this);
    }
    int Enter(wxDialog* dialog) override {
        if (auto* box = dynamic_cast<wxMessageDialog*>(dialog)) {
            asked.push_back(box->GetMessage().utf8_string());
            return wxID_OK;
        }
        dialog->CallAfter([dialog] { dialog->Raise(); });
        takeName.Start(50); // Until the dialog does.
        return wxID_NONE;
    }
    void Exit(wxDialog* /*dialog*/) override {
        takeName.Stop();
    }
    int FilterEvent(wxEvent& event) override {
        ++arrivals[event.GetEventType()];
        return Event_Skip;
    }
    void Open(const orvane::DriverOptions& options = {.Library = "", .Language = "en"}) {
        orvane::UseLanguage(options.Language);
        frame = new orvane::PanelFrame(options); // NOLINT: the toolkit owns it
        wxTheApp->SetTopWindow(frame);
        frame->Open(options);
        frame->Show();
        frame->Move(0, 0);
        frame->Raise();
        Settle();
    }
    /// Waits until the page lies still: the bar of messages slides in, and moves it.
    void Settle() {
        wxRect place;
        int looks = 0;
        ASSERT_TRUE(Until([&] {
            const wxRect before = std::exchange(place, frame->Book->GetScreenRect());
            looks = place == before ? looks + 1 : 0;
            return looks >= 20;
        }));
    }
    /// The page of this English title, in front.
    template <class Kind> Kind* Show(const char* title) {
        auto* page = dynamic_cast<Kind*>(frame->PageOf(title));
        if (page == nullptr) {
            ADD_FAILURE() << "There is no page " << title << ".";
            std::abort();
        }
        frame->Book->SetSelection(static_cast<size_t>(frame->Book->FindPage(page)));
        Settle();
        return page;
    }
    void TearDown() override {
        if (frame != nullptr) {
            frame->Destroy();
            frame = nullptr;
        }
        loop.ProcessIdle();
    }

    /// Lets the window work until something holds. \return whether it came to hold
    template <class Condition>
    static bool Until(const Condition& holds,
                      std::chrono::milliseconds most = std::chrono::seconds(20)) {
        const auto end = std::chrono::steady_clock::now() + most;
        while (!holds() && std::chrono::steady_clock::now() < end) {
            wxTheApp->Yield();
            wxMilliSleep(1);
        }
        return holds();
    }
    /// Waits until `get` gives something that fits.
    template <class Get, class Matcher> static void Comes(const Get& get, const Matcher& matcher) {
        Until([&] { return testing::Value(get(), matcher); });
        EXPECT_THAT(get(), matcher);
    }
    /// Acts and waits until the window has the event of this kind that comes of it. A control that
    /// keeps it to itself gets some time.
    template <class Act> void ActUntil(wxEventType arrives, const Act& act) {
        const int before = arrivals[arrives];
        act();
        Until([&] { return arrivals[arrives] > before; }, std::chrono::milliseconds(150));
        wxTheApp->Yield();
    }

    void Click(const wxWindow* window) {
        constexpr int apart = 8; // Two clicks on one place would be a double click.
        clickShift = apart - clickShift;
        ClickAt(window->GetScreenRect().GetTopLeft() +
                wxSize(window->GetSize().x / 2 + clickShift, window->GetSize().y / 2));
    }
    void ClickAt(const wxPoint& place) {
        mouse.MouseMove(place);
        ActUntil(wxEVT_LEFT_UP, [&] { mouse.MouseClick(); });
    }
    void Press(int key, int modifiers = wxMOD_NONE) {
        ActUntil(wxEVT_KEY_UP, [&] { mouse.Char(key, modifiers); });
    }
    /// Puts a text in place of that of a field, and ends with Tab.
    void Write(wxWindow* field, const char* text) {
        Click(field);
        Press('A', wxMOD_CONTROL);
        mouse.Text(text);
        Press(WXK_TAB);
    }
    static auto Cell(const wxListCtrl* table, long row, int column) {
        return [=] { return table->GetItemText(row, column).utf8_string(); };
    }
    /// The state of the page and its detail: "Done: 200 of 200 points".
    auto Status() const {
        return [this] { return frame->GetStatusBar()->GetStatusText(0).utf8_string(); };
    }

    wxGUIEventLoop loop;
    wxEventLoopActivator active{&loop};
    std::vector<std::string> asked;      ///< The messages of boxes.
    std::map<wxEventType, int> arrivals; ///< Events that came to windows.
    wxTimer takeName;
    wxUIActionSimulator mouse;
    orvane::PanelFrame* frame = nullptr;
    int clickShift = 0;
};
