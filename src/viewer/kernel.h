#pragma once

#include <vector>

#include "viewer/surface_grid.h"

namespace crownlab {

/// Convolution weights over (2 k + 1) by (2 k + 1) cells, from the lowest row and column.
struct Kernel {
    int k = 1;
    std::vector<double> Weights;
    double At(int column, int row) const {
        const int at = (row + k) * (2 * k + 1) + column + k;
        return Weights[static_cast<std::size_t>(at)];
    }
};

/// The four-neighbour Laplacian: 1 beside the cell, -4 on it.
Kernel LaplacianKernel();

/// Sum of weight times z over the kernel at each cell; an offset off the grid adds nothing, an empty cell goes
/// in with its 9999.
SurfaceGrid ApplyKernel(const SurfaceGrid& work, const Kernel& kernel);

struct CuspOptions {
    int k = 1;                  ///< half width of the window in cells
    double MinCuspValue = 0;    ///< a lower cell is no cusp
    double CuspDifference = 0;  ///< a cell this far below the window's highest still counts
    double WorkZMin = 0;        ///< what a cell without a cusp gets
    double WorkZMax = 0;        ///< what a cusp gets
};
/// Map of cusps in two values: local maxima of height (and everything within CuspDifference of them). A
/// window at the edge is cut off by the grid. A cell of height 0 is never a cusp.
SurfaceGrid DetectCusps(const SurfaceGrid& work, const CuspOptions& options);

}  // namespace crownlab
