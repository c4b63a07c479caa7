#pragma once

/// \file
/// The thread that watches for the turbine and measures its flow.

#include <wx/thread.h>

#include <atomic>
#include <chrono>
#include <cstdint>
#include <thread>

namespace orvane {

/// Uses the host's objects and owns none of them.
///
/// A thread of the system and not one of the toolkit's. The toolkit's can neither be made nor run
/// when memory is short, and what is left of one then ends the process; it ends by way of the
/// unwinder, which waits for the loader while the library is unloaded; and the toolkit keeps it in
/// a list that a child process inherits.
///
/// One that outlasts StopThreadSpiro ends all the same, and goes with the next start, the next stop
/// or the library.
class TvlSpiroThreadOrvane {
public:
    /// Starts the thread.
    TvlSpiroThreadOrvane(wxMutex& mutex, wxCondition& condition, wxCriticalSection& section);
    /// Ends the thread and waits for its last instruction.
    ~TvlSpiroThreadOrvane();
    TvlSpiroThreadOrvane(const TvlSpiroThreadOrvane&) = delete;
    TvlSpiroThreadOrvane& operator=(const TvlSpiroThreadOrvane&) = delete;

    /// Lets the thread end after its running pause.
    void RequestStop() {
        Arret = true;
    }
    /// Whether the thread uses nothing of the host's or the driver's any more.
    bool HasEnded() const {
        return Ended;
    }

private:
    void Run();
    void Work();
    void Measure();
    bool LockUnlessStopped(wxMutex& mutex);
    bool SpinFor(wxMutex& mutex);
    template <class Action> bool InSection(Action action);
    void SignalHost();

    wxMutex* Mutex;
    wxCondition* Condition;
    wxCriticalSection* Section;
    int32_t DernierEtat = 0;                 ///< Count of adapter changes at the last detection.
    std::chrono::milliseconds SpinBackoff{}; ///< After the last watch; 0: it paid.
    std::chrono::steady_clock::time_point NextSpin{}; ///< End of the rest.
    std::atomic<bool> Arret{false}; ///< Stop request; written by the host's thread.
    std::atomic<bool> Ended{false}; ///< Written by the thread itself, last of all.
    std::thread Thread;             ///< Made last, of all that it uses.
};

} // namespace orvane
