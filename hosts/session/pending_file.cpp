#include "hosts/session/pending_file.h"

#include "hosts/session/text_parsing.h"
#include "hosts/session/translation.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cctype>
#include <cerrno>
#include <cstdlib>
#include <iterator>
#include <optional>
#include <string_view>
#include <system_error>

namespace orvane {

namespace {

namespace fs = std::filesystem;

constexpr std::string_view temporaryPrefix = ".orvane-";
constexpr std::string_view temporaryPattern = "XXXXXX"; // as mkstemp wants it

HostError CannotWrite(const fs::path& target, const std::string& reason,
                      ErrorKind kind = ErrorKind::Failure) {
    return HostError(Translated("%s cannot be written: %s.", {target.string(), reason}), kind);
}

HostError CannotWrite(const fs::path& target, int error) {
    std::string reason = std::generic_category().message(error);
    reason.front() = static_cast<char>(std::tolower(static_cast<unsigned char>(reason.front())));
    return CannotWrite(target, reason,
                       error == EINTR ? ErrorKind::Interrupted : ErrorKind::Failure);
}

/// The open file that a name such as "-", /dev/stdout or /dev/fd/3 stands for. Opened by that name
/// it would be written from its beginning.
std::optional<int> DescriptorNamed(fs::path name) {
    if (name == "-") {
        return STDOUT_FILENO;
    }
    const std::string ours = "/proc/" + std::to_string(getpid()) + "/fd";
    constexpr int mostLinks = 40;
    for (int link = 0; link < mostLinks; ++link) {
        std::error_code failure;
        const fs::path folder = fs::canonical(fs::absolute(name).parent_path(), failure);
        if (!failure && folder == ours) {
            return ParseNumber<int>(name.filename().string());
        }
        const fs::path next = fs::read_symlink(name, failure);
        if (failure) {
            break;
        }
        name = name.parent_path() / next;
    }
    return std::nullopt;
}

bool IsSameFile(const struct stat& one, int descriptor) {
    struct stat other {};
    return fstat(descriptor, &other) == 0 && one.st_dev == other.st_dev &&
           one.st_ino == other.st_ino;
}

/// The open file behind the target, if it has one. One that is standard output by another name is
/// not replaced either.
std::optional<int> OpenDescriptor(const fs::path& target) {
    auto descriptor = DescriptorNamed(target);
    struct stat existing {};
    if (!descriptor && stat(target.c_str(), &existing) == 0 && S_ISREG(existing.st_mode) &&
        IsSameFile(existing, STDOUT_FILENO)) {
        descriptor = STDOUT_FILENO;
    }
    return descriptor;
}

/// Permissions of the file that is replaced, or those that a new file gets.
mode_t PermissionsFor(const fs::path& target) {
    struct stat existing {};
    if (stat(target.c_str(), &existing) == 0) {
        return existing.st_mode & 0777U;
    }
    const mode_t mask = umask(0);
    umask(mask);
    return 0666U & ~mask;
}

bool IsTemporaryName(const std::string& name) {
    return name.starts_with(temporaryPrefix) &&
           name.size() == temporaryPrefix.size() + temporaryPattern.size();
}

/// Removes the temporary files in a folder that no program writes any more: a running program holds
/// a lock on its own.
void RemoveLeftovers(const fs::path& folder) {
    std::error_code ignored;
    for (auto entry = fs::directory_iterator(folder, ignored); entry != fs::directory_iterator();
         entry.increment(ignored)) {
        if (!IsTemporaryName(entry->path().filename()) ||
            entry->symlink_status(ignored).type() != fs::file_type::regular) {
            continue;
        }
        const int file = open(entry->path().c_str(), O_RDWR | O_NOFOLLOW | O_CLOEXEC);
        if (file >= 0 && flock(file, LOCK_EX | LOCK_NB) == 0) {
            fs::remove(entry->path(), ignored);
        }
        if (file >= 0) {
            close(file);
        }
    }
}

/// Creates a temporary file in a folder and locks it. `name` is set to its name.
/// \return its descriptor, below 0 if it cannot be made
int CreateTemporary(const fs::path& folder, fs::path& name) {
    while (true) {
        std::string pattern = folder / (std::string(temporaryPrefix) += temporaryPattern);
        const int file = mkostemp(pattern.data(), O_CLOEXEC);
        struct stat made {};
        // Another program may have removed it between the two calls.
        if (file < 0 || flock(file, LOCK_EX) != 0 || fstat(file, &made) != 0 || made.st_nlink > 0) {
            name = pattern;
            return file;
        }
        close(file);
    }
}

void OpenDirectly(PendingFile& file, std::optional<int> opened) {
    file.Direct = true;
    file.Descriptor = opened ? fcntl(*opened, F_DUPFD_CLOEXEC, 0)
                             : open(file.Target.c_str(), O_WRONLY | O_NOCTTY | O_CLOEXEC);
    if (file.Descriptor < 0) {
        throw CannotWrite(file.Target, errno);
    }
    struct stat there {};
    file.ToStandardOutput =
        opened == STDOUT_FILENO || (fstat(file.Descriptor, &there) == 0 &&
                                    !S_ISCHR(there.st_mode) && IsSameFile(there, STDOUT_FILENO));
    if (file.ToStandardOutput) {
        file.Target = Translated("Standard output");
    }
}

void OpenTemporary(PendingFile& file) {
    // A link stays a link: the file that it points to is the one to replace.
    std::error_code ignored;
    if (const fs::path real = fs::canonical(file.Target, ignored); !ignored) {
        file.Target = real;
    }
    const fs::path folder = fs::absolute(file.Target).parent_path();
    RemoveLeftovers(folder);
    file.Descriptor = CreateTemporary(folder, file.Temporary);
    if (file.Descriptor < 0) {
        const int error = errno;
        file.Temporary.clear();
        throw CannotWrite(file.Target, error);
    }
    fchmod(file.Descriptor, PermissionsFor(file.Target));
}

} // namespace

bool IsWrittenDirectly(const std::string& target) {
    std::error_code ignored;
    const fs::file_status status = fs::status(target, ignored);
    return OpenDescriptor(target) || (fs::exists(status) && !fs::is_regular_file(status));
}

PendingFile::PendingFile(const std::string& target, Special special) : Target(target) {
    if (target.empty()) {
        throw WrongArgument(Translated("A file needs a name."));
    }
    const auto opened = OpenDescriptor(Target);
    std::error_code ignored;
    if (!opened && fs::is_directory(Target, ignored)) {
        throw CannotWrite(Target, EISDIR);
    }
    if (IsWrittenDirectly(target)) {
        if (special == Special::Refused) {
            throw CannotWrite(Target, Translated("it is not a regular file"));
        }
        OpenDirectly(*this, opened);
        return;
    }
    if (fs::exists(Target, ignored) && access(Target.c_str(), W_OK) != 0) {
        throw CannotWrite(Target, errno);
    }
    OpenTemporary(*this);
}

PendingFile::~PendingFile() {
    if (!Temporary.empty()) {
        std::error_code ignored;
        fs::remove(Temporary, ignored);
    }
    if (Descriptor >= 0) {
        close(Descriptor);
    }
}

void Append(PendingFile& file, std::string_view text) {
    while (!text.empty()) {
        const ssize_t written = write(file.Descriptor, text.data(), text.size());
        if (written < 0) {
            throw CannotWrite(file.Target, errno);
        }
        text.remove_prefix(static_cast<size_t>(written));
    }
}

void Publish(PendingFile& file) {
    if (file.Direct) {
        return;
    }
    if (fsync(file.Descriptor) != 0 || rename(file.Temporary.c_str(), file.Target.c_str()) != 0) {
        throw CannotWrite(file.Target, errno);
    }
    file.Temporary.clear();
}

} // namespace orvane
