#include "mapengine/data_folder.h"

#include <filesystem>
#include <system_error>

#include "basis/paths.h"

namespace crownlab {
namespace {

namespace fs = std::filesystem;

/// Folder of the running executable, empty where that can't be learned.
fs::path ExecutableFolder() {
    std::error_code error;
    const fs::path program = fs::read_symlink("/proc/self/exe", error);
    return error ? fs::path() : program.parent_path();
}

}  // namespace

std::string SampleGridPath(const std::string& dataFolder) {
    return JoinPath(JoinPath(dataFolder, "Samples"), "demogrid.grd");
}

std::string DataFolder() {
    const fs::path program = ExecutableFolder();
    if (!program.empty()) {
        // Programs for people stand in "bin", those behind a launcher in "libexec/crownlab".
        for (const fs::path& up : {program.parent_path(), program.parent_path().parent_path()}) {
            std::string folder = (up / "share" / "crownlab").string();
            if (IsFile(SampleGridPath(folder))) return folder;
        }
    }
    return CROWNLAB_DATA_FOLDER;
}

}  // namespace crownlab
