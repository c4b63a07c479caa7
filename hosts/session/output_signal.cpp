#include "hosts/session/output_signal.h"

#include "hosts/session/channel_info.h"
#include "hosts/session/host_error.h"
#include "hosts/session/number_text.h"
#include "hosts/session/sentence_parts.h"
#include "hosts/session/text_parsing.h"
#include "hosts/session/translation.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <istream>

namespace orvane {

namespace {

struct Shape {
    std::string_view Name;
    decltype(DriverExports::KiroDACSinus) DriverExports::*Play;
};

constexpr std::array<Shape, 3> shapes{{{"square", &DriverExports::KiroDACCreneau},
                                       {"sine", &DriverExports::KiroDACSinus},
                                       {"triangle", &DriverExports::KiroDACTriangle}}};

const Shape& ShapeNamed(const std::string& name) {
    const auto* const shape = std::ranges::find(shapes, name, &Shape::Name);
    if (shape == shapes.end()) {
        throw WrongArgument("There is no shape " + Quoted(name) +
                            ", only square, sine and triangle.");
    }
    return *shape;
}

/// The driver itself limits a signal in part and a value not at all.
void CheckRange(const DriverExports& driver, double low, double high) {
    const double least = driver.GetOutValMin();
    const double most = driver.GetOutValMax();
    if (!(low >= least && low <= high && high <= most)) {
        throw WrongArgument(Translated(
            "%s is outside the range of the outputs, %s.",
            {low == high ? NumberText(low) : RangeText(low, high), RangeText(least, most)}));
    }
}

void CheckFrequency(const DriverExports& driver, double frequencyHz) {
    double ignored = 0.0;
    double highest = 0.0;
    driver.KiroDACParam(0, &ignored, &ignored, &highest);
    if (!(frequencyHz > 0.0 && frequencyHz <= highest)) {
        throw WrongArgument(Translated(
            "The frequency %s Hz is outside the range of the outputs, above 0 and up to %s Hz.",
            {NumberText(frequencyHz), NumberText(highest)}));
    }
}

void Send(const DriverExports& driver, int32_t output, const OutputSignal& signal) {
    const Shape& shape = ShapeNamed(signal.Shape);
    CheckFrequency(driver, signal.FrequencyHz);
    if (!(driver.*shape.Play)(output, signal.Amplitude, signal.Offset, signal.FrequencyHz,
                              signal.Loop ? 1 : 0)) {
        throw WrongArgument(Translated("Output %s is too slow for %s Hz.",
                                       {std::to_string(output), NumberText(signal.FrequencyHz)}));
    }
}

} // namespace

std::vector<PlayedSignal> ParsePlayedSignals(const std::vector<std::string>& texts) {
    std::vector<PlayedSignal> signals;
    for (const std::string& text : texts) {
        const auto parts = Split(text, ':');
        const auto number = [&parts](size_t part) { return ParseNumber<double>(parts[part]); };
        const auto output = ParseNumber<int32_t>(parts.front());
        if (!output || parts.size() < 4 || parts.size() > 5 || !number(2) || !number(3) ||
            !number(parts.size() - 1)) {
            throw WrongArgument(
                "The signal " + Quoted(text) +
                " is not of the form OUTPUT:SHAPE:FREQUENCY:AMPLITUDE[:OFFSET], such "
                "as 0:sine:50:4.");
        }
        CheckShape(std::string(parts[1]));
        signals.push_back({.Output = *output,
                           .Signal = {.Shape = std::string(parts[1]),
                                      .Amplitude = *number(3),
                                      .Offset = parts.size() > 4 ? *number(4) : 0.0,
                                      .FrequencyHz = *number(2),
                                      .Loop = true}});
    }
    return signals;
}

void CheckShape(const std::string& name) {
    ShapeNamed(name);
}

void CheckOutput(const DriverExports& driver, int32_t output) {
    CheckIndex(output, static_cast<size_t>(std::max(driver.CombienDeCanauxEnSortie(), 0)),
               "This console has no analog output.", "There is no output %s; this console has %s.");
}

void PlaySignal(const DriverExports& driver, int32_t output, const OutputSignal& signal) {
    CheckShape(signal.Shape);
    CheckRange(driver, signal.Low(), signal.High());
    Send(driver, output, signal);
}

void PlayCutSignal(const DriverExports& driver, int32_t output, const OutputSignal& signal) {
    if (signal.High() < driver.GetOutValMin() || signal.Low() > driver.GetOutValMax()) {
        CheckRange(driver, signal.Low(), signal.High());
    }
    Send(driver, output, signal);
}

std::vector<int32_t> ReadCodes(std::istream& text) {
    constexpr int32_t highest = 4095;
    std::vector<int32_t> codes;
    std::string line;
    for (int number = 1; std::getline(text, line); ++number) {
        std::erase_if(line, [](char c) { return c == ' ' || c == '\t' || c == '\r'; });
        if (line.empty()) {
            continue;
        }
        const auto code = ParseNumber<int32_t>(line);
        if (!code || *code < 0 || *code > highest) {
            throw WrongArgument(Translated("Line %s is not a number from 0 to 4095: %s",
                                           {std::to_string(number), line.substr(0, 20)}));
        }
        codes.push_back(*code);
    }
    if (codes.empty()) {
        throw WrongArgument(Translated("There are no codes in this file."));
    }
    return codes;
}

void PlayCodes(const DriverExports& driver, int32_t output, const OutputCodes& codes) {
    // The driver goes by way of a frequency and cuts nanoseconds off: half of one more, so that
    // none is lost.
    constexpr double nsPerSec = 1e9;
    const double stepNs = std::round(codes.StepSec * nsPerSec) + 0.5;
    if (!driver.KiroDACGenerer(output, static_cast<int32_t>(codes.Codes.size()), codes.Codes.data(),
                               stepNs, codes.Loop ? 1 : 0)) {
        throw WrongArgument(
            Translated("Output %s cannot play these codes.", {std::to_string(output)}));
    }
}

void GiveValue(const DriverExports& driver, int32_t output, double value) {
    CheckRange(driver, value, value);
    StopOutput(driver, output); // A value does not stop the current signal.
    driver.KiroDACEcrire(output, value);
}

void StopOutput(const DriverExports& driver, int32_t output) {
    constexpr int32_t stopCode = 2048;
    driver.KiroDACEcrireNum(output, stopCode);
}

SignalsAtWork::SignalsAtWork(const DriverExports& exports, const std::vector<PlayedSignal>& signals)
    : Driver(exports) {
    for (const PlayedSignal& played : signals) {
        CheckOutput(Driver, played.Output);
    }
    for (const PlayedSignal& played : signals) {
        PlaySignal(Driver, played.Output, played.Signal);
        Outputs.push_back(played.Output);
    }
}

SignalsAtWork::~SignalsAtWork() {
    for (const int32_t output : Outputs) {
        StopOutput(Driver, output);
    }
}

} // namespace orvane
