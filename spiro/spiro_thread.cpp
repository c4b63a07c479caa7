#include "spiro/spiro_thread.h"

#include "adapter_exports.h"
#include "platform/pause.h"
#include "spiro/spiro_state.h"
#include "spiro/turbine.h"

#include <exception>
#include <memory>
#include <type_traits>

namespace {

constexpr unsigned long searchPauseMs = 100;
constexpr unsigned long measurePauseMs = 25;

/// \name Waiting for an object of the host
/// @{
constexpr unsigned long firstWaitMs = 1;
constexpr std::chrono::microseconds watchTime(600);
constexpr std::chrono::seconds noWatchTime(1);
constexpr unsigned long waitMs = 10; ///< How long a stop request may go unseen.
/// @}

struct LeaveSection {
    void operator()(wxCriticalSection* section) const {
        section->Leave();
    }
};

/// The mutex that a section of the toolkit is, everywhere but on Windows. It can be waited for with
/// an end, which a section can't.
wxMutex& MutexOf(wxCriticalSection& section) {
    static_assert(std::is_standard_layout_v<wxCriticalSection> &&
                  sizeof(wxCriticalSection) == sizeof(wxMutex));
    return reinterpret_cast<wxMutex&>(section);
}

} // namespace

TvlSpiroThreadOrvane::TvlSpiroThreadOrvane(wxMutex& mutex, wxCondition& condition,
                                           wxCriticalSection& section)
    : Mutex(&mutex), Condition(&condition), Section(&section),
      Thread(&TvlSpiroThreadOrvane::Entry, this) {}

TvlSpiroThreadOrvane::~TvlSpiroThreadOrvane() {
    RequestStop();
    Thread.join();
}

void TvlSpiroThreadOrvane::Entry() {
    try {
        Watch();
    } catch (const std::exception&) {
        // Without memory there is no turbine to be seen. The toolkit's texts throw more than
        // bad_alloc when there is none.
    }
    SpiroEffacerDonnees();
    Ended = true;
}

/// Passes until a stop is requested.
void TvlSpiroThreadOrvane::Watch() {
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

/// Waits for an object of the host, and gives up when a stop is requested: the host may hold the
/// object while it stops the thread or unloads the library.
bool TvlSpiroThreadOrvane::Take(wxMutex& mutex) {
    wxMutexError taken = mutex.LockTimeout(firstWaitMs);
    if (taken == wxMUTEX_TIMEOUT && !Arret) {
        taken = WatchFor(mutex);
    }
    while (taken == wxMUTEX_TIMEOUT && !Arret) {
        taken = mutex.LockTimeout(waitMs);
    }
    return taken == wxMUTEX_NO_ERROR;
}

/// Tries for a mutex without sleeping. A host that leaves its section for some microseconds is back
/// in before a sleeping thread has woken up, but not before one that is awake has seen it. On a
/// crowded machine that does harm: the thread loses its processor and misses the moment. Then it
/// sleeps for the next time, until the host's leaving wakes it.
wxMutexError TvlSpiroThreadOrvane::WatchFor(wxMutex& mutex) {
    const auto begin = std::chrono::steady_clock::now();
    if (begin < NextWatch) {
        return wxMUTEX_TIMEOUT;
    }
    wxMutexError taken = wxMUTEX_BUSY;
    auto now = begin;
    while (taken == wxMUTEX_BUSY && now - begin < watchTime) {
        taken = mutex.TryLock();
        now = std::chrono::steady_clock::now();
    }
    if (now - begin > 2 * watchTime) {
        NextWatch = now + noWatchTime;
    }
    return taken == wxMUTEX_BUSY ? wxMUTEX_TIMEOUT : taken;
}

/// Does something inside the host's section, unless a stop is requested before.
/// \return whether it was done
template <class Action> bool TvlSpiroThreadOrvane::InSection(Action action) {
    if (!Take(MutexOf(*Section))) {
        return false;
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
    const bool taken = Take(*Mutex);
    Condition->Signal();
    if (taken) {
        Mutex->Unlock();
    }
}
