#pragma once

#include "mapengine/grid.h"
#include "mapengine/progress.h"

namespace crownlab {

// Derivatives of a grid at its nodes, as grids of the same shape.
//
// First derivatives are central differences; where one neighbour is missing or blank, the difference over the interval
// that there is. Second derivatives are central, or else from the next two nodes of one side. The mixed derivative is
// the y difference of the x differences, by the same rule. Where a derivative that is needed can't be had, and where
// the node itself is blank, the result is blank.
//
// Cost: one pass over the nodes, on all cores; the same bits for every number of them.

/// Curvature of the surface's profile at `degrees` counter-clockwise from +x: the absolute second derivative along
/// that direction over (1 + first²)^1.5, in 1 / unit of length. At a multiple of 90 degrees only the derivatives
/// along that axis are needed.
Grid CurvatureGrid(const Grid& grid, double degrees, Progress& progress);

/// Steepest slope in degrees, 0 to 90.
Grid SlopeGrid(const Grid& grid, Progress& progress);

/// Direction of steepest descent in degrees clockwise from +y, from 0 up to but not 360. Blank where the surface is
/// flat and where its slope is below `leastSlope` radians.
Grid AspectGrid(const Grid& grid, double leastSlope, Progress& progress);

}  // namespace crownlab
