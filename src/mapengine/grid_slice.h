#pragma once

#include <functional>
#include <span>

#include "formats/boundary_file.h"
#include "mapengine/grid.h"

namespace crownlab {

/// A place where a line over a grid has a vertex or crosses a grid line.
struct SlicePlace {
    double X = 0;
    double Y = 0;
    double Z = 0;         ///< height of the grid, kBlankHeight where it has none
    double Distance = 0;  ///< along the line from its start, in x and y
};

/// Walks a polyline over a grid and tells `take` each vertex and each crossing of a grid line, in order along the
/// line. A place is told once, be it vertex, crossing or both: places within the grid's tolerance of one another along
/// the line are one, which keeps the vertex's coordinates, or else the node's. Grid lines end at the edge of the
/// grid, so off it there are only vertices. A piece of the line that runs along a grid line doesn't cross it.
void WalkSlice(const Grid& grid, std::span<const PlanePoint> line, const std::function<void(const SlicePlace&)>& take);

}  // namespace crownlab
