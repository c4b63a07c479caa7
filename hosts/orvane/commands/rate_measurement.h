#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <vector>

namespace orvane {

/// Something whose cost is measured.
struct RateCase {
    std::string Label;
    std::function<void()> Prepare; ///< Called before each round and not measured; may be empty.
    /// Does the operation about `count` times. \return how often it was done
    std::function<size_t(size_t count)> Do;
    /// Whether the prepared state lasted to the end of the round; if not, the round is repeated.
    /// May be empty.
    std::function<bool()> Stood = {};
};

/// Repeats a call. The calls go through the driver's pointers or into the runtime, so the compiler
/// cannot remove them.
template <class Call> std::function<size_t(size_t)> Repeated(Call call) {
    return [call](size_t count) {
        for (size_t i = 0; i < count; ++i) {
            call();
        }
        return count;
    };
}

/// Nanoseconds for each of the cases: the minimum of many short interleaved rounds, so that other
/// load on the machine has little effect, and about the same on each case. Takes about 2 s, longer
/// with slow cases: each gets at least three rounds.
std::vector<double> MeasureRates(const std::vector<RateCase>& cases);

} // namespace orvane
