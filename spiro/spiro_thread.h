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
/// A std::thread and not a thread of the toolkit. The toolkit's can be neither created nor run when
/// memory is short, and one that is half created then ends the process; it exits through the
/// unwinder, which waits for the loader while the library is unloaded; and the toolkit keeps it in
/// a list that a child process inherits.
///
/// A thread that outlasts StopThreadSpiro still ends; its object is deleted by the next start, the
/// next stop or the unloading of the library.
class TvlSpiroThreadOrvane {
public:
    /// Starts the thread.
    TvlSpiroThreadOrvane(wxMutex& mutex, wxCondition& condition, wxCriticalSection& section);
    /// Stops the thread and joins it.
    ~TvlSpiroThreadOrvane();
    TvlSpiroThreadOrvane(const TvlSpiroThreadOrvane&) = delete;
    TvlSpiroThreadOrvane& operator=(const TvlSpiroThreadOrvane&) = delete;

    /// Makes the thread end after its current pause.
    void RequestStop() {
        Arret = true;
    }
    /// Whether the thread no longer uses any object of the host or the driver.
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
    std::chrono::milliseconds SpinBackoff{}; ///< Since the last spin; 0: that succeeded.
    std::chrono::steady_clock::time_point NextSpin{}; ///< When to spin again at the earliest.
    std::atomic<bool> Arret{false}; ///< Stop request; written by the host's thread.
    std::atomic<bool> Ended{false}; ///< Written by the thread itself, at its end.
    std::thread Thread;             ///< The last member: started after all that it uses.
};

} // namespace orvane
