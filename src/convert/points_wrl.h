#pragma once

#include <string>

#include "convert/point_lattice.h"

namespace crownlab {

class FileTable;

/// Writes the model of a surface file: an elevation grid in the file's own unit, seen from above. `subject` is what the
/// second line names. Throws what writing a file throws.
void WriteSurfaceFileWrl(FileTable& files, const std::string& path, const PointLattice& lattice,
                         const std::string& subject);

/// Writes the model of an image's points: an elevation grid with a height a line and no viewpoint.
void WriteImageWrl(FileTable& files, const std::string& path, const FileOrderHeights& heights,
                   const std::string& subject);

}  // namespace crownlab
