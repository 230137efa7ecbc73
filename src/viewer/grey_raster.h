#pragma once

#include <optional>

#include "forms/raster.h"
#include "viewer/surface_grid.h"
#include "viewer/viewer_state.h"

namespace crownlab {

/// Rasters keep this many white pixels to the right and below.
inline constexpr int kRasterMargin = 4;

/// A raster for NumX by NumY cells with its margin, all white. Cell pixels lie at the upper left, row 0
/// being the grid's row NumY. SubscriptOutOfRange without a cell, OutOfMemory.
Raster BlankRaster(int numX, int numY);

/// 255 times the share of z in [zMin, zMax], rounded half to even as a 16-bit number (Overflow) and limited
/// to 0..255.
std::uint8_t GreyOf(double z, double zMin, double zMax);

/// What a grey picture of a grid shows. An empty cell has share 0 and is drawn as the darkest grey.
struct GreyOptions {
    double ZMin = 0;
    double ZMax = 0;
    /// Cells whose height is at or below this are drawn pure green; empty cells stand at ZMin.
    std::optional<double> Threshold;
    /// What an empty range means: DivisionByZero at the first cell with a surface, or all greys 0.
    bool EmptyRangeFails = true;
};
Raster DrawGrey(const SurfaceGrid& grid, const GreyOptions& options);

/// The same for labels and patch numbers of a patch count.
Raster DrawGrey(const LabelGrid& grid, const GreyOptions& options);

/// Width and height in display pixels of a box whose longer grid side is stretched to `longSide`: with r
/// columns a row, longSide by floor(longSide / r), or floor(r longSide) by longSide if r is below 1.
struct BoxSize {
    int Width = 0;
    int Height = 0;
};
BoxSize SizeOfBox(int numX, int numY, int longSide);

}  // namespace crownlab
