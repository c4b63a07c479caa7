// Who sits at which connector.

#include "console/laboratory/scenario/scenario_tables.h"

#include <map>

namespace orvane::laboratory {

namespace {

void GiveFreeConnectors(Reading& reading) {
    std::vector<Adapter>& adapters = reading.Result.Adapters;
    for (size_t i = 0; i < adapters.size(); ++i) {
        for (uint8_t at = 1; at <= connectors && adapters[i].Connector == 0; ++at) {
            if (std::ranges::find(adapters, at, &Adapter::Connector) == adapters.end()) {
                adapters[i].Connector = at;
            }
        }
        if (adapters[i].Connector == 0) {
            adapters[i].Connector = 1;
            Report(reading, reading.AdapterPlaces[i],
                   "no connector is left for " + Quoted(adapters[i].Id) +
                       "; say which with connector = 1 to 4, and plugged = false if it is taken");
        }
    }
}

/// Gates of several adapters make one row, which begins at the lowest connector with the door.
void CheckGate(Reading& reading, const Adapter& gates, bool first, Place at) {
    if (first && gates.Forks.size() > 1) {
        Report(reading, at, Quoted(gates.Id) + " has the door and so one fork at most");
    } else if (!first && gates.Door) {
        Report(reading, at, "the door stands at the gates of the lowest connector only");
    }
}

/// The door of the row, where the scenario says nothing of it: at the lowest connector of gates
/// that are plugged in or, if none are, that there are.
void GiveDoor(Reading& reading) {
    std::pair first(true, uint8_t{connectors + 1});
    for (const Adapter& adapter : reading.Result.Adapters) {
        if (adapter.Kind == AdapterKind::Gates) {
            first = std::min(first, {!adapter.Plugged, adapter.Connector});
        }
    }
    for (Adapter& adapter : reading.Result.Adapters) {
        if (adapter.Kind == AdapterKind::Gates && adapter.Connector == first.second &&
            adapter.Forks.size() < 2 && !adapter.Door) {
            adapter.Door = 0.0;
        }
    }
}

} // namespace

void CheckConnectors(Reading& reading) {
    GiveFreeConnectors(reading);
    const std::vector<Adapter>& adapters = reading.Result.Adapters;
    std::map<uint8_t, size_t> taken; // In the order of the connectors.
    for (size_t i = 0; i < adapters.size(); ++i) {
        if (!adapters[i].Plugged) {
            continue;
        }
        const auto [at, free] = taken.emplace(adapters[i].Connector, i);
        if (!free) {
            Report(reading, reading.AdapterPlaces[i],
                   "connector " + std::to_string(adapters[i].Connector) + " is taken by " +
                       Quoted(adapters[at->second].Id) + "; take another or say plugged = false");
        }
    }
    GiveDoor(reading);
    bool first = true;
    for (const auto& [connector, i] : taken) {
        if (adapters[i].Kind == AdapterKind::Gates) {
            CheckGate(reading, adapters[i], first, reading.AdapterPlaces[i]);
            first = false;
        }
    }
}

} // namespace orvane::laboratory
