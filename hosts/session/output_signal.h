#pragma once

#include "driver_loader.h"

#include <iosfwd>
#include <string>
#include <vector>

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

/// A signal and the output that plays it.
struct PlayedSignal {
    int32_t Output = 0;
    OutputSignal Signal;
};

/// A signal of 12-bit codes: 0 gives the lowest value of the output, 4095 the highest.
struct OutputCodes {
    std::vector<int32_t> Codes;
    double StepSec = 0.0; ///< From one to the next.
    bool Loop = false;
};

/// Reads "OUTPUT:SHAPE:FREQUENCY:AMPLITUDE[:OFFSET]", such as "0:sine:50:4". The signals repeat.
/// Throws HostError about a text that it can't read.
std::vector<PlayedSignal> ParsePlayedSignals(const std::vector<std::string>& texts);

/// Throws HostError unless there is a shape of this name.
void CheckShape(const std::string& name);

/// Throws HostError unless the console has this output. The channels have been enumerated before.
void CheckOutput(const DriverExports& driver, int32_t output);

/// Plays a signal. Throws HostError if the output can't.
void PlaySignal(const DriverExports& driver, int32_t output, const OutputSignal& signal);

/// The same of what lies within the range of the output: the rest is cut off. Throws HostError if
/// nothing does.
void PlayCutSignal(const DriverExports& driver, int32_t output, const OutputSignal& signal);

/// Reads a text of codes, one a line. Throws HostError if there are none or one is no code.
std::vector<int32_t> ReadCodes(std::istream& text);

/// Plays codes. Throws HostError if the output can't.
void PlayCodes(const DriverExports& driver, int32_t output, const OutputCodes& codes);

/// Stops the signal of an output and gives a constant value. Throws HostError if the output can't.
void GiveValue(const DriverExports& driver, int32_t output, double value);

/// Stops the signal of an output, which gives 0 then.
void StopOutput(const DriverExports& driver, int32_t output);

/// Signals that outputs play. The destructor stops them.
struct SignalsAtWork {
    /// Throws HostError if an output can't play its signal.
    SignalsAtWork(const DriverExports& exports, const std::vector<PlayedSignal>& signals);
    SignalsAtWork(const SignalsAtWork&) = delete;
    SignalsAtWork& operator=(const SignalsAtWork&) = delete;
    ~SignalsAtWork();

    const DriverExports& Driver;
    std::vector<int32_t> Outputs;
};

} // namespace orvane
