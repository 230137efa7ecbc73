#pragma once

#include "mapengine/boundary.h"
#include "mapengine/grid.h"
#include "mapengine/progress.h"

namespace crownlab {

/// Blanks the nodes inside the ring, or those outside it, as its flag says. Inside is what a ray to infinity leaves by
/// crossing the ring an odd number of times; an open ring is closed by a last edge from its end to its start. A node
/// within the grid's tolerance of an edge is neither inside nor outside. A ring of fewer than three different points
/// has no inside, but it has edges.
///
/// Row by row: crossings of the edges with the row, in order along x (W. J. Bouknight, "A procedure for generation of
/// three-dimensional half-toned computer graphics presentations", 1970). Cost: nodes, and edges times the rows each
/// spans. On all cores.
void BlankByBoundary(Grid& grid, const Boundary& boundary, Progress& progress);

}  // namespace crownlab
