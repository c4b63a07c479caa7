#pragma once

#include "hosts/session/forced_breath.h"

#include <optional>
#include <string>
#include <vector>

namespace orvane {

/// A place of a manoeuvre's curves.
struct BreathPoint {
    double TimeSec = 0.0; ///< Since the back-extrapolated start.
    double Flow = 0.0;    ///< Out of the lungs.
    double Volume = 0.0;  ///< Expired from full lungs on.
};

/// A forced breath with the curves around it.
struct Manoeuvre {
    ForcedBreath Breath;
    std::vector<BreathPoint> Loop; ///< The inspirations before and after it included.
    size_t First = 0;              ///< The expiration within the loop, from full lungs
    size_t Last = 0;               ///< to its last point.
    std::string At;                ///< The time of day.
    bool Kept = true;
};

/// Takes the forced breaths of a recording into a list, where `from` is the first of it: one that
/// is there already gets its newest curves, a new one is kept.
/// \param now the time of day
void TakeForcedBreaths(std::vector<Manoeuvre>& list, size_t from,
                       std::span<const FlowReading> readings, const std::string& now);

/// What the kept manoeuvres give together.
struct BreathSummary {
    double Fvc = 0.0;  ///< The largest.
    double Fev1 = 0.0; ///< The largest, maybe of another manoeuvre.
    double Pef = 0.0;  ///< The largest.
    size_t Best = 0;   ///< The manoeuvre with the largest sum of FVC and FEV1.
    size_t Kept = 0;
    /// \name How far the two largest are apart; nothing with one manoeuvre
    /// @{
    std::optional<double> FvcApart;
    std::optional<double> Fev1Apart;
    /// @}
    bool StartsWell = false; ///< All their back-extrapolated volumes are within the limit.
};

/// Nothing if none is kept.
std::optional<BreathSummary> SummaryOf(const std::vector<Manoeuvre>& list);

/// L; how far two largest values of repeatable manoeuvres may be apart.
constexpr double repeatableWithin = 0.15;

/// The largest back-extrapolated volume of a good start.
double BackVolumeLimit(const ForcedBreath& breath);

} // namespace orvane
