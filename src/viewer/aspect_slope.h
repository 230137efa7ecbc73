#pragma once

#include "viewer/surface_grid.h"

namespace crownlab {

/// Aspect value of a cell that is less steep than the minimum slope.
inline constexpr double kBelowMinSlope = -1;

struct AspectSlopeOptions {
    double StepX = 0;  ///< grid step, in the units of x and z; it serves both axes
    bool UseMinSlope = false;
    double MinSlope = 0;  ///< degrees; a cell of exactly this slope keeps its orientation
};

/// Slope and orientation of the cells (firstColumn, row) to (lastColumn, row) of `work`, written to the
/// same cells of `slope` (rise over run, no angle) and `aspect` (degrees clockwise from +y in which the face
/// looks down; kEmptyCellZ where it is level; kBelowMinSlope below the minimum).
///
/// A cell at the grid's edge or beside an empty cell has no value: kEmptyCellZ in both. Gradients are
/// those of B. K. P. Horn, "Hill shading and the reflectance map", Proc. IEEE 69 (1981), with weights 1, 2, 1:
///
///     NW N NE     dz/dx = (NE + 2 E + SE - NW - 2 W - SW) / 8
///     W  .  E     dz/dy = (NW + 2 N + NE - SW - 2 S - SE) / 8
///     SW S SE
///
/// Throws Overflow if a slope isn't finite, DivisionByZero for a step of 0.
void AspectSlopeCells(const SurfaceGrid& work, const AspectSlopeOptions& options, int row, int firstColumn,
                      int lastColumn, SurfaceGrid& slope, SurfaceGrid& aspect);

/// All cells of all rows.
void AspectSlope(const SurfaceGrid& work, const AspectSlopeOptions& options, SurfaceGrid& slope, SurfaceGrid& aspect);

/// A rise over run as an angle in degrees; a rise of 1 is exactly 45.
double SlopeDegrees(double rise);

}  // namespace crownlab
