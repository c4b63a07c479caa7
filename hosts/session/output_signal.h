#pragma once

#include "driver_loader.h"

#include <string>

namespace orvane {

/// A periodic signal for an analog output.
struct OutputSignal {
    std::string Shape;      ///< "square", "sine" or "triangle".
    double Amplitude = 1.0; ///< From the lowest to the highest value.
    double Offset = 0.0;    ///< The value in the middle.
    double FrequencyHz = 0.0;
    bool Loop = false; ///< Repeatedly instead of a single period.

    [[nodiscard]] double Low() const {
        return Offset - Amplitude / 2.0;
    }
    [[nodiscard]] double High() const {
        return Offset + Amplitude / 2.0;
    }
};

/// Throws HostError unless there is a shape of this name.
void CheckShape(const std::string& name);

/// Throws HostError unless the console has this output. The channels have been enumerated before.
void CheckOutput(const DriverExports& driver, int32_t output);

/// Plays a signal. Throws HostError if the output can't.
void PlaySignal(const DriverExports& driver, int32_t output, const OutputSignal& signal);

/// Stops the signal of an output and gives a constant value. Throws HostError if the output can't.
void GiveValue(const DriverExports& driver, int32_t output, double value);

/// Stops the signal of an output, which gives 0 then.
void StopOutput(const DriverExports& driver, int32_t output);

} // namespace orvane
