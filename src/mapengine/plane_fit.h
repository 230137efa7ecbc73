#pragma once

#include "mapengine/data_points.h"
#include "mapengine/grid.h"
#include "mapengine/progress.h"

namespace crownlab {

/// The plane z = A + B y + C x.
struct FittedPlane {
    double A = 0;
    double B = 0;
    double C = 0;
};

/// Least squares in z. AutomationFailed for fewer than three points and for points on a line, which fix no plane.
FittedPlane FitPlane(const DataPoints& points);

/// The plane's heights.
Grid PlaneGrid(const FittedPlane& plane, const GridGeometry& shape, Progress& progress);

}  // namespace crownlab
