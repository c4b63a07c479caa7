#pragma once

/// \file
/// The thread that watches for the turbine and measures its flow.

#include <wx/thread.h>

#include <atomic>
#include <cstdint>

/// Detached: the object deletes itself when Entry returns. It uses the host's objects and owns none
/// of them.
class TvlSpiroThreadOrvane final : public wxThread {
public:
    TvlSpiroThreadOrvane(wxMutex& mutex, wxCondition& condition, wxCriticalSection& section);
    ~TvlSpiroThreadOrvane() override;

    /// Lets the thread end after its running pause. Any thread, with the object kept in place by
    /// Spiro.ThreadLock.
    void RequestStop() {
        Arret = true;
    }

private:
    ExitCode Entry() override;

    void Measure();
    template <class Action> bool InSection(Action action);
    void SignalHost();

    wxMutex* Mutex;
    wxCondition* Condition;
    wxCriticalSection* Section;
    int32_t DernierEtat = 0; ///< Count of adapter changes at the last detection.
    std::atomic<bool> Arret{false};
};
