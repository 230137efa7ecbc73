#include "viewer/render.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "basis/memory_limit.h"
#include "basis/rounding.h"
#include "viewer/aspect_slope.h"
#include "viewer/grey_raster.h"

namespace crownlab {
namespace {

/// As short as the orientation's own constant.
constexpr double kPi = 3.14159265358979;

/// North, then clockwise, and north again for the sector's other half.
constexpr std::array<Colour, 9> kSectorColours{{{255, 255, 0},
                                                {0, 255, 255},
                                                {0, 0, 255},
                                                {0, 255, 0},
                                                {0, 103, 52},
                                                {255, 0, 255},
                                                {255, 0, 0},
                                                {103, 52, 52},
                                                {255, 255, 0}}};
constexpr Colour kBelowMinColour{128, 128, 128};

Rendering EmptyRendering(const SurfaceGrid& grid) {
    Rendering rendering{BlankRaster(grid.NumX, grid.NumY), {}};
    RequireMemory(grid.Size() * sizeof(std::int32_t), "RenderValue");
    rendering.Values.resize(grid.Size());
    return rendering;
}

std::uint8_t ColourPart(double value) {
    return static_cast<std::uint8_t>(std::clamp(RoundHalfEven(value), 0.0, 255.0));
}

/// A rendered value as kept for the read-out; beyond 32 bits the nearest there is.
std::int32_t KeptValue(double value) {
    constexpr double limit = 2147483647;
    return static_cast<std::int32_t>(std::clamp(RoundHalfEven(value), -limit, limit));
}

struct Pixel {
    Colour Drawn;
    std::int32_t Value = 0;
};

Pixel GreyPixel(double g) {
    const std::uint8_t part = ColourPart(g);
    return {{part, part, part}, KeptValue(g)};
}

/// Draws each cell with what `pixelOf(index in the grid)` gives.
template <typename PixelOf>
Rendering Draw(const SurfaceGrid& grid, PixelOf pixelOf) {
    Rendering rendering = EmptyRendering(grid);
    const auto columns = static_cast<std::size_t>(grid.NumX);
    for (int t = 1; t <= grid.NumY; ++t) {
        const std::size_t cells = grid.At(1, grid.NumY - t + 1);
        Colour* const colours = rendering.Picture.Row(t - 1);
        std::int32_t* const values = &rendering.Values[grid.At(1, t)];
        for (std::size_t i = 0; i < columns; ++i) {
            const Pixel pixel = pixelOf(cells + i);
            colours[i] = pixel.Drawn;
            values[i] = pixel.Value;
        }
    }
    return rendering;
}

Pixel ColourPixel(Colour colour) { return {colour, static_cast<std::int32_t>(PackedColour(colour))}; }

Pixel SectorPixel(double z) {
    if (z == kBelowMinSlope) return ColourPixel(kBelowMinColour);
    if (!(z >= 0 && z <= 360)) return {};
    const int sector =
        (z > 22.5) + (z > 67.5) + (z > 112.5) + (z > 157.5) + (z > 202.5) + (z > 247.5) + (z > 292.5) + (z > 337.5);
    return ColourPixel(kSectorColours[static_cast<std::size_t>(sector)]);
}

/// What of the light doesn't depend on the cell.
struct LightAngles {
    double Zenith;
    double Azimuth;
    double CosZenith;
    double SinZenith;
};

double ShadedGrey(double slope, double aspect, const LightAngles& angles, const Light& light) {
    const double s = slope * kPi / 180;
    const double a = aspect == kEmptyCellZ ? 0 : aspect * kPi / 180;
    const double cosI = std::sin(s) * angles.SinZenith * std::cos(a - angles.Azimuth) + angles.CosZenith * std::cos(s);
    const double specular = Power(2 * cosI * std::cos(s) - angles.CosZenith, light.b, "shaded relief");
    const double intensity = specular * (1 - light.w) + cosI * light.w;
    return std::max(0.0, Finite(255 * intensity, "shaded relief"));
}

}  // namespace

ValueRange RangeOf(const SurfaceGrid& grid) {
    ValueRange range;
    for (const double z : grid.Z) {
        if (z == kEmptyCellZ) continue;
        if (z < range.Min) range.Min = z;
        if (z > range.Max) range.Max = z;
    }
    return range;
}

Rendering RenderAspect(const SurfaceGrid& aspect) {
    return Draw(aspect,
                [&](std::size_t at) { return aspect.Z[at] == kEmptyCellZ ? Pixel{} : SectorPixel(aspect.Z[at]); });
}

Rendering RenderBlack(const SurfaceGrid& grid) {
    return Draw(grid, [](std::size_t) { return Pixel{}; });
}

Rendering RenderSlope(const SurfaceGrid& slope, const SlopeColours& colours) {
    return Draw(slope, [&](std::size_t at) -> Pixel {
        const double z = slope.Z[at];
        if (z == kEmptyCellZ) return {};
        const double g = Divide(z, colours.Max, "ProcZMax") * 255;
        const bool steep = !colours.UseMinSlope || SlopeDegrees(z) > colours.MinSlope;
        const Colour colour = steep ? Colour{0, ColourPart(g), 0} : Colour{ColourPart(255 - g), 0, 0};
        return {colour, KeptValue(g)};
    });
}

Rendering RenderShadedRelief(const SurfaceGrid& slope, const SurfaceGrid& aspect, const Light& light) {
    const double zenith = (90 - light.Vert) * kPi / 180;
    const LightAngles angles{zenith, light.Horiz * kPi / 180, std::cos(zenith), std::sin(zenith)};
    return Draw(slope, [&](std::size_t at) -> Pixel {
        if (slope.Z[at] == kEmptyCellZ && aspect.Z[at] == kEmptyCellZ) return {};
        return GreyPixel(ShadedGrey(slope.Z[at], aspect.Z[at], angles, light));
    });
}

Rendering RenderContour(const SurfaceGrid& bands, const ValueRange& range) {
    return Draw(bands, [&](std::size_t at) -> Pixel {
        if (bands.Z[at] == kEmptyCellZ) return {};
        const double p = Divide(bands.Z[at] - range.Min, range.Max - range.Min, "contour bands");
        const double lift = Divide(1, range.Max, "ProcZMax");
        return GreyPixel(Divide(255 * (lift + p), lift + 1, "contour bands"));
    });
}

}  // namespace crownlab
