#include "spiro/spiro_thread.h"

#include "adapter_exports.h"
#include "platform/clock.h"
#include "spiro/spiro_state.h"
#include "spiro/turbine.h"

#include <algorithm>
#include <exception>
#include <memory>
#include <type_traits>

namespace orvane {

namespace {

constexpr unsigned long searchPauseMs = 100;
constexpr unsigned long measurePauseMs = 25;

/// \name Waiting for an object of the host
/// @{
constexpr unsigned long firstWaitMs = 1;
constexpr unsigned long waitMs = 5; ///< How long a stop request may go unseen.
constexpr std::chrono::microseconds spinTime(600);
constexpr std::chrono::milliseconds
    shortestBackoff(10); ///< Before the next spin, after one in vain.
constexpr std::chrono::milliseconds longestBackoff(2000);
/// @}

/// Clears the record once when the turbine has been unplugged; the search writes nothing else.
void LookForTurbine() {
    const int32_t before = Spiro.SpiroConnecteur.exchange(DetecteTurbineSpiro(nullptr));
    if (before != 0 && Spiro.SpiroConnecteur == 0) {
        SpiroEffacerDonnees();
    }
}

struct LeaveSection {
    void operator()(wxCriticalSection* section) const {
        section->Leave();
    }
};

/// The mutex that a section of the toolkit is, everywhere but on Windows. Unlike a section, it can
/// be locked with a timeout.
wxMutex& MutexOf(wxCriticalSection& section) {
    static_assert(std::is_standard_layout_v<wxCriticalSection> &&
                  sizeof(wxCriticalSection) == sizeof(wxMutex));
    return reinterpret_cast<wxMutex&>(section);
}

} // namespace

TvlSpiroThreadOrvane::TvlSpiroThreadOrvane(wxMutex& mutex, wxCondition& condition,
                                           wxCriticalSection& section)
    : Mutex(&mutex), Condition(&condition), Section(&section),
      Thread(&TvlSpiroThreadOrvane::Run, this) {}

TvlSpiroThreadOrvane::~TvlSpiroThreadOrvane() {
    RequestStop();
    Thread.join();
}

void TvlSpiroThreadOrvane::Run() {
    try {
        Work();
    } catch (const std::exception&) {
        // Without memory the thread ends. The toolkit's texts then throw other exceptions than
        // bad_alloc, too.
    }
    SpiroEffacerDonnees();
    Ended = true;
}

/// Searches and measures until a stop is requested.
void TvlSpiroThreadOrvane::Work() {
    SpiroInitTemps();
    for (bool premierTour = true; !Arret; premierTour = false) {
        const int32_t etat = GetEtatVerifCanaux();
        if (premierTour || etat != DernierEtat) {
            DernierEtat = etat;
            InSection(LookForTurbine);
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

/// Publishes the turbine and, if the host wants samples, one step.
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
bool TvlSpiroThreadOrvane::LockUnlessStopped(wxMutex& mutex) {
    wxMutexError locked = mutex.LockTimeout(firstWaitMs);
    while (locked == wxMUTEX_TIMEOUT && !Arret) {
        locked = SpinFor(mutex) ? wxMUTEX_NO_ERROR : mutex.LockTimeout(waitMs);
    }
    return locked == wxMUTEX_NO_ERROR;
}

/// Tries to lock a mutex without sleeping. A host that leaves its section for some microseconds is
/// back before a sleeping thread has woken up, but not before one that is awake. Where that doesn't
/// help, because the host leaves it for longer or others need the processor, the thread spins less
/// and less often and sleeps until it is woken.
bool TvlSpiroThreadOrvane::SpinFor(wxMutex& mutex) {
    auto now = std::chrono::steady_clock::now();
    if (now < NextSpin) {
        return false;
    }
    for (const auto end = now + spinTime; now < end; now = std::chrono::steady_clock::now()) {
        if (mutex.TryLock() == wxMUTEX_NO_ERROR) {
            SpinBackoff = {};
            return true;
        }
    }
    SpinBackoff = std::clamp(2 * SpinBackoff, shortestBackoff, longestBackoff);
    NextSpin = now + SpinBackoff;
    return false;
}

/// Does something inside the host's section, unless a stop is requested before.
/// \return whether it was done
template <class Action> bool TvlSpiroThreadOrvane::InSection(Action action) {
    if (!LockUnlessStopped(MutexOf(*Section))) {
        return false;
    }
    const std::unique_ptr<wxCriticalSection, LeaveSection> entered(Section);
    if (Arret) {
        return false;
    }
    action();
    return true;
}

/// Signals under the host's mutex, or without it if it can't be locked.
void TvlSpiroThreadOrvane::SignalHost() {
    const bool locked = LockUnlessStopped(*Mutex);
    Condition->Signal();
    if (locked) {
        Mutex->Unlock();
    }
}

} // namespace orvane
