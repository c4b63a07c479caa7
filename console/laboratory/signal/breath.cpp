#include "console/laboratory/signal/breath.h"

#include "console/laboratory/signal/elementary.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace orvane::laboratory {

namespace {

constexpr double riseTime = ForcedBreath::RiseTime;
/// From the peak to the end of the FEV1, which counts from the middle of the rise: the start that
/// the steepest part of the volume, extrapolated back, gives.
constexpr double restOfFev1 = 1.0 - riseTime / 2.0;

constexpr double longestInspiration = 1.2;
constexpr double inspirationOfCycle = 0.2;

constexpr double lastPart = 0.02; ///< Of the FVC, expired with an even fall.

/// The power law after the peak: what is left, over what was left at the peak, is
/// (1 + K Speed t)^(-1/K).
struct PowerLaw {
    double Speed; ///< Peak flow over what is left then; 1/s.
    double K;     ///< m - 1
};

double LeftAt(const PowerLaw& law, double time) {
    const double base = 1.0 + law.K * law.Speed * time;
    return base > 0.0 ? Exponential(-Logarithm(base) / law.K) : 0.0;
}

double TimeOfLeft(const PowerLaw& law, double left) {
    return ExponentialMinusOne(-law.K * Logarithm(left)) / (law.K * law.Speed);
}

/// K such that so much is left at a time; what is left rises with it. Near 0, where the law is an
/// exponential, K stays large enough for 1 + K.
double SolveK(double speed, double time, double left) {
    constexpr double leastK = 1e-7;
    double low = -1.0;
    double high = 64.0; // With this the last part would take 10^100 s.
    for (int halving = 0; halving < 60; ++halving) {
        const double middle = (low + high) / 2.0;
        (LeftAt({speed, middle}, time) < left ? low : high) = middle;
    }
    return std::abs(high) < leastK ? leastK : high;
}

/// When the ending begins: with the last part, or earlier if the even fall would take until after
/// `end`, but not before the FEV1 is complete. A fall from time t on ends at 2/Speed + t (1 + 2 K).
double EndingStart(const PowerLaw& law, double leftForEnding, double end) {
    const double slope = 1.0 + 2.0 * law.K;
    double start = TimeOfLeft(law, leftForEnding);
    if (2.0 / law.Speed + start * slope > end) {
        start = slope > 0.0 ? (end - 2.0 / law.Speed) / slope : 0.0;
    }
    return std::max(start, restOfFev1);
}

ForcedExpiration PrepareForced(const ForcedBreath& forced) {
    const double atPeak = forced.Fvc - forced.Pef * riseTime / 2.0; // what is left then
    const double speed = forced.Pef / atPeak;
    const PowerLaw law{speed, SolveK(speed, restOfFev1, (forced.Fvc - forced.Fev1) / atPeak)};
    const double end = LongestExpiration(forced) - riseTime;
    ForcedExpiration made;
    made.Peak = forced.Pef;
    made.Rate = law.K * law.Speed;
    made.Exponent = -(1.0 + 1.0 / law.K);
    made.EndingStart = EndingStart(law, lastPart * forced.Fvc / atPeak, end);
    const double left = LeftAt(law, made.EndingStart) * atPeak;
    made.EndingFlow =
        made.Peak * Exponential(made.Exponent * Logarithm(1.0 + made.Rate * made.EndingStart));
    made.EndingTime = std::min(2.0 * left / made.EndingFlow, end - made.EndingStart);
    made.EndingBulge = 6.0 * left / made.EndingTime - 3.0 * made.EndingFlow;
    return made;
}

/// The peak of half a sine with this volume.
double PeakOf(double volume, double time) {
    return std::numbers::pi * volume / (2.0 * time);
}

void PrepareCycle(const ForcedBreath& forced, PreparedBreath& made) {
    constexpr double reserveOfFvc = 0.25;
    constexpr double reserveOfInspiration = 2.0; // in time
    made.Every = forced.Every;
    made.InspirationTime = std::min(longestInspiration, inspirationOfCycle * forced.Every);
    made.InspirationPeak = PeakOf(forced.Fvc, made.InspirationTime);
    made.Forced = PrepareForced(forced);
    made.ForcedTime = riseTime + made.Forced.EndingStart + made.Forced.EndingTime;
    double rest = forced.Every - made.InspirationTime - made.ForcedTime;
    const double reserveTime = reserveOfInspiration * made.InspirationTime;
    if (rest > 2.0 * reserveTime) {
        made.ReserveTime = reserveTime;
        made.ReservePeak = PeakOf(reserveOfFvc * forced.Fvc, reserveTime);
        rest -= 2.0 * reserveTime;
    }
    made.QuietTime = std::floor(rest * made.Rate) / made.Rate;
}

double QuietAt(const PreparedBreath& breath, double time) {
    return -breath.QuietPeak * SineOfTurns(breath.Rate * time);
}

double ForcedAt(const ForcedExpiration& forced, double time) {
    if (time < riseTime) {
        return forced.Peak * (time / riseTime);
    }
    const double falling = time - riseTime;
    if (falling < forced.EndingStart) {
        return forced.Peak * Exponential(forced.Exponent * Logarithm(1.0 + forced.Rate * falling));
    }
    const double ended = (falling - forced.EndingStart) / forced.EndingTime;
    return (1.0 - ended) * (forced.EndingFlow + forced.EndingBulge * ended);
}

} // namespace

PreparedBreath PrepareBreath(const Breath& breath) {
    constexpr double secondsPerMinute = 60.0;
    PreparedBreath made;
    made.Rate = breath.Rate / secondsPerMinute;
    made.QuietPeak = std::numbers::pi * breath.Tidal * made.Rate;
    if (breath.Forced) {
        PrepareCycle(*breath.Forced, made);
    }
    return made;
}

double FlowAt(const PreparedBreath& breath, double seconds) {
    if (breath.Every == 0.0) {
        return QuietAt(breath, seconds);
    }
    double time = seconds - breath.Every * Floor(seconds / breath.Every);
    if (time < breath.QuietTime) {
        return QuietAt(breath, time);
    }
    time -= breath.QuietTime;
    if (time < breath.ReserveTime) {
        return breath.ReservePeak * SineOfTurns(0.5 * time / breath.ReserveTime);
    }
    time -= breath.ReserveTime;
    if (time < breath.InspirationTime) {
        return -breath.InspirationPeak * SineOfTurns(0.5 * time / breath.InspirationTime);
    }
    time -= breath.InspirationTime;
    if (time < breath.ForcedTime) {
        return ForcedAt(breath.Forced, time);
    }
    time -= breath.ForcedTime;
    return time < breath.ReserveTime
               ? -breath.ReservePeak * SineOfTurns(0.5 * time / breath.ReserveTime)
               : 0.0;
}

void AddFlow(const PreparedBreath& breath, const Instants& at, std::span<double> samples) {
    for (size_t i = 0; i < samples.size(); ++i) {
        samples[i] += FlowAt(breath, at.Seconds[i]);
    }
}

} // namespace orvane::laboratory
