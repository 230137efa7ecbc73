#pragma once

#include <cstddef>
#include <string>

#include "mapengine/data_points.h"
#include "mapengine/grid.h"
#include "mapengine/plane_fit.h"
#include "mapengine/scattered_grid.h"
#include "mapengine/worksheet.h"

namespace crownlab {

/// What a report tells of one gridding.
struct GriddingFacts {
    std::string DataFile;
    std::string OutGrid;
    std::string Method;
    std::size_t PointsRead = 0;
    DataPoints Used;
};

/// A table of names in the first column and values in the second. `planeRow` is the row (from 1) of the plane's A;
/// B and C follow.
Worksheet GriddingReport(const GriddingFacts& facts, const ScatteredGrid& result, int planeRow);

/// The plane as a line of text: z(x,y) = A + By + Cx.
std::string PlaneLine(const FittedPlane& plane);

}  // namespace crownlab
