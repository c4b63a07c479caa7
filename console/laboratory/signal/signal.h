#pragma once

/// \file
/// What a channel measures: a pure function of the scenario, the channel and the instant. Nothing
/// here has a state that a read changes; any thread may read, in any order, and a block has the
/// bits of single reads.

#include "console/laboratory/scenario/scenario.h"
#include "console/laboratory/signal/breath.h"
#include "console/laboratory/signal/instants.h"
#include "console/laboratory/signal/noise.h"
#include "console/laboratory/signal/output_history.h"

#include <cstdint>
#include <optional>
#include <span>

namespace orvane::laboratory {

/// A function of a channel in one of its calibres. The scenario outlives it.
struct PreparedSignal {
    std::span<const Term> Terms;
    Noise Added;
    NoiseKeys Keys{};
    Range Limits;
    double Step = 0.0;                      ///< Of the converter.
    double StepsPerUnit = 0.0;              ///< 0: it doesn't round.
    std::optional<PreparedBreath> Breathed; ///< What turns a turbine.
};

/// y = Gain x + Shift, of what a channel measures, noise included.
struct Correction {
    double Gain = 1.0;
    double Shift = 0.0;
};

/// \param channelKey tells the noise of the functions of a console apart
PreparedSignal PrepareSignal(const Function& function, const Calibre& calibre, uint64_t seed,
                             uint32_t channelKey);

/// Computes samples of a grid, from its sample 0 on. They lie within the limits of the calibre. A
/// live read is a single sample.
void ComputeSamples(const PreparedSignal& signal, const Correction& correction,
                    const OutputHistories& outputs, const SampleGrid& grid,
                    std::span<double> samples);

/// What a trigger waits for: a sample on or beyond the level after one before it.
struct Edge {
    bool Rising = true;
    double Level = 0.0;
};

/// The first sample from `from` on and before `to` with which an edge comes. Sample 0 has none
/// before it, so it is never the one.
std::optional<uint64_t> FirstCrossing(const PreparedSignal& signal, const Correction& correction,
                                      const OutputHistories& outputs, const SampleGrid& grid,
                                      const Edge& edge, uint64_t from, uint64_t to);

} // namespace orvane::laboratory
