#pragma once

#include <cstdint>
#include <vector>

#include "forms/raster.h"
#include "viewer/surface_grid.h"

namespace crownlab {

/// A result drawn in colours: the raster, and per cell the grey or packed colour (rounded), in display
/// order from the top row. Cells without a value are black and 0.
struct Rendering {
    Raster Picture;
    std::vector<std::int32_t> Values;
};

/// Lowest and highest value of the cells that have one; start values 1e16 and -1e16.
struct ValueRange {
    double Min = 1e16;
    double Max = -1e16;
};
ValueRange RangeOf(const SurfaceGrid& grid);

/// Eight sectors of orientation in their colours, grey below the minimum slope. Values outside stay black.
Rendering RenderAspect(const SurfaceGrid& aspect);
/// All cells black: what orientations look like for a number of categories other than eight.
Rendering RenderBlack(const SurfaceGrid& grid);

struct SlopeColours {
    double Max = 0;            ///< value drawn at full brightness; 0 is DivisionByZero
    bool UseMinSlope = false;  ///< cells up to MinSlope (degrees) in red, the flatter the brighter
    double MinSlope = 0;
};
/// Slopes in green, brighter where steeper.
Rendering RenderSlope(const SurfaceGrid& slope, const SlopeColours& colours);

struct Light {
    double Horiz = 315;  ///< azimuth in degrees
    double Vert = 45;    ///< elevation in degrees
    double b = 5;        ///< exponent of the specular term
    double w = 0;        ///< weight of the diffuse term
};
/// Shaded relief. Only a cell without a value in both grids is black; a level cell is shaded with
/// orientation 0. The rise is taken as if it were degrees. InvalidCall for a negative base of the power
/// with a fractional exponent.
Rendering RenderShadedRelief(const SurfaceGrid& slope, const SurfaceGrid& aspect, const Light& light);

/// Bands of height in greys from dark to light; DivisionByZero if there is one band only.
Rendering RenderContour(const SurfaceGrid& bands, const ValueRange& range);

}  // namespace crownlab
