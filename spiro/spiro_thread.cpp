#include "spiro/spiro_thread.h"

#include "adapter_exports.h"
#include "platform/lifelong_lock.h"
#include "platform/pause.h"
#include "spiro/spiro_state.h"
#include "spiro/turbine.h"
#include "spiro_exports.h"

#include <wx/log.h>

#include <memory>
#include <new>

namespace {

constexpr unsigned long searchPauseMs = 100;
constexpr unsigned long measurePauseMs = 25;
constexpr unsigned long stopPauseMs = 10;
constexpr int mostStopPauses = 100;
/// How long a stop request may wait while the host holds one of its objects.
constexpr unsigned long hostObjectWaitMs = 1;

void RequestStop() {
    const std::scoped_lock lock(Spiro.ThreadLock);
    if (TvlSpiroThreadOrvane* thread = Spiro.SpiroThread; thread != nullptr) {
        thread->RequestStop();
    }
}

/// Holds the unloading of the library up until its worker is gone. The null pointer alone does not
/// tell: after the store the worker still has to return from the destructor, whose code would be
/// gone, and the toolkit detaches its thread, so that nobody can join it.
///
/// The object is made by the first start, after everything that the worker uses, and so goes first.
class WorkerLife {
public:
    WorkerLife() = default;
    ~WorkerLife() {
        RequestStop();
        while (Spiro.SpiroThread != nullptr) {
            platform::Pause(stopPauseMs);
        }
        held.WaitForHolder();
    }
    WorkerLife(const WorkerLife&) = delete;
    WorkerLife& operator=(const WorkerLife&) = delete;

    /// For the worker, first of all; the one before it is gone when this returns.
    void Begin() {
        held.HoldForLife();
    }

private:
    platform::LifelongLock held;
};

WorkerLife& LifeOfWorker() {
    static WorkerLife life;
    return life;
}

struct LeaveSection {
    void operator()(wxCriticalSection* section) const {
        section->Leave();
    }
};

} // namespace

TvlSpiroThreadOrvane::TvlSpiroThreadOrvane(wxMutex& mutex, wxCondition& condition,
                                           wxCriticalSection& section)
    : wxThread(wxTHREAD_DETACHED), Mutex(&mutex), Condition(&condition), Section(&section) {
    Spiro.SpiroThread = this;
}

TvlSpiroThreadOrvane::~TvlSpiroThreadOrvane() {
    SpiroEffacerDonnees(); // Before a next thread can be there and tell something.
    const std::scoped_lock lock(Spiro.ThreadLock);
    Spiro.SpiroThread = nullptr;
}

wxThread::ExitCode TvlSpiroThreadOrvane::Entry() try {
    LifeOfWorker().Begin();
    SpiroInitTemps();
    for (bool premierTour = true; !Arret; premierTour = false) {
        const int32_t etat = GetEtatVerifCanaux();
        if (premierTour || etat != DernierEtat) {
            DernierEtat = etat;
            InSection([] { Spiro.SpiroConnecteur = DetecteTurbineSpiro(nullptr); });
        }
        if (Spiro.SpiroConnecteur == 0) {
            SpiroInitTemps();
            platform::Pause(searchPauseMs);
        } else {
            Measure();
            platform::Pause(measurePauseMs);
        }
    }
    return nullptr;
} catch (const std::bad_alloc&) {
    return nullptr;
}

/// Tells of the turbine and, if the host wants it, of one step.
void TvlSpiroThreadOrvane::Measure() {
    tSpiroData donnees = ClearedSpiroData;
    donnees.Connecteur = Spiro.SpiroConnecteur;
    donnees.CodeAdaptateur = Spiro.SpiroCode;
    donnees.NbEchantillons = 1;
    const bool stepMade =
        Spiro.SpiroMesure && InSection([&] { donnees.Echantillons[0] = SpiroPas(); });
    SpiroEcrireDonnees(donnees);
    if (stepMade) {
        SignalHost();
    }
}

/// Does something inside the host's section, unless a stop is requested before: the host may be in
/// its section while it stops the thread or unloads the library.
/// \return whether it was done
template <class Action> bool TvlSpiroThreadOrvane::InSection(Action action) {
    while (!Section->TryEnter()) {
        if (Arret) {
            return false;
        }
        platform::Pause(hostObjectWaitMs);
    }
    const std::unique_ptr<wxCriticalSection, LeaveSection> entered(Section);
    if (Arret) {
        return false;
    }
    action();
    return true;
}

/// Signals under the host's mutex, or without it if that can't be had.
void TvlSpiroThreadOrvane::SignalHost() {
    wxMutexError taken = wxMUTEX_TIMEOUT;
    while (taken == wxMUTEX_TIMEOUT && !Arret) {
        taken = Mutex->LockTimeout(hostObjectWaitMs);
    }
    Condition->Signal();
    if (taken == wxMUTEX_NO_ERROR) {
        Mutex->Unlock();
    }
}

bool StartThreadSpiro(wxMutex* mutex, wxCondition* condition, int32_t /*reserved1*/,
                      double /*reserved2*/, wxCriticalSection* section) try {
    if (mutex == nullptr || condition == nullptr || section == nullptr) {
        return false;
    }
    StopThreadSpiro();
    if (Spiro.SpiroThread != nullptr) {
        return false;
    }
    LifeOfWorker();
    auto thread = std::make_unique<TvlSpiroThreadOrvane>(*mutex, *condition, *section);
    const wxLogNull nobodyIsTold;
    if (thread->Create(0) == wxTHREAD_NO_ERROR) {
        thread.release()->Run(); // From here on the object is its thread's.
    }
    return true;
} catch (const std::bad_alloc&) {
    return false;
}

void StopThreadSpiro() {
    RequestStop();
    for (int pauses = 0; Spiro.SpiroThread != nullptr && pauses < mostStopPauses; ++pauses) {
        platform::Pause(stopPauseMs);
    }
    SpiroEffacerDonnees();
}
