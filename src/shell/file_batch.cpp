#include "shell/file_batch.h"

#include <algorithm>

#include "basis/failure.h"
#include "basis/paths.h"

namespace crownlab {

BatchFile MakeBatchFile(const std::string& folder, const std::string& name) {
    constexpr std::size_t extensionLength = 4;  // a dot and three letters
    if (name.size() <= extensionLength) throw Failure(FailureKind::InvalidCall, "file name \"" + name + "\"");
    BatchFile file;
    file.FileDir = WithSeparator(folder);
    file.FileBase = name.substr(0, name.size() - extensionLength);
    file.Stem = file.FileDir + file.FileBase;
    file.InputPath = file.FileDir + name;
    file.Ext = name.substr(name.size() - extensionLength);
    return file;
}

bool Contains(const FileBatch& batch, const std::string& folder, const std::string& name) {
    const std::string path = JoinPath(folder, name);
    return std::any_of(batch.begin(), batch.end(), [&](const BatchFile& file) { return file.InputPath == path; });
}

}  // namespace crownlab
