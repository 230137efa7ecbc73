#pragma once

#include "mapengine/data_points.h"
#include "mapengine/grid.h"
#include "mapengine/progress.h"

namespace crownlab {

/// Heights as the mean of the points' heights, weighted by one over the squared distance (D. Shepard, "A
/// two-dimensional interpolation function for irregularly-spaced data", 1968). A node on a point takes its height. Up
/// to 250 points all count; more are searched by quadrants, see FillFromNeighbours. The points are at different places,
/// one of them at least.
Grid InverseDistanceGrid(const DataPoints& points, const GridGeometry& shape, Progress& progress);

}  // namespace crownlab
