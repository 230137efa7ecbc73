#pragma once

#include "mapengine/data_points.h"
#include "mapengine/grid.h"
#include "mapengine/progress.h"

namespace crownlab {

/// Points nearer to one line than this share of their box's longer side make no triangles.
inline constexpr double kLineShare = 1e-9;

/// Heights linear in each triangle of a Delaunay triangulation of the points; blank outside of its hull, within
/// GridGeometry::Tolerance of whose edges is inside. The points are at different places. AutomationFailed for fewer
/// than three points and for points on a line.
Grid TriangulationGrid(const DataPoints& points, const GridGeometry& shape, Progress& progress);

}  // namespace crownlab
