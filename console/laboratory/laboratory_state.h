#pragma once

/// \file
/// What the laboratory holds. Changed on the host's thread; measuring threads read it, and none of
/// them while it changes.

#include "console/console_port.h"
#include "console/laboratory/connectors.h"
#include "console/laboratory/console_memory.h"
#include "console/laboratory/scenario/scenario.h"
#include "console/laboratory/signal/output_history.h"

#include <memory>
#include <vector>

namespace orvane::laboratory {

/// What was loaded into an output.
struct OutputSetup {
    uint32_t PeriodNs = 0;
    int32_t Count = 0;
    bool Loop = false;
    std::vector<double> Values; ///< Empty: nothing to play.
};

/// Read at each OVStartLibrary, and kept for consoles that are opened again without one. Null if
/// that failed.
inline std::unique_ptr<const Scenario> Loaded;

/// What there is from OVOpen to OVRelease.
struct LaboratoryState {
    bool Open = false;
    std::vector<ConnectorNode> Connectors; ///< Of BuildConnectors.
    ConsoleMemory Memory{};
    OutputHistories Played;           ///< What each output has played since the opening.
    std::vector<OutputSetup> Outputs; ///< One for each output.
    tPlugCallback Notify = nullptr;
    int64_t RunStartNs = 0; ///< Start of the last acquisition, on the console's clock.
};

inline LaboratoryState Laboratory;

} // namespace orvane::laboratory
