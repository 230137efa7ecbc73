#pragma once

#include <string>

#include "formats/grid_shape.h"
#include "formats/point_extents.h"

namespace crownlab {

/// The nodes of a grid over points, `n` of them along the longer side of the points' box (y if both are the same),
/// the same spacing both ways, rounded to three decimals. The grid starts at the lowest x and y. The short side has
/// its length over the spacing as count, rounded, and not one more. `n` is rounded to a whole number.
/// DivisionByZero for n = 1 and for a spacing that rounds to 0.
GridShape NodesAlongLongerSide(const PointExtents& extents, double n);

/// The grid with its spacings and its low edges rounded to three decimals. The counts stay, so that the high edges
/// move.
GridShape RoundedToThousandths(const GridShape& grid);

/// Name of the outline that belongs to a grid: its path without extension, less the last `less` characters (rounded to
/// a whole number; a negative one takes nothing away), and "blnpts.bln". InvalidCall if the path is shorter.
std::string OutlineOfGrid(const std::string& stem, double less);

}  // namespace crownlab
