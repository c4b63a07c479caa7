#pragma once

#include <chrono>
#include <vector>

namespace orvane {

/// How long drawing each chart of the window took, if that is asked for. Main thread.
struct FrameTimeRecord {
    bool Wanted = false;
    std::vector<double> Milliseconds;
};

inline FrameTimeRecord FrameTimes;

/// Notes the time from its start to its end.
struct FrameTimer {
    FrameTimer() = default;
    FrameTimer(const FrameTimer&) = delete;
    FrameTimer& operator=(const FrameTimer&) = delete;
    ~FrameTimer() {
        if (FrameTimes.Wanted) {
            const std::chrono::duration<double, std::milli> took =
                std::chrono::steady_clock::now() - Start;
            FrameTimes.Milliseconds.push_back(took.count());
        }
    }

    std::chrono::steady_clock::time_point Start = std::chrono::steady_clock::now();
};

} // namespace orvane
