#pragma once

#include <filesystem>

namespace orvane {

/// The folder that the running program lies in.
std::filesystem::path ProgramFolder();

/// The folder of a build that another folder lies in; empty for an installed program.
std::filesystem::path BuildRootAbove(const std::filesystem::path& folder);

} // namespace orvane
