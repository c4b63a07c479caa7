// A host with windows is told of the radio's start and stop at its top window.

#include "radio_exports.h"

#include <wx/app.h>
#include <wx/frame.h>

#include <gmock/gmock.h>

namespace {

std::vector<std::string> Told;

void NoteAt(wxEvtHandler& receiver, const std::string& name) {
    receiver.Bind(
        wxEVT_MENU,
        [name](const wxCommandEvent& event) {
            EXPECT_EQ(event.GetEventObject(), nullptr);
            Told.push_back(name + (event.GetClientData() != nullptr ? " start" : " stop"));
        },
        7202);
}

} // namespace

TEST(RadioNotification, GoesToTheTopWindowOrTheApplicationOnceTheHostLooks) {
    NoteAt(*wxTheApp, "application");
    StartO150();
    wxTheApp->ProcessPendingEvents();
    auto* frame = new wxFrame(nullptr, wxID_ANY, "host"); // NOLINT: the toolkit owns its windows.
    NoteAt(*frame, "window");
    StopO150();
    StartO150();
    EXPECT_THAT(Told, testing::ElementsAre("application start"));
    wxTheApp->ProcessPendingEvents();
    EXPECT_THAT(Told, testing::ElementsAre("application start", "window stop", "window start"));
}
