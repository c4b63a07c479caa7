#include "console/virtual/measurement.h"

#include "console/console_port.h"
#include "console/virtual/console_tree.h"
#include "platform/millisecond_draw.h"
#include "platform/monotonic_counter.h"

namespace {

/// Measures a channel now. All reads of one millisecond share one draw.
bool MeasureNow(uint8_t connector, uint8_t channel, double* value) {
    const virtual_console::ChannelNode* node = virtual_console::ChannelAt(connector, channel);
    if (node == nullptr) {
        return false;
    }
    const virtual_console::FunctionNode& function = node->Fonctions[node->Desc.FonctionCourante];
    const tCalibreDesc& calibre = function.Calibres[function.Desc.CalibreCourant];
    const double milliseconds = platform::TimeInMicroseconds() / 1000.0;
    const auto seed = static_cast<uint32_t>(static_cast<uint64_t>(milliseconds));
    *value = virtual_console::SimulatedValue(calibre.Min, calibre.Max,
                                             platform::DrawOfMillisecond(seed));
    return true;
}

} // namespace

bool OVReadValue(uint8_t connector, uint8_t channel, uint32_t /*count*/, uint32_t /*reserved*/,
                 double* value) {
    return MeasureNow(connector, channel, value);
}

bool OVAutoGetPoint(uint8_t connector, uint8_t channel, uint32_t /*index*/, uint32_t /*reserved*/,
                    double* value) {
    return MeasureNow(connector, channel, value);
}
