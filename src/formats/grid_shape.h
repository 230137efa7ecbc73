#pragma once

namespace crownlab {

/// Where the nodes of a grid lie, and how high: columns and rows, limits of the node positions, spacings.
struct GridShape {
    double NumCols = 0;
    double XMin = 0;
    double XMax = 0;
    double SpacingX = 0;
    double NumRows = 0;
    double YMin = 0;
    double YMax = 0;
    double SpacingY = 0;
    double ZMin = 0;  ///< lowest height of this grid; 0 where nobody asked for it
    double ZMax = 0;
};

}  // namespace crownlab
