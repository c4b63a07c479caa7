#include "console/laboratory/scenario/gate_row.h"

#include <map>

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

std::vector<RowGate> GateRow(const Scenario& scenario) {
    constexpr ptrdiff_t besideDoor = 1;
    std::map<uint8_t, const Adapter*> adapters; // In the order of the row.
    for (const Adapter& adapter : scenario.Adapters) {
        if (adapter.Plugged && adapter.Kind == AdapterKind::Gates) {
            adapters[adapter.Connector] = &adapter;
        }
    }
    std::vector<RowGate> row;
    for (const auto& [connector, adapter] : adapters) {
        const auto positions = GatePositions(*adapter);
        for (size_t gate = 0; gate < gateChannels.size(); ++gate) {
            row.push_back({connector, gateChannels[gate], positions[gate]});
        }
    }
    if (!row.empty()) {
        row.erase(row.begin() + besideDoor);
    }
    return row;
}

} // namespace orvane::laboratory
