#pragma once

#include <string>

namespace crownlab {

class FileTable;

/// Writes to `to` a record x,y,z in shortest form for each point of the text `from` whose z is below
/// kBlankHeightFrom: blank nodes are left out. `to` may be `from` itself. InputPastEnd if the last point is short,
/// TypeMismatch for what isn't a number, and what reading and writing files throws.
void WriteUnblankedPoints(FileTable& files, const std::string& from, const std::string& to);

/// Takes the blank points out of `path` by way of a copy, which replaces what has that name and is deleted at the
/// end. A file that is its own copy stays.
void RemoveBlankPoints(FileTable& files, const std::string& path, const std::string& copy);

}  // namespace crownlab
