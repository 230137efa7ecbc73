#pragma once

#include <string>

namespace crownlab {

class FileTable;

/// Writes the points of the text `input` to `output` as a scan of a mould is turned over: -x, y, -z; blank heights
/// stay as they are. Throws what reading and writing files throw.
void WriteMouldCopy(FileTable& files, const std::string& input, const std::string& output);

}  // namespace crownlab
