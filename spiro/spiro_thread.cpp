#include "spiro/spiro_thread.h"

#include "adapter_exports.h"
#include "platform/pause.h"
#include "spiro/spiro_state.h"
#include "spiro/turbine.h"

#include <memory>
#include <new>

namespace {

constexpr unsigned long searchPauseMs = 100;
constexpr unsigned long measurePauseMs = 25;
/// How long a stop request waits while the host holds one of its objects.
constexpr unsigned long hostObjectWaitMs = 1;

struct LeaveSection {
    void operator()(wxCriticalSection* section) const {
        section->Leave();
    }
};

} // namespace

TvlSpiroThreadOrvane::TvlSpiroThreadOrvane(wxMutex& mutex, wxCondition& condition,
                                           wxCriticalSection& section)
    : wxThread(wxTHREAD_JOINABLE), Mutex(&mutex), Condition(&condition), Section(&section) {}

wxThread::ExitCode TvlSpiroThreadOrvane::Entry() {
    try {
        Watch();
    } catch (const std::bad_alloc&) {
        // Without memory there is no turbine to be seen.
    }
    SpiroEffacerDonnees();
    CancelSeen = TestDestroy();
    Ended = true;
    return nullptr;
}

/// The toolkit asks too, when it is taken down under the thread.
bool TvlSpiroThreadOrvane::Stopping() {
    return Arret || TestDestroy();
}

/// Passes until a stop is requested.
void TvlSpiroThreadOrvane::Watch() {
    SpiroInitTemps();
    for (bool premierTour = true; !Stopping(); premierTour = false) {
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

/// Does something inside the host's section, unless a stop is requested before: the host may be in
/// its section while it stops the thread or unloads the library.
/// \return whether it was done
template <class Action> bool TvlSpiroThreadOrvane::InSection(Action action) {
    while (!Section->TryEnter()) {
        if (Stopping()) {
            return false;
        }
        platform::Pause(hostObjectWaitMs);
    }
    const std::unique_ptr<wxCriticalSection, LeaveSection> entered(Section);
    if (Stopping()) {
        return false;
    }
    action();
    return true;
}

/// Signals under the host's mutex, or without it if that can't be had.
void TvlSpiroThreadOrvane::SignalHost() {
    wxMutexError taken = wxMUTEX_TIMEOUT;
    while (taken == wxMUTEX_TIMEOUT && !Stopping()) {
        taken = Mutex->LockTimeout(hostObjectWaitMs);
    }
    Condition->Signal();
    if (taken == wxMUTEX_NO_ERROR) {
        Mutex->Unlock();
    }
}
