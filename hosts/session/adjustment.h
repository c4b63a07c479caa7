#pragma once

#include "driver_loader.h"

#include <optional>
#include <string>

namespace orvane {

/// What the driver says about the adjustment of a channel. Texts are UTF-8.
struct AdjustmentInfo {
    int Code = 0; ///< 104 to 107, or 101 to 103 for an adjustment of the function's own; 0: none.
    std::string Label;        ///< May be empty.
    std::optional<int> Value; ///< Where the adjustment gives its value back.
    std::optional<int> State; ///< Where it has states.
    std::string StateText;    ///< May be empty.

    bool operator==(const AdjustmentInfo&) const = default;
};

/// Asks the driver about an input channel.
AdjustmentInfo DescribeAdjustment(const DriverExports& driver, int channel);

/// Whether there is anything to adjust or to see.
bool HasAdjustment(const AdjustmentInfo& adjustment);

/// Whether it has presets, which take their time to be set: PresetAdaptateurPour does it.
bool HasPresets(const AdjustmentInfo& adjustment);

/// What kind of adjustment a code of the driver stands for.
std::string AdjustmentKind(const AdjustmentInfo& adjustment);

} // namespace orvane
