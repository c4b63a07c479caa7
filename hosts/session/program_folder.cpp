#include "hosts/session/program_folder.h"

#include <system_error>

namespace orvane {

namespace fs = std::filesystem;

fs::path ProgramFolder() {
    std::error_code ignored;
    return fs::read_symlink("/proc/self/exe", ignored).parent_path();
}

fs::path BuildRootAbove(const fs::path& folder) {
    std::error_code ignored;
    for (fs::path at = folder;; at = at.parent_path()) {
        if (fs::exists(at / "CMakeCache.txt", ignored)) {
            return at;
        }
        if (at == at.parent_path()) {
            return {};
        }
    }
}

} // namespace orvane
