#pragma once

#include <cmath>
#include <vector>

#include "test_grids.h"

namespace crownlab {

/// Heights as they stand on a page, the highest row first; a NAN is a blank. One unit between columns, two between
/// rows, so that x and y differ.
inline Grid GridOfRows(const std::vector<std::vector<double>>& rows) {
    const int columns = static_cast<int>(rows.front().size()), number = static_cast<int>(rows.size());
    Grid grid({.Columns = columns,
               .Rows = number,
               .XMin = 10,
               .XMax = 10.0 + columns - 1,
               .YMin = 100,
               .YMax = 100 + 2.0 * (number - 1)});
    for (int row = 0; row < number; ++row) {
        for (int column = 0; column < columns; ++column) {
            const double z = rows[static_cast<std::size_t>(number - 1 - row)][static_cast<std::size_t>(column)];
            grid.At(column, row) = std::isnan(z) ? kBlankHeight : z;
        }
    }
    return grid;
}

}  // namespace crownlab
