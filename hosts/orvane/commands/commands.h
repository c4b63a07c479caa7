#pragma once

#include "hosts/session/driver_session.h"

#include <CLI/CLI.hpp>

namespace orvane {

/// Each of these adds one command to the command line: its options, and what it does once they are
/// parsed. `driver` is what the options common to all commands say; it outlives the parsing.
void AddInfoCommand(CLI::App& app, const DriverOptions& driver);
void AddChannelsCommand(CLI::App& app, const DriverOptions& driver);
void AddReadCommand(CLI::App& app, const DriverOptions& driver);
void AddAcquireCommand(CLI::App& app, const DriverOptions& driver);
void AddSetCommand(CLI::App& app, const DriverOptions& driver);
void AddCalibrateCommand(CLI::App& app, const DriverOptions& driver);
void AddSignalCommand(CLI::App& app, const DriverOptions& driver);
void AddGatesCommand(CLI::App& app, const DriverOptions& driver);
void AddSpiroCommand(CLI::App& app, const DriverOptions& driver);
void AddRadioCommand(CLI::App& app, const DriverOptions& driver);
void AddRateCommand(CLI::App& app, const DriverOptions& driver);
void AddSelftestCommand(CLI::App& app, const DriverOptions& driver);
/// For the shell: what may stand next on an unfinished command line.
void AddCompleteCommand(CLI::App& app, const DriverOptions& driver);
/// For the build: the commands and their options as the manual page shows them.
void AddManualCommand(CLI::App& app);
/// The option --set of commands that measure: `settings` takes what ParseChannelSetups reads.
void AddSetOption(CLI::App& command, std::vector<std::string>& settings);

} // namespace orvane
