// All gate adapters as one instrument: counts the forks, reads a gate, arms a run, reads its times.

#include "adapter_exports.h"
#include "channels/adapter_map.h"
#include "channels/channel_records.h"
#include "connection/connection_state.h"
#include "connection/console_models.h"
#include "console/console_port.h"
#include "gate_exports.h"
#include "gates/gate_numbering.h"
#include "gates/gate_state.h"
#include "platform/number_conversion.h"

#include <algorithm>
#include <limits>

namespace orvane {

namespace {

constexpr uint32_t clockPeriodNs = 100;

/// The connectors of the gate adapters in ascending order, as they are now.
std::vector<uint8_t> FourcheConnecteurs() {
    std::vector<uint8_t> connecteurs;
    for (const auto& [connecteur, desc] : PluggedAdapters()) {
        if (desc.ValeurAdaptateur == ValeurAdaptateurPortimetre) {
            connecteurs.push_back(connecteur);
        }
    }
    std::ranges::sort(connecteurs);
    return connecteurs;
}

/// Makes the console log the crossings of a gate. Does nothing for a gate that doesn't exist.
void ArmGate(const std::vector<uint8_t>& connecteurs, int32_t gate) {
    const auto [position, canal] = PlaceOfGate(gate);
    if (position >= static_cast<int64_t>(connecteurs.size())) {
        return;
    }
    const uint8_t connecteur = connecteurs[static_cast<std::size_t>(position)];
    OVSelectFunction(connecteur, canal, 0);
    uint8_t synchroId = 0;
    OVAutoConfigSynchro(connecteur, canal, 0, 0, 0.0, &synchroId);
    OVAutoEnableSynchro(synchroId);
}

double TimeSec(const tLogEntry& entry) {
    return entry.Nanosecondes * 1e-9 + entry.Secondes;
}

} // namespace

} // namespace orvane

using namespace orvane;

int32_t GetNombreDeFourcheMaxPortimetre() {
    if (GateTiming.FourcheArmee) {
        OVAutoStop();
    }
    if (!IsKnownModel(Connection.ConsoleModel)) {
        GateTiming.NbFourchesMaxCache = 0;
    } else if (!VerifCanaux()) {
        const auto adapters = static_cast<int32_t>(FourcheConnecteurs().size());
        GateTiming.NbFourchesMaxCache = std::max(0, 2 * adapters - 1); // The door takes one.
    }
    return GateTiming.NbFourchesMaxCache;
}

int32_t GetEtatFourchePortimetre(int32_t gate) {
    const auto connecteurs = FourcheConnecteurs();
    const auto [position, canal] = PlaceOfGate(gate);
    if (position < 0 || position >= static_cast<int64_t>(connecteurs.size())) {
        return 0;
    }
    const uint8_t connecteur = connecteurs[static_cast<std::size_t>(position)];
    return ToInt32(ReadValue(connecteur, canal)) != 0 ? 1 : 0;
}

bool IsPorteClosedPortimetre() {
    return GetEtatFourchePortimetre(PorteEntree) == 0;
}

bool StartAcquisitionPortimetre(int32_t n) {
    const auto connecteurs = FourcheConnecteurs();
    ArmGate(connecteurs, PorteEntree);
    // Gates beyond the last adapter are counted but not armed.
    const int64_t gateCount =
        static_cast<int64_t>(connecteurs.size()) * PortesParConnecteur + PorteEntree;
    for (int32_t gate = 0; gate < std::min(2 * int64_t{n}, gateCount); ++gate) {
        ArmGate(connecteurs, gate);
    }
    GateTiming.NbEvenementsAttendus = 2 * static_cast<uint32_t>(n) + 1;
    OVAutoConfigLog(GateTiming.NbEvenementsAttendus);
    OVAutoConfigAcq(clockPeriodNs, 0);
    const bool started = OVAutoStart();
    GateTiming.FourcheArmee = true;
    return started;
}

bool TestEndOfLogPortimetre() {
    uint32_t count = 0;
    OVAutoGetLogCount(&count);
    return count >= GateTiming.NbEvenementsAttendus;
}

double GetTimeRayPortimetre(int32_t ray) {
    if (GateTiming.FourcheArmee) {
        OVAutoStop();
    }
    GateTiming.FourcheArmee = false;
    // An entry that the console refuses has the time of the one read before.
    tLogEntry entry{};
    OVAutoGetLogEntry(0, &entry);
    const double origin = TimeSec(entry);
    if (ray < std::numeric_limits<int32_t>::max()) {
        OVAutoGetLogEntry(ray + 1, &entry);
    }
    return TimeSec(entry) - origin;
}

void SetCalibrePortimetre() {}
