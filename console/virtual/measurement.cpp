#include "console/virtual/measurement.h"

#include "console/console_port.h"
#include "console/virtual/console_tree.h"
#include "platform/clock.h"

#include <algorithm>
#include <span>

namespace orvane {

namespace {

/// Samples of a block between two clock reads: enough to make the cost of a clock read small, and
/// few enough to be measured again one by one when the millisecond ends meanwhile.
constexpr std::size_t samplesPerClockRead = 512;

/// What a channel measures within a millisecond: all reads share one draw.
double ValueIn(const virtual_console::ChannelNode& node, uint32_t millisecond) {
    return (*node.Valeurs)[platform::DrawOfMillisecond(millisecond)];
}

/// Measures a channel now.
bool MeasureNow(uint8_t connector, uint8_t channel, double* value) {
    const virtual_console::ChannelNode* node = virtual_console::ChannelAt(connector, channel);
    if (node == nullptr) {
        return false;
    }
    *value = ValueIn(*node, platform::TimeInMilliseconds());
    return true;
}

/// Measures a part of a block: all within the millisecond of the last clock read, or one by one if
/// it has ended meanwhile. Returns the millisecond of the next part.
uint32_t MeasurePart(const virtual_console::ChannelNode& node, uint32_t millisecond,
                     std::span<double> values) {
    std::ranges::fill(values, ValueIn(node, millisecond));
    const uint32_t now = platform::TimeInMilliseconds();
    if (now == millisecond) {
        return now;
    }
    for (double& value : values) {
        value = ValueIn(node, platform::TimeInMilliseconds());
    }
    return platform::TimeInMilliseconds();
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

} // namespace orvane

using namespace orvane;

bool OVReadValue(uint8_t connector, uint8_t channel, uint32_t /*count*/, uint32_t /*reserved*/,
                 double* value) {
    return MeasureNow(connector, channel, value);
}

bool OVAutoGetPoint(uint8_t connector, uint8_t channel, uint32_t /*index*/, uint32_t /*reserved*/,
                    double* value) {
    return MeasureNow(connector, channel, value);
}

bool OVAutoGetPoints(uint8_t connector, uint8_t channel, uint32_t /*first*/, uint32_t count,
                     double* values, uint32_t* got) {
    const virtual_console::ChannelNode* node = virtual_console::ChannelAt(connector, channel);
    if (node == nullptr) {
        return false;
    }
    uint32_t millisecond = platform::TimeInMilliseconds();
    for (std::span<double> left(values, count); !left.empty();) {
        const auto next = left.first(std::min(samplesPerClockRead, left.size()));
        millisecond = MeasurePart(*node, millisecond, next);
        left = left.subspan(next.size());
    }
    *got = count;
    return true;
}
