#pragma once

#include <cstddef>
#include <functional>

#include "mapengine/data_points.h"
#include "mapengine/grid.h"
#include "mapengine/neighbour_tree.h"
#include "mapengine/progress.h"

namespace crownlab {

/// Up to so many points all of them count at each node; above that those that the search finds.
inline constexpr std::size_t kAllPointsUpTo = 250;

/// Height at a place; blank or not finite: none.
using HeightAt = std::function<double(double x, double y)>;

/// Sets every node to the height at its place, on all cores.
void FillNodes(Grid& grid, Progress& progress, const HeightAt& height);

/// Height at a place from the points around it, none of which lies on it.
using HeightFromNeighbours = double (*)(const Neighbours& neighbours);

/// Sets every node that lies on a point to that point's height, every other one to the height from its quadrant search
/// within half the diagonal of the box around the points; blank where fewer than eight points are found.
void FillFromNeighbours(Grid& grid, const DataPoints& points, Progress& progress, HeightFromNeighbours height);

}  // namespace crownlab
