#include "console/laboratory/scenario/gate_row.h"

namespace orvane::laboratory {

std::array<std::optional<double>, gateChannels.size()> GatePositions(const Adapter& gates) {
    std::array<std::optional<double>, gateChannels.size()> positions;
    size_t next = 0;
    if (gates.Door) {
        positions[0] = gates.Door;
        next = 2;
    }
    for (const auto& [first, second] : gates.Forks) {
        if (next < positions.size()) {
            positions[next++] = first;
            positions[next++] = second;
        }
    }
    return positions;
}

} // namespace orvane::laboratory
