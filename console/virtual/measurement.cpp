#include "console/virtual/measurement.h"

#include "console/console_port.h"
#include "console/virtual/console_tree.h"
#include "platform/monotonic_counter.h"

namespace {

/// Measures a channel now. All reads of one millisecond share one draw.
bool MeasureNow(uint8_t connector, uint8_t channel, double* value) {
    const virtual_console::ChannelNode* node = virtual_console::ChannelAt(connector, channel);
    if (node == nullptr) {
        return false;
    }
    *value = (*node->Valeurs)[platform::DrawOfMillisecond(platform::TimeInMilliseconds())];
    return true;
}

} // namespace

virtual_console::SimulatedValues virtual_console::ValuesOfCalibre(float min, float max) {
    const double etendue = static_cast<double>(max) - min;
    const double milieu = etendue * 0.5 + min;
    SimulatedValues values{};
    for (uint32_t r = 0; r < values.size(); ++r) {
        const double ecart = etendue * r / 100.0;
        values[r] = r > 20 ? milieu + ecart : milieu - ecart;
    }
    return values;
}

bool OVReadValue(uint8_t connector, uint8_t channel, uint32_t /*count*/, uint32_t /*reserved*/,
                 double* value) {
    return MeasureNow(connector, channel, value);
}

bool OVAutoGetPoint(uint8_t connector, uint8_t channel, uint32_t /*index*/, uint32_t /*reserved*/,
                    double* value) {
    return MeasureNow(connector, channel, value);
}
