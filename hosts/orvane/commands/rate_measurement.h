#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <vector>

namespace orvane {

/// Something whose cost is measured.
struct RateCase {
    std::string Label;
    std::function<void()> Prepare; ///< Goes before each round and is not measured; may be empty.
    /// Does it about `count` times. \return how often it was done
    std::function<size_t(size_t count)> Do;
    /// Whether what was prepared stood to the end of the round, which else is done again; may be
    /// empty.
    std::function<bool()> Stood = {};
};

/// What does a call as often as it is told. The calls go through the driver's pointers or into the
/// runtime, so none of them is left out.
template <class Call> std::function<size_t(size_t)> Repeated(Call call) {
    return [call](size_t count) {
        for (size_t i = 0; i < count; ++i) {
            call();
        }
        return count;
    };
}

/// Nanoseconds for each of the cases: the least of many short rounds that take turns, so that what
/// else the machine does meanwhile counts for little and for none of them more than for the others.
/// Goes on for about 2 s, slow cases longer: each gets three rounds at least.
std::vector<double> MeasureRates(const std::vector<RateCase>& cases);

} // namespace orvane
