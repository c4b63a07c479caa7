#pragma once

#include "hosts/session/driver_session.h"

#include <string>
#include <vector>

namespace orvane {

/// An analog output as the window calls it.
struct OutputLook {
    std::string Name;
    double ShortestStepSec = 1e-6; ///< Of a point that it plays.
};

/// The scenario that the laboratory was started with, as its file is now. All UTF-8.
struct LoadedScenario {
    std::string Text;
    std::vector<std::string> Errors; ///< Each with its line.
    std::vector<OutputLook> Outputs; ///< None with errors.
};

/// Empty without a laboratory.
LoadedScenario ReadScenarioOf(const DriverOptions& options);

/// The line that an error names, from 1; 0: none.
int LineOfError(const std::string& error);

/// What the outputs of a console are called: the driver does not tell it, the scenario does.
std::vector<OutputLook> OutputLooks(const DriverOptions& options, size_t count);

} // namespace orvane
