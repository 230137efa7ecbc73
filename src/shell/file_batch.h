#pragma once

#include <string>
#include <vector>

namespace crownlab {

/// One chosen file of a batch window. All output names start from its Stem.
struct BatchFile {
    std::string InputPath;   ///< FileDir and the chosen name
    std::string OutputPath;  ///< filled by each tool before it writes
    std::string FileDir;     ///< folder with its separator
    std::string FileBase;    ///< the chosen name less its last four characters
    std::string Stem;        ///< FileDir and FileBase
    std::string Ext;         ///< last four characters of the chosen name
    std::string RejectPath;  ///< filled by tools that write a second file
};

/// The files that a person has gathered for the next tool.
using FileBatch = std::vector<BatchFile>;

/// The entry for the file `name` in `folder`. InvalidCall for a name of four characters or fewer: what is left
/// as base would be empty or of negative length.
BatchFile MakeBatchFile(const std::string& folder, const std::string& name);

/// True if the batch holds that file.
bool Contains(const FileBatch& batch, const std::string& folder, const std::string& name);

}  // namespace crownlab
