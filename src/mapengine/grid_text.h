#pragma once

#include <string_view>

#include "mapengine/grid.h"

namespace crownlab {

class ResultFile;

// The text forms of a grid. Both have CR LF line ends and no minus zero.

/// Reads a grid off the text of a file that starts with "DSAA": columns and rows, x limits, y limits, z limits, and the
/// heights, row after row from the lowest y; blanks, tabs and line ends between numbers, as many as there are.
/// AutomationFailed, with a sentence that doesn't name the file, for what is refused; OutOfMemory.
Grid ReadAsciiGrid(std::string_view text);

/// Numbers in the shortest form that reads back the same, ten a line, an empty line between rows.
void WriteAsciiGrid(ResultFile& file, const Grid& grid);

/// x, y, z of each node on a line of its own in general text, one blank between; rows from the lowest y, x fastest.
void WriteNodeText(ResultFile& file, const Grid& grid);

}  // namespace crownlab
