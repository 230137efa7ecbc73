#pragma once

#include <optional>

#include "mapengine/data_points.h"
#include "mapengine/grid.h"
#include "mapengine/plane_fit.h"
#include "mapengine/progress.h"

namespace crownlab {

/// How heights at nodes are made of scattered ones.
enum class GriddingMethod { InverseDistance, Kriging, Triangulation, Plane };

/// The grid asked for; what is left open follows from the data.
struct WantedGeometry {
    std::optional<int> Columns = {};
    std::optional<int> Rows = {};
    std::optional<double> XMin = {};
    std::optional<double> XMax = {};
    std::optional<double> YMin = {};
    std::optional<double> YMax = {};
};

/// Open limits are the data's; of open counts the one along the longer side is 100, the other in proportion, two at
/// least. AutomationFailed for limits that don't rise and for fewer than two nodes along a side.
GridGeometry GeometryFor(const WantedGeometry& wanted, const DataPoints& points);

/// A grid made of points.
struct ScatteredGrid {
    Grid Heights;
    std::optional<FittedPlane> Plane;  ///< set by GriddingMethod::Plane
};

/// Grids points, which are at different places. What a method needs of them, and what it throws, is told at
/// KrigingGrid, InverseDistanceGrid, TriangulationGrid, FitPlane; AutomationFailed for a plane of numbers that aren't
/// finite.
ScatteredGrid GridPoints(GriddingMethod method, const DataPoints& points, const GridGeometry& shape,
                         Progress& progress);

}  // namespace crownlab
