#include "desktop/program_folder.h"

#include "basis/paths.h"

namespace crownlab {

std::string ProgramFolder(const std::string& binaryFolder, const std::string& configFolder) {
    if (IsFile(JoinPath(binaryFolder, "Crownlab.ini"))) return binaryFolder;
    return JoinPath(configFolder, "crownlab");
}

}  // namespace crownlab
