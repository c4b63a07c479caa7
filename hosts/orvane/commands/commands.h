#pragma once

#include "hosts/session/driver_session.h"

#include <CLI/CLI.hpp>

namespace orvane {

/// \name The commands
/// Each adds its options to a command, and the action for when they are parsed. `driver` has the
/// values of the options common to all commands; it outlives the parsing.
/// @{
void AddInfoCommand(CLI::App& command, const DriverOptions& driver);
void AddChannelsCommand(CLI::App& command, const DriverOptions& driver);
void AddReadCommand(CLI::App& command, const DriverOptions& driver);
void AddAcquireCommand(CLI::App& command, const DriverOptions& driver);
void AddSetCommand(CLI::App& command, const DriverOptions& driver);
void AddCalibrateCommand(CLI::App& command, const DriverOptions& driver);
void AddSignalCommand(CLI::App& command, const DriverOptions& driver);
void AddGatesCommand(CLI::App& command, const DriverOptions& driver);
void AddSpiroCommand(CLI::App& command, const DriverOptions& driver);
void AddRadioCommand(CLI::App& command, const DriverOptions& driver);
void AddRateCommand(CLI::App& command, const DriverOptions& driver);
void AddSelftestCommand(CLI::App& command, const DriverOptions& driver);
void AddScenarioCommand(CLI::App& command, const DriverOptions& driver);
/// The possible continuations of an unfinished command line.
void AddCompleteCommand(CLI::App& command, const DriverOptions& driver);
/// The commands and their options as the manual page shows them.
void AddManualCommand(CLI::App& command, const DriverOptions& driver);
/// @}

/// A command of the program.
struct Command {
    const char* Name;
    const char* Description;
    void (*Add)(CLI::App& command, const DriverOptions& driver);
    bool Hidden = false; ///< Not in the help and the manual page.
};

/// All commands, in the order of the help.
inline constexpr Command commands[] = {
    {"info", "Maker, name and limits of the console", AddInfoCommand},
    {"channels", "The input channels; the selected calibre is in brackets", AddChannelsCommand},
    {"read", "The current values of the channels", AddReadCommand},
    {"acquire",
     "Runs a buffered acquisition, or several; Ctrl-C ends it and keeps the points so far",
     AddAcquireCommand},
    {"set",
     "Sets a channel and shows the effect, which lasts as long as the command; read, acquire and "
     "signal take the same settings with --set",
     AddSetCommand},
    {"calibrate",
     "Calibrates a channel, in the order of the options; the console returns no result",
     AddCalibrateCommand},
    {"signal",
     "Plays a signal on an analog output until Ctrl-C, because the console is closed at the end of "
     "the program; exit code 1 if it has no output",
     AddSignalCommand},
    {"gates", "The gates and their states, or the times of a run; exit code 1 if there are none",
     AddGatesCommand},
    {"spiro",
     "The flow through the spirometer turbine and the volumes so far, until Ctrl-C; exit code 1 if "
     "there is no turbine",
     AddSpiroCommand},
    {"radio", "The radio network and its pods; the configuration lasts as long as the command",
     AddRadioCommand},
    {"rate", "The cost of the driver's calls on this machine, in about 2 seconds", AddRateCommand},
    {"selftest",
     "Checks the loaded driver against the rules that every driver follows, in a few seconds",
     AddSelftestCommand},
    {"scenario",
     "The scenarios of the laboratory: those that ship, and whether files are good; exit code 1 if "
     "one is not",
     AddScenarioCommand},
    {"complete", "For the shell: what may stand at the end of these words", AddCompleteCommand,
     true},
    {"manual", "Writes the sections of the manual page", AddManualCommand, true},
};

} // namespace orvane
