#pragma once

#include <string>
#include <string_view>

#include "mapengine/grid.h"
#include "mapengine/worksheet.h"

namespace crownlab {

/// Columns of a data file, from 1.
struct ResidualColumns {
    int X = 1;
    int Y = 2;
    int Z = 3;
    int Residual = 4;
};

/// The records of a data file, as a worksheet of that file with the residual of each put into its column: z less the
/// bilinear height of the grid at x, y, and the blank value where the grid has none. Records are a line each, by
/// commas, blanks or tabs; empty lines are left out. Numbers become general text of 15 digits, other fields stay as
/// they are. AutomationFailed, naming the line, for too few fields or a field that should be a number and isn't. `path`
/// is the data file's.
Worksheet Residuals(const Grid& grid, std::string_view data, const std::string& path, const ResidualColumns& columns);

}  // namespace crownlab
