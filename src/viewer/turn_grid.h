#pragma once

#include "viewer/surface_grid.h"

namespace crownlab {

/// Grids made by moving whole records, x and y with them: where a cell lies no longer follows from its
/// column and row. SubscriptOutOfRange for a grid without cells, OutOfMemory.

/// Columns in reverse order.
SurfaceGrid MirroredColumns(const SurfaceGrid& grid);
/// Rows in reverse order.
SurfaceGrid MirroredRows(const SurfaceGrid& grid);
/// Columns and rows exchanged.
SurfaceGrid Transposed(const SurfaceGrid& grid);

}  // namespace crownlab
