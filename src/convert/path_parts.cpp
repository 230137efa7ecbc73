#include "convert/path_parts.h"

#include "basis/failure.h"
#include "basis/paths.h"
#include "basis/text.h"

namespace crownlab {
namespace {

constexpr std::size_t kExtensionLength = 4;  // a dot and three letters

std::size_t StartOfName(const std::string& path) {
    const std::size_t last = path.rfind(kPathSeparator);
    return last == std::string::npos ? 0 : last + 1;
}

}  // namespace

std::string FindRootDir(const std::string& path) { return path.substr(0, StartOfName(path)); }

std::string FindBaseFilename(const std::string& path) {
    const std::string name = path.substr(StartOfName(path));
    std::string base = LessLast(name, kExtensionLength, "file name \"" + name + "\"");
    if (base.empty()) throw Failure(FailureKind::InvalidCall, "file name \"" + name + "\"");
    return base;
}

BatchFile SingleFile(const std::string& folder, const std::string& name) {
    BatchFile file;
    file.InputPath = JoinPath(folder, name);
    file.FileDir = FindRootDir(file.InputPath);
    file.FileBase = FindBaseFilename(file.InputPath);
    file.Stem = file.FileDir + file.FileBase;
    file.Ext = file.InputPath.substr(file.InputPath.size() - kExtensionLength);
    return file;
}

}  // namespace crownlab
