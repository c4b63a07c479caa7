#pragma once

#include "hosts/session/host_error.h"

#include <filesystem>
#include <string>

namespace orvane {

/// Whether a name refers to standard output, to another open file or to something that is not a
/// regular file.
bool IsWrittenDirectly(const std::string& target);

/// A file to write: complete or not at all.
///
/// A regular file is written under a temporary name beside its target and renamed when it is
/// published; the destructor removes an unpublished one. Temporary files that killed programs left
/// are removed, too.
///
/// A target that exists and is not a regular file cannot be replaced: a device or a pipe is written
/// directly, and so is standard output, which is "-" or any name for it.
struct PendingFile {
    enum class Special {
        Refused,
        Written
    }; ///< What to do with a target that is not a regular file.

    /// Throws HostError if the target could not be written. Waits for the reader of a named pipe.
    explicit PendingFile(const std::string& target, Special special = Special::Refused);
    PendingFile(const PendingFile&) = delete;
    PendingFile& operator=(const PendingFile&) = delete;
    ~PendingFile();

    std::filesystem::path Target;
    std::filesystem::path Temporary; ///< Empty once it is published, and where there is none.
    int Descriptor = -1;             ///< Open for writing; locked while there is a temporary file.
    bool Direct = false; ///< Written without a temporary file; it may be several tables.
    bool ToStandardOutput = false;
};

/// Appends a text to the file. Throws HostError if that fails.
void Append(PendingFile& file, std::string_view text);

/// Gives the complete temporary file the name of its target. Throws HostError if that fails.
void Publish(PendingFile& file);

} // namespace orvane
