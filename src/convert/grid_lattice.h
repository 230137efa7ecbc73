#pragma once

#include "formats/point_extents.h"

namespace crownlab {

/// Nodes and limits of a grid that is to be made.
struct GridLattice {
    double NumCols = 0;  ///< a whole number of any size
    double NumRows = 0;  ///< within 16 bits where points are gridded
    double XMin = 0;
    double XMax = 0;
    double YMin = 0;
    double YMax = 0;
};

/// A lattice of given intervals: each of the four limits goes to the nearest multiple of its interval, halves to the
/// even one, and both ends are nodes.
///
/// DivisionByZero for an interval of 0, Overflow for more rows than 16 bits hold.
GridLattice LatticeByIntervals(const PointExtents& extents, double xInterval, double yInterval);

/// A lattice of which the longer side gets `most` nodes (rows if both are equal) from the lowest coordinate on, at an
/// interval rounded to three decimals; the other side goes from its lowest coordinate as many whole intervals as come
/// nearest to its length. It gets as many nodes as that, not one more, so that its own interval is a little longer:
/// grids have to stay comparable with those of earlier years.
///
/// DivisionByZero for one node, and where the interval comes to 0; Overflow for more rows than 16 bits hold.
GridLattice LatticeByLongerSide(const PointExtents& extents, double most);

}  // namespace crownlab
