#pragma once

#include "mapengine/filter_weights.h"
#include "mapengine/grid.h"
#include "mapengine/progress.h"

namespace crownlab {

/// The grid filtered `passes` times (none: as it is), each time the last result. A node becomes the weighted sum of
/// its neighbours over the sum of the weights used; neighbours off the grid and blank ones are left out. A blank node
/// stays blank, and one whose weights sum to 0 becomes blank. Both sums run row by row from the lowest y, x fastest.
///
/// Cost a pass: nodes times weights, on all cores; the same bits for every number of them. The grid's size once or
/// twice more of memory. Weights are finite.
Grid FilterGrid(Grid grid, const FilterWeights& weights, int passes, Progress& progress);

}  // namespace crownlab
