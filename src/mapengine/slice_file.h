#pragma once

#include <span>
#include <string>

#include "mapengine/boundary.h"
#include "mapengine/grid.h"

namespace crownlab {

class FileTable;
class Progress;

/// Writes the places of all lines over a grid as a text, a record a place: x, y, z, distance along the line and the
/// line's number from 1, by commas, numbers as general text. Whole or not at all; throws what writing a file throws.
void WriteSlices(FileTable& files, const std::string& path, const Grid& grid, std::span<const Boundary> lines,
                 Progress& progress);

}  // namespace crownlab
