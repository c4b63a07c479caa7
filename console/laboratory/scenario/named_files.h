#pragma once

/// \file
/// The files that a scenario names. What is wrong with one is reported at the place that names it.

#include "console/laboratory/scenario/value_reading.h"

#include <string>

namespace orvane::laboratory {

/// A whole file. None and a reason where it can't be read or holds more than `most` bytes.
std::optional<std::string> ReadWholeFile(const std::filesystem::path& path, size_t most,
                                         std::string& reason);

/// \param path beside the scenario
Picture ReadPicture(Reading& reading, Place at, const std::string& path);

/// One column of a file of samples. \param column from 1
std::vector<double> ReadSamples(Reading& reading, Place at, const std::string& path,
                                uint32_t column);

/// A column of numbers, or what keeps it from being one.
struct SampleColumn {
    std::vector<double> Samples;
    std::string Wrong; ///< Empty: nothing.
};

SampleColumn ParseSamples(std::string_view text, uint32_t column);

} // namespace orvane::laboratory
