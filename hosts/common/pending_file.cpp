#include "hosts/common/pending_file.h"

#include "hosts/common/host_error.h"
#include "hosts/common/sentence.h"

#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <system_error>

namespace {

namespace fs = std::filesystem;

HostError CannotWrite(const fs::path& target, const std::string& reason) {
    return HostError(Sentence("%s cannot be written: %s.", {target.string(), reason}));
}

std::string Reason(int error) {
    return std::generic_category().message(error);
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

void CheckExisting(const fs::path& target) {
    std::error_code ignored;
    const fs::file_status status = fs::status(target, ignored);
    if (fs::is_directory(status)) {
        throw CannotWrite(target, Reason(EISDIR));
    }
    if (fs::exists(status) && !fs::is_regular_file(status)) {
        throw CannotWrite(target, Sentence("it is no regular file"));
    }
    if (fs::exists(status) && access(target.c_str(), W_OK) != 0) {
        throw CannotWrite(target, Reason(errno));
    }
}

} // namespace

PendingFile::PendingFile(const std::string& target) : Target(target) {
    CheckExisting(Target);
    // A link stays a link: the file that it points to is the one to replace.
    std::error_code ignored;
    if (const fs::path real = fs::canonical(Target, ignored); !ignored) {
        Target = real;
    }
    std::string name = (Target.parent_path() / ".orvane-XXXXXX").string();
    const int file = mkstemp(name.data());
    if (file < 0) {
        throw CannotWrite(Target, Reason(errno));
    }
    Temporary = name;
    fchmod(file, PermissionsFor(Target));
    close(file);
}

PendingFile::~PendingFile() {
    if (!Temporary.empty()) {
        std::error_code ignored;
        fs::remove(Temporary, ignored);
    }
}

void Publish(PendingFile& file) {
    std::error_code error;
    fs::rename(file.Temporary, file.Target, error);
    if (error) {
        throw CannotWrite(file.Target, error.message());
    }
    file.Temporary.clear();
}
