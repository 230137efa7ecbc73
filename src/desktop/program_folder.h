#pragma once

#include <string>

namespace crownlab {

/// The application's own folder: `binaryFolder` if Crownlab.ini lies there (a build tree, an unpacked
/// archive), else "crownlab" in `configFolder`, where the launcher puts the installed template.
std::string ProgramFolder(const std::string& binaryFolder, const std::string& configFolder);

}  // namespace crownlab
