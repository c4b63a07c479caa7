#include "channels/adapter_map.h"

#include "adapter_exports.h"
#include "console/console_port.h"

#include <new>

namespace orvane {

void AdapterCb(unsigned char connecteur, bool branche) noexcept {
    tAdapterDesc desc{};
    if (!branche) {
        const std::scoped_lock lock(AdaptersLock);
        Adapters.erase(connecteur);
    } else if (OVGetAdapterDesc(connecteur, &desc)) {
        const std::scoped_lock lock(AdaptersLock);
        try {
            Adapters[connecteur] = desc;
        } catch (const std::bad_alloc&) {
            Adapters.erase(connecteur);
        }
    }
    CanauxVerifies = false; // Last, so that a host that notes the change finds it in the map.
}

void ClearAdapters() {
    const std::scoped_lock lock(AdaptersLock);
    Adapters.clear();
}

std::vector<std::pair<uint8_t, tAdapterDesc>> PluggedAdapters() {
    std::vector<std::pair<uint8_t, tAdapterDesc>> plugged;
    const std::scoped_lock lock(AdaptersLock);
    plugged.reserve(Adapters.size());
    for (const auto& [connecteur, desc] : std::as_const(Adapters)) {
        plugged.emplace_back(static_cast<uint8_t>(connecteur), desc);
    }
    return plugged;
}

std::optional<tAdapterDesc> PluggedAdapter(uint8_t connecteur) {
    const std::scoped_lock lock(AdaptersLock);
    const auto adapter = std::as_const(Adapters).find(connecteur);
    return adapter == std::as_const(Adapters).end() ? std::nullopt : std::optional(adapter->second);
}

} // namespace orvane

using namespace orvane;

bool VerifCanaux() {
    // The acquisition compares this count with the one at its last start: if they differ, the next
    // set-up is a full one.
    const bool unchanged = CanauxVerifies.exchange(true);
    if (!unchanged) {
        ++EtatVerifCanaux;
    }
    return unchanged;
}

int GetEtatVerifCanaux() {
    return EtatVerifCanaux;
}
