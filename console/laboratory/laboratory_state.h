#pragma once

/// \file
/// What the laboratory holds between OVStartLibrary and OVRelease. Changed on the host's thread;
/// measuring threads read it, and none of them while it changes.

#include "console/console_port.h"
#include "console/laboratory/record_tree.h"
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

struct LaboratoryState {
    std::unique_ptr<const Scenario> Loaded; ///< Null: not started.
    RecordTree Tree;                        ///< Empty unless the console is open.
    OutputHistories Played;                 ///< What each output has played since the opening.
    std::vector<OutputSetup> Outputs;       ///< One for each output.
    tPlugCallback Notify = nullptr;
    int64_t RunStartNs = 0; ///< Start of the last acquisition, on the console's clock.
};

inline LaboratoryState Laboratory;

} // namespace orvane::laboratory
