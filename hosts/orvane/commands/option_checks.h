#pragma once

#include <CLI/CLI.hpp>

#include <limits>
#include <string>
#include <vector>

namespace orvane {

/// \name What the value of an option may be
/// Whatever else stands on the command line ends the program as wrong arguments, before a command
/// begins.
/// @{
void TakeWholeNumber(CLI::Option* option, int least, int most = std::numeric_limits<int>::max());

/// Of all options of the program and its commands: a value that is empty or an option itself is
/// missing, and one of several words is one of these.
void CheckValues(CLI::App& app);
/// @}

/// The words that an option takes, as its help names them: "fr|en". None if it takes anything.
std::vector<std::string> ChoicesOf(const CLI::Option& option);

} // namespace orvane
