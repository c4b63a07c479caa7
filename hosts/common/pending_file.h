#pragma once

#include <filesystem>
#include <string>

/// A file that is written under a temporary name beside its target, so that the target is either
/// untouched or complete. Its end removes what was not published.
struct PendingFile {
    /// Makes the temporary file. Throws HostError if the target could not be written.
    explicit PendingFile(const std::string& target);
    PendingFile(const PendingFile&) = delete;
    PendingFile& operator=(const PendingFile&) = delete;
    ~PendingFile();

    std::filesystem::path Target;
    std::filesystem::path Temporary; ///< Empty once it is published.
};

/// Gives the complete temporary file the name of its target. Throws HostError if that fails.
void Publish(PendingFile& file);
