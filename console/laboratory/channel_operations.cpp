// Measuring, adjusting and calibrating a channel.

#include "console/console_port.h"
#include "console/laboratory/channel_reading.h"
#include "console/laboratory/console_clock.h"
#include "console/laboratory/timeline.h"

#include <cmath>
#include <utility>

namespace orvane {

namespace {

using namespace laboratory;

/// The measuring channel of these indexes; null if there is none.
ChannelNode* MeasuringChannelAt(uint8_t connector, uint8_t channel) {
    ChannelNode* node = ChannelAt(connector, channel);
    return node != nullptr && node->Role == ChannelRole::Measurement ? node : nullptr;
}

} // namespace

} // namespace orvane

using namespace orvane;

bool OVReadValue(uint8_t connector, uint8_t channel, uint32_t /*count*/, uint32_t /*reserved*/,
                 double* value) {
    FireDueEventsOfHost();
    ConnectorNode* plugged = ConnectorAt(connector); // It may be pulled meanwhile.
    const ChannelNode* node = ChannelOf(plugged, channel);
    if (node == nullptr) {
        return false;
    }
    TickMeasurement();
    *value = ValueNow(*plugged, *node);
    return true;
}

bool OVWriteAdjustment(uint8_t connector, int32_t channel, double value) {
    FireDueEvents();
    const auto number = static_cast<uint8_t>(channel);
    const ChannelNode* node = ChannelAt(connector, number);
    if (node == nullptr || number != channel || node->Role != ChannelRole::Adjustment ||
        !std::isfinite(value)) {
        return false;
    }
    Adjust(*ConnectorAt(connector), value);
    return true;
}

bool OVCalibrationStart(uint8_t connector, uint8_t channel) {
    FireDueEvents();
    ChannelNode* node = MeasuringChannelAt(connector, channel);
    if (node == nullptr) {
        return false;
    }
    Calibration& calibration = node->Calibrated;
    calibration = {
        .Used = calibration.Used, .Before = calibration.Used, .Begun = true, .Points = {}};
    return true;
}

bool OVCalibrationAbort(uint8_t connector, uint8_t channel) {
    FireDueEvents();
    ChannelNode* node = MeasuringChannelAt(connector, channel);
    if (node == nullptr || !node->Calibrated.Begun) {
        return false;
    }
    node->Calibrated = {
        .Used = node->Calibrated.Before, .Before = {}, .Begun = false, .Points = {}};
    return true;
}

bool OVCalibrationDefault(uint8_t connector, uint8_t channel) {
    FireDueEvents();
    ChannelNode* node = MeasuringChannelAt(connector, channel);
    if (node == nullptr) {
        return false;
    }
    node->Calibrated = {};
    return true;
}

bool OVSetCalibrationValue(uint8_t connector, uint8_t channel, uint32_t point, float value) {
    FireDueEvents();
    ChannelNode* node = MeasuringChannelAt(connector, channel);
    if (node == nullptr || !node->Calibrated.Begun || point >= mostCalibrationPoints ||
        !std::isfinite(value)) {
        return false;
    }
    // What is measured without any calibration, so that points of one calibration fit together.
    const Correction used = std::exchange(node->Calibrated.Used, {});
    const double measured = ValueNow(*ConnectorAt(connector), *node);
    node->Calibrated.Used = used;
    node->Calibrated.Points[point] = CalibrationPoint{measured, static_cast<double>(value)};
    node->Calibrated.Used = LineThrough(node->Calibrated.Points);
    return true;
}
