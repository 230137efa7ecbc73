#include "formats/extract_area.h"

#include <cmath>

#include "basis/rounding.h"

namespace crownlab {
namespace {

/// Whole node steps from the grid's edge to a place.
double StepsTo(double place, double edge, double spacing) {
    return std::floor(Divide(place - edge, spacing, "spacing of the grid"));
}

}  // namespace

bool CornersInOrder(const PlanePoint& lowerLeft, const PlanePoint& upperRight) {
    return lowerLeft.x < upperRight.x && lowerLeft.y < upperRight.y;
}

GridPart RangeBetween(const GridShape& grid, const PlanePoint& lowerLeft, const PlanePoint& upperRight) {
    return {.FirstColumn = StepsTo(lowerLeft.x, grid.XMin, grid.SpacingX) + 2,
            .LastColumn = StepsTo(upperRight.x, grid.XMin, grid.SpacingX) + 1,
            .FirstRow = StepsTo(lowerLeft.y, grid.YMin, grid.SpacingY) + 2,
            .LastRow = StepsTo(upperRight.y, grid.YMin, grid.SpacingY) + 1};
}

GridPart WholeRange(const GridShape& grid) {
    return {.FirstColumn = 1, .LastColumn = grid.NumCols, .FirstRow = 1, .LastRow = grid.NumRows};
}

}  // namespace crownlab
