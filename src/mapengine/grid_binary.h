#pragma once

#include <string_view>

#include "mapengine/grid.h"

namespace crownlab {

class ResultFile;

// The two binary forms of a grid file, little-endian throughout, rows from the lowest y.
//
//   "DSBB"  columns, rows (16 bits); x, y, z limits (64-bit floats); z (32-bit floats)
//   "DSRB"  sections of a tag of four characters, the number of bytes that follow (32 bits), and those bytes:
//           "DSRB" version; "GRID" rows, columns (32 bits), x and y of the lower left node, spacing in x and y, z
//           limits, rotation, blank value (64-bit floats); "DATA" z (64-bit floats). Others are skipped.

/// Reads a grid off the bytes of a file that starts with "DSBB". AutomationFailed, with a sentence that doesn't name
/// the file, for what is refused; OutOfMemory.
Grid ReadBinary32(std::string_view bytes);

/// The same for "DSRB".
Grid ReadBinary64(std::string_view bytes);

/// Heights are rounded to 32 bits. AutomationFailed for more than 32767 rows or columns, and for a height below the
/// range of 32-bit floats.
void WriteBinary32(ResultFile& file, const Grid& grid);

/// AutomationFailed for more nodes than the size of a section can count.
void WriteBinary64(ResultFile& file, const Grid& grid);

}  // namespace crownlab
