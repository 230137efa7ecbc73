#pragma once

#include "mapengine/grid.h"

namespace crownlab {

/// The height of a grid at a place of its map: bilinear between the four nodes around it. Blank off the grid and where
/// a node of weight above 0 is blank.
double MapHeight(const Grid& grid, double x, double y);

}  // namespace crownlab
