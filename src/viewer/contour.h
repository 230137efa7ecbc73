#pragma once

#include "viewer/surface_grid.h"

namespace crownlab {

/// Bands of a multiple of the grid step: floor((floor(z / stepX) - floor(zMin / stepX)) / multiple), empty cells
/// staying empty. `multiple` is above 1. Overflow for a band beyond 16 bits, DivisionByZero for a step of 0.
SurfaceGrid ContourBySteps(const SurfaceGrid& work, double stepX, double zMin, double multiple);

/// Bands of a part of the z range: (z - zMin) / ((zMax - zMin) / parts) rounded half to even. `parts` is above 1.
/// DivisionByZero for an empty range.
SurfaceGrid ContourByRange(const SurfaceGrid& work, double zMin, double zMax, double parts);

}  // namespace crownlab
