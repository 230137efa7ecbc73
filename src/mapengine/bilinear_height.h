#pragma once

#include "mapengine/grid.h"

namespace crownlab {

/// Height of a grid at a place: bilinear inside a cell, so linear along grid lines and the node's own at a node.
/// Places within the grid's tolerance of its edge count as on it. Blank off the grid, and where a node of weight
/// above 0 is blank; places within the tolerance of a grid line give no weight to the nodes beside it where those
/// are blank.
double BilinearHeight(const Grid& grid, double x, double y);

}  // namespace crownlab
