#pragma once

#include <filesystem>

namespace orvane {

/// The folder of the running program.
std::filesystem::path ProgramFolder();

/// The root of the build that contains a folder; empty for an installed program.
std::filesystem::path BuildRootAbove(const std::filesystem::path& folder);

} // namespace orvane
