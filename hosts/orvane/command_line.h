#pragma once

#include "hosts/session/driver_session.h"
#include "hosts/session/host_error.h"

#include <CLI/CLI.hpp>

namespace orvane {

/// Describes the program, its options and its commands. `driver` receives the options common to all
/// commands; it has to outlive the parsing.
void DescribeCommandLine(CLI::App& app, DriverOptions& driver);

/// The error of the parser, for users.
HostError WrongCommandLine(const CLI::App& app, const CLI::Error& error);

} // namespace orvane
