#pragma once

#include <CLI/CLI.hpp>

#include <string>
#include <vector>

namespace orvane {

/// \name Options that several commands have
/// @{

/// The channel that a command is about, which ChannelNamed looks up.
void AddChannelArgument(CLI::App& command, std::string& channel);
CLI::Option* AddJsonFlag(CLI::App& command, bool& json);
/// The option --set of commands that measure: `settings` takes what ParseChannelSetups reads.
void AddSetOption(CLI::App& command, std::vector<std::string>& settings);

/// @}

} // namespace orvane
