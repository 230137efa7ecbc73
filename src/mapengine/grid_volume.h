#pragma once

#include "mapengine/grid.h"
#include "mapengine/progress.h"

namespace crownlab {

/// What an upper grid is measured against: a second grid, or a constant height.
struct LowerSurface {
    const Grid* Heights = nullptr;  ///< of the upper grid's shape; nullptr for the constant
    double Constant = 0;
};

/// Volumes and areas between two surfaces, in the grid's units. "Above" is where the upper surface lies strictly
/// above the lower one, "below" where it lies strictly below; all but the net volumes are 0 or more.
struct GridVolumes {
    double Simpson = 0;       ///< net volume, upper less lower, by the extended Simpson rule; blank nodes count 0
    double ThreeEighths = 0;  ///< the same by the extended 3/8 rule
    double Above = 0;
    double Below = 0;
    double PlanarAbove = 0;
    double PlanarBelow = 0;
    double SurfaceAbove = 0;  ///< area of the upper surface
    double SurfaceBelow = 0;
    double PlanarBlank = 0;  ///< planar area of the cells with a blank node in either grid, which are left out
};

/// Each cell of four unblanked nodes is cut into four triangles that meet at the mean of its corners, and these
/// are integrated exactly. Only the upper grid's limits count. AutomationFailed if the shapes differ or a result is
/// beyond 64-bit floats. Cost: one pass over the nodes, on all cores; the same bits for every number of them.
GridVolumes MeasureVolume(const Grid& upper, const LowerSurface& lower, Progress& progress);

}  // namespace crownlab
