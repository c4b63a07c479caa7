#pragma once

#include "console/laboratory/scenario/scenario.h"
#include "console/laboratory/signal/instants.h"
#include "console/laboratory/signal/output_history.h"

#include <span>

namespace orvane::laboratory {

/// What a term contributes.
double ValueAt(const Term& term, const OutputHistories& outputs, const Instant& at);

/// Adds it to each sample of a block.
void AddTerm(const Term& term, const OutputHistories& outputs, const Instants& at,
             std::span<double> samples);

} // namespace orvane::laboratory
