#pragma once

#include <CLI/CLI.hpp>

#include <limits>
#include <string>
#include <vector>

namespace orvane {

/// \name What the value of an option may be
/// Any other value ends the program with wrong arguments before a command begins.
/// @{
void TakeWholeNumber(CLI::Option* option, int least, int most = std::numeric_limits<int>::max());

/// For all options of the program and its commands: an empty value or an option in its place is an
/// error, and a value from a list of words has to be one of them.
void CheckValues(CLI::App& app);
/// @}

/// The words that an option takes, as its help names them: "fr|en". None if it takes anything.
std::vector<std::string> ChoicesOf(const CLI::Option& option);

} // namespace orvane
