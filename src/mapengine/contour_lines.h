#pragma once

#include <vector>

#include "formats/boundary_file.h"
#include "mapengine/grid.h"

namespace crownlab {

/// A line of equal height. Higher ground lies on the left of its run.
struct ContourLine {
    double Level = 0;
    bool Closed = false;             ///< its last point is joined to its first, which isn't repeated
    std::vector<PlanePoint> Points;  ///< two at least, three of a closed one; no two neighbours are equal
};

/// The lines of one level: marching squares (C. Maple, "Geometric design and space planning using the marching squares
/// and marching cube algorithms", 2003), heights linear along grid lines, the segments joined. Where two opposite
/// corners of a cell are high and two low, the bilinear height at the cell's saddle decides which of them are
/// joined (G. M. Nielson and B. Hamann, "The asymptotic decider", 1991). Cells with a blank corner have no lines.
/// A node of exactly the level counts as high. Open lines come first, in the order in which they begin, rows from
/// below.
std::vector<ContourLine> TraceContours(const Grid& grid, double level);
/// The same for several levels, one after the other.
std::vector<ContourLine> TraceContours(const Grid& grid, const std::vector<double>& levels);

/// Levels at round numbers strictly inside a range, at most `most`; none for a range that is blank or has no width.
std::vector<double> ContourLevels(const HeightRange& range, int most);

}  // namespace crownlab
