#pragma once

#include "viewer/surface_grid.h"

namespace crownlab {

/// Area of the surface over one unit square with the heights `a` at (I, J), `b` at (I, J+1), `c` at
/// (I+1, J+1) and `d` at (I+1, J):
///
///     b --- c
///     |     |      the mean of the two areas that come of cutting the square
///     a --- d      along b-d and along a-c
///
/// By that mean the area is independent of the choice of diagonal: mirrored or turned cells have the same.
double CellArea(double a, double b, double c, double d);

/// Surface area and volume of one tooth, both in units of one cell.
struct ToothMeasures {
    double SurfaceArea = 0;
    double Volume = 0;
};

/// Adds up cells in order of rows, columns within. A cell whose four corners all equal `zeroLevel` is no
/// surface and adds nothing. Cells of the last row and column have no square above them and add their z to
/// the volume only. Every z counts as it stands, that of empty cells too. No cells: zeros.
ToothMeasures MeasureTooth(const SurfaceGrid& grid, double zeroLevel);

}  // namespace crownlab
