#pragma once

#include <chrono>
#include <cstddef>

namespace orvane {

/// A progress bar on the last line of standard error, shown only if that is a terminal. The
/// destructor clears the line.
struct ProgressBar {
    explicit ProgressBar(size_t total);
    ProgressBar(const ProgressBar&) = delete;
    ProgressBar& operator=(const ProgressBar&) = delete;
    ~ProgressBar();

    /// Draws the bar for `done` of `total`, a few times a second at most.
    void Show(size_t done);

private:
    using Clock = std::chrono::steady_clock;

    size_t Total;
    size_t Columns; ///< Width of the terminal; 0 if there is none.
    Clock::time_point Next;
};

} // namespace orvane
