#pragma once

/// \file
/// The thread that watches for the turbine and measures its flow.

#include <wx/thread.h>

#include <atomic>
#include <cstdint>

/// Uses the host's objects and owns none of them.
///
/// Joinable, because only joining tells that a thread has run its last instruction: a detached one
/// would still be on its way out of the library when its code is unloaded. Nobody has to join it,
/// though: one that outlasts StopThreadSpiro ends all the same, and goes with the next start, the
/// next stop or the library.
class TvlSpiroThreadOrvane final : public wxThread {
public:
    TvlSpiroThreadOrvane(wxMutex& mutex, wxCondition& condition, wxCriticalSection& section);

    /// Lets the thread end after its running pause.
    void RequestStop() {
        Arret = true;
    }
    /// Whether the thread uses nothing of the host's or the driver's any more.
    bool HasEnded() const {
        return Ended;
    }
    /// Whether it was the toolkit that ended the thread, because the host took the toolkit down
    /// first; the toolkit then has joined the thread.
    bool EndedByToolkit() const {
        return Ended && CancelSeen;
    }

private:
    ExitCode Entry() override;

    bool Stopping();
    void Watch();
    void Measure();
    template <class Action> bool InSection(Action action);
    void SignalHost();

    wxMutex* Mutex;
    wxCondition* Condition;
    wxCriticalSection* Section;
    int32_t DernierEtat = 0;             ///< Count of adapter changes at the last detection.
    std::atomic<bool> Arret{false};      ///< Stop request; written by the host's thread.
    std::atomic<bool> CancelSeen{false}; ///< Written by the thread itself before its end.
    std::atomic<bool> Ended{false};      ///< Written by the thread itself, last of all.
};
