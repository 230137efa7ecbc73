#pragma once

#include <string>

#include "formats/lattice_text.h"

namespace crownlab {

class FileTable;

/// Writes a grid as an AutoCAD DXF drawing of two triangles a cell, as 3DFACE entities whose fourth corner repeats the
/// third. Blank nodes (z of 1E37 or more) are pulled down to the lowest height. `base` is the name that the drawing's
/// comment gives. Coordinates have three decimals. Throws what writing a file throws.
void WriteGridDxf(FileTable& files, const std::string& path, const std::string& base, Lattice lattice);

}  // namespace crownlab
