#pragma once

#include "hosts/session/driver_session.h"
#include "hosts/session/host_error.h"

#include <CLI/CLI.hpp>

namespace orvane {

/// Describes the program, its options and its commands. `driver` takes what the options common to
/// all commands say; it outlives the parsing.
void DescribeCommandLine(CLI::App& app, DriverOptions& driver);

/// What the parser found wrong, for people.
HostError WrongCommandLine(const CLI::App& app, const CLI::Error& error);

} // namespace orvane
