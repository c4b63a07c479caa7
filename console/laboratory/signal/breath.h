#pragma once

/// \file
/// The flow through a spirometer's turbine: quiet breathing and forced manoeuvres, as a function of
/// time. Expiration is positive, inspiration negative.

#include "console/laboratory/scenario/scenario.h"
#include "console/laboratory/signal/instants.h"

#include <span>

namespace orvane::laboratory {

/// A forced expiration, its time counted from its start. V is the volume expired so far and W what
/// is left of the FVC.
///
/// The flow rises evenly to the peak. Then it is the peak times (W / W at the peak)^m, with m such
/// that FEV1 is right. A power law hardly ends, so from EndingStart on, never within FEV1, the rest
/// is expired with a flow that falls evenly to 0; where the time is too short for that, faster.
struct ForcedExpiration {
    double Peak = 0.0;     ///< L/s, reached after the rise.
    double Rate = 0.0;     ///< (m - 1) Peak / W at the peak; 1/s.
    double Exponent = 0.0; ///< Flow = Peak (1 + Rate t)^Exponent after the rise.
    double EndingStart = 0.0;
    double EndingTime = 1.0;
    double EndingFlow = 0.0; ///< At its start.
    double EndingBulge = 0.0;
};

/// A cycle of whole quiet breaths, a slow expiration of the reserve, a full inspiration of the FVC,
/// the forced expiration, an inspiration of the reserve and a rest; or quiet breaths alone. What is
/// inspired in a cycle is expired in it. A short cycle is without reserve.
struct PreparedBreath {
    double Rate = 0.0;      ///< Quiet breaths a second, each beginning with the inspiration.
    double QuietPeak = 0.0; ///< L/s
    double Every = 0.0;     ///< Length of the cycle; 0: only quiet breaths.
    double QuietTime = 0.0;
    double ReserveTime = 0.0; ///< Of its expiration, and of its inspiration.
    double ReservePeak = 0.0;
    double InspirationTime = 1.0;
    double InspirationPeak = 0.0;
    double ForcedTime = 0.0;
    ForcedExpiration Forced;
};

/// Solves for the exponent, so it takes some microseconds.
PreparedBreath PrepareBreath(const Breath& breath);

/// The flow at a time of the breath, L/s.
double FlowAt(const PreparedBreath& breath, double seconds);

/// Adds it to each sample of a block.
void AddFlow(const PreparedBreath& breath, const Instants& at, std::span<double> samples);

} // namespace orvane::laboratory
