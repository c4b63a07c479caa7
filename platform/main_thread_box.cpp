#include "platform/main_thread_box.h"

#include "platform/keep_loaded.h"

#include <wx/app.h>
#include <wx/msgdlg.h>

#include <chrono>
#include <condition_variable>
#include <memory>
#include <mutex>

namespace orvane {

namespace {

constexpr std::chrono::seconds timeout(1);

/// A message that the caller passes to the main thread, and its state.
struct PendingMessage {
    explicit PendingMessage(const wxString& text) : Text(text) {}
    const wxString Text;
    std::mutex Lock; ///< Guards the rest, which both threads read and write.
    std::condition_variable Changed;
    bool Withdrawn = false; ///< The caller no longer waits for the text to be taken.
    bool Taken = false;     ///< The main thread shows it.
    bool Closed = false;    ///< The user has closed the box.
    bool Answered = true;   ///< The main thread has handled the last event sent to it.
};

/// Runs an action on the main thread, once that handles events.
template <class Action>
void OnMainThread(const std::shared_ptr<PendingMessage>& handed, Action action) {
    wxAppConsole::GetInstance()->CallAfter([handed, action] { action(*handed); });
}

void Set(PendingMessage& handed, bool PendingMessage::*what) {
    const std::scoped_lock lock(handed.Lock);
    handed.*what = true;
    handed.Changed.notify_all();
}

void ShowUnlessWithdrawn(PendingMessage& handed) {
    {
        const std::scoped_lock lock(handed.Lock);
        if (handed.Withdrawn) {
            return;
        }
        handed.Taken = true;
        handed.Changed.notify_all();
    }
    platform::ShowBox(handed.Text);
    Set(handed, &PendingMessage::Closed);
}

/// Waits while the main thread handles events. A host's handler may block while the box is open,
/// for instance on a lock that the caller holds.
void WaitForClosing(const std::shared_ptr<PendingMessage>& handed,
                    std::unique_lock<std::mutex>& lock) {
    while (!handed->Closed && handed->Answered) {
        handed->Answered = false;
        // The lock is held: while the box is open, the application object exists.
        OnMainThread(handed, [](PendingMessage& asked) { Set(asked, &PendingMessage::Answered); });
        handed->Changed.wait_for(lock, timeout, [&] { return handed->Closed; });
    }
}

} // namespace

void platform::ShowBox(const wxString& text) {
    wxMessageBox(text, wxMessageBoxCaptionStr, wxOK | wxCENTRE);
}

bool platform::ShowBoxOnMainThread(const wxString& text) {
    KeepLoaded(reinterpret_cast<const void*>(&platform::ShowBoxOnMainThread));
    const auto handed = std::make_shared<PendingMessage>(text);
    OnMainThread(handed, ShowUnlessWithdrawn);
    std::unique_lock lock(handed->Lock);
    if (!handed->Changed.wait_for(lock, timeout, [&] { return handed->Taken; })) {
        handed->Withdrawn = true;
        return false;
    }
    WaitForClosing(handed, lock);
    return true;
}

} // namespace orvane
