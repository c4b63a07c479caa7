// Starts and stops the spirometer thread, and makes sure that the thread never outlives the
// library.

#include "platform/clock.h"
#include "spiro/spiro_state.h"
#include "spiro/spiro_thread.h"
#include "spiro/turbine.h"
#include "spiro_exports.h"

#include <wx/module.h>

#include <pthread.h>

#include <memory>
#include <new>
#include <system_error>

namespace orvane {

namespace {

constexpr unsigned long stopPauseMs = 10;
constexpr int maxStopPauses = 100;

/// \name A process that forks
/// The child has a copy of the record and of the thread's object, but
/// not the thread. The object is leaked, because it can't be joined.
/// @{
void LockRecord() {
    Spiro.DonneesLock.lock();
}

void UnlockRecord() {
    Spiro.DonneesLock.unlock();
}

void ForgetThread() {
    [[maybe_unused]] const auto* leaked = Spiro.SpiroThread.release();
    Spiro.SpiroDonnees = ClearedSpiroData;
    UnlockRecord();
}
/// @}

/// Stops the thread when the library is unloaded or the process ends. Created by the first start,
/// after all that the thread uses, and so destroyed before.
class StopAtUnload {
public:
    StopAtUnload() {
        if (pthread_atfork(LockRecord, UnlockRecord, ForgetThread) != 0) {
            throw std::bad_alloc();
        }
    }
    ~StopAtUnload() {
        Spiro.SpiroThread.reset();
    }
    StopAtUnload(const StopAtUnload&) = delete;
    StopAtUnload& operator=(const StopAtUnload&) = delete;
};

} // namespace

} // namespace orvane

using namespace orvane;

bool StartThreadSpiro(wxMutex* mutex, wxCondition* condition, int32_t /*reserved1*/,
                      double /*reserved2*/, wxCriticalSection* section) try {
    if (mutex == nullptr || condition == nullptr || section == nullptr ||
        !wxModule::AreInitialized()) {
        return false;
    }
    StopThreadSpiro();
    if (Spiro.SpiroThread != nullptr) {
        return false;
    }
    static const StopAtUnload stopAtUnload;
    Spiro.SpiroThread = std::make_unique<TvlSpiroThreadOrvane>(*mutex, *condition, *section);
    return true;
} catch (const std::bad_alloc&) {
    return false;
} catch (const std::system_error&) {
    return true; // A thread that the system refuses is not reported.
}

void StopThreadSpiro() {
    if (Spiro.SpiroThread != nullptr) {
        Spiro.SpiroThread->RequestStop();
        for (int pauses = 0; !Spiro.SpiroThread->HasEnded() && pauses < maxStopPauses; ++pauses) {
            platform::Pause(stopPauseMs);
        }
        if (Spiro.SpiroThread->HasEnded()) {
            Spiro.SpiroThread.reset();
        }
    }
    SpiroEffacerDonnees();
}
