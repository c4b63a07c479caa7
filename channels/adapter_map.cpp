#include "channels/adapter_map.h"

#include "adapter_exports.h"
#include "console/console_port.h"

#include <new>

void AdapterCb(unsigned char connecteur, bool branche) noexcept {
    CanauxVerifies = false;
    if (!branche) {
        Adapters.erase(connecteur);
        return;
    }
    tAdapterDesc desc{};
    if (!OVGetAdapterDesc(connecteur, &desc)) {
        return;
    }
    try {
        Adapters[connecteur] = desc;
    } catch (const std::bad_alloc&) {
        Adapters.erase(connecteur);
    }
}

std::vector<std::pair<uint8_t, tAdapterDesc>> PluggedAdapters() {
    std::vector<std::pair<uint8_t, tAdapterDesc>> plugged;
    plugged.reserve(Adapters.size());
    for (const auto& [connecteur, desc] : std::as_const(Adapters)) {
        plugged.emplace_back(static_cast<uint8_t>(connecteur), desc);
    }
    return plugged;
}

bool VerifCanaux() {
    // The acquisition compares the count with the one it knows, and sets up anew when it moved.
    const bool unchanged = std::exchange(CanauxVerifies, true);
    if (!unchanged) {
        ++EtatVerifCanaux;
    }
    return unchanged;
}

int GetEtatVerifCanaux() {
    return EtatVerifCanaux;
}
