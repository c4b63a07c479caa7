// Starts and stops the spirometer thread, and sees to it that the thread never outlives the
// library.

#include "platform/pause.h"
#include "spiro/spiro_state.h"
#include "spiro/spiro_thread.h"
#include "spiro/turbine.h"
#include "spiro_exports.h"

#include <wx/log.h>

#include <pthread.h>

#include <memory>
#include <new>

namespace {

constexpr unsigned long stopPauseMs = 10;
constexpr int mostStopPauses = 100;

/// A thread that ends at once.
class Rehearsal final : public wxThread {
public:
    Rehearsal() : wxThread(wxTHREAD_JOINABLE) {}

private:
    ExitCode Entry() override {
        return nullptr;
    }
};

/// Waits for the last instruction of a thread. The toolkit's own Wait would let go of the lock of
/// the user interface and take it back, which may block for ever in a host that holds its own.
void Join(const wxThread& thread) {
    pthread_join(thread.GetId(), nullptr);
}

void DismissThread() {
    if (Spiro.SpiroThread->EndedByToolkit()) {
        // It was joined, and nobody can delete a thread's object any more: it stays behind.
        [[maybe_unused]] const auto* leftBehind = Spiro.SpiroThread.release();
        return;
    }
    Join(*Spiro.SpiroThread);
    Spiro.SpiroThread.reset();
}

/// Ends the thread with the library or the process. Made by the first start, after all that the
/// thread uses, and so the first to go.
class EndWithLibrary {
public:
    /// The first end of a thread makes the system load a library, and the toolkit make an object
    /// that lasts as long as the process. Neither may be left to the spirometer thread: while the
    /// library is unloaded no other can be loaded, and at the end of the process what is younger
    /// than this object is gone.
    EndWithLibrary() {
        Rehearsal rehearsal;
        if (rehearsal.Create(0) == wxTHREAD_NO_ERROR && rehearsal.Run() == wxTHREAD_NO_ERROR) {
            Join(rehearsal);
        }
    }
    ~EndWithLibrary() {
        if (Spiro.SpiroThread != nullptr) {
            Spiro.SpiroThread->RequestStop();
            DismissThread();
        }
    }
    EndWithLibrary(const EndWithLibrary&) = delete;
    EndWithLibrary& operator=(const EndWithLibrary&) = delete;
};

} // namespace

bool StartThreadSpiro(wxMutex* mutex, wxCondition* condition, int32_t /*reserved1*/,
                      double /*reserved2*/, wxCriticalSection* section) try {
    if (mutex == nullptr || condition == nullptr || section == nullptr) {
        return false;
    }
    StopThreadSpiro();
    if (Spiro.SpiroThread != nullptr) {
        return false;
    }
    const wxLogNull nobodyIsTold; // The toolkit would tell the user of a thread that it can't have.
    static const EndWithLibrary endWithLibrary;
    auto thread = std::make_unique<TvlSpiroThreadOrvane>(*mutex, *condition, *section);
    if (thread->Create(0) == wxTHREAD_NO_ERROR && thread->Run() == wxTHREAD_NO_ERROR) {
        Spiro.SpiroThread = std::move(thread);
    }
    return true;
} catch (const std::bad_alloc&) {
    return false;
}

void StopThreadSpiro() {
    if (Spiro.SpiroThread != nullptr) {
        Spiro.SpiroThread->RequestStop();
        for (int pauses = 0; !Spiro.SpiroThread->HasEnded() && pauses < mostStopPauses; ++pauses) {
            platform::Pause(stopPauseMs);
        }
        if (Spiro.SpiroThread->HasEnded()) {
            DismissThread();
        }
    }
    SpiroEffacerDonnees();
}
