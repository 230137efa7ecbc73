#pragma once

#include "mapengine/data_points.h"
#include "mapengine/grid.h"
#include "mapengine/progress.h"

namespace crownlab {

/// Heights by ordinary point kriging with the distance itself as variogram and no nugget (A. G. Journel and C. J.
/// Huijbregts, "Mining geostatistics", 1978). A node on a point takes its height. Up to 250 points all count, by one
/// system for all nodes; more are searched by quadrants, see FillFromNeighbours. The points are at different places,
/// one of them at least.
Grid KrigingGrid(const DataPoints& points, const GridGeometry& shape, Progress& progress);

}  // namespace crownlab
