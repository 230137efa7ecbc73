#include "mapengine/relief_shading.h"

#include <algorithm>
#include <cmath>
#include <numbers>

#include "mapengine/progress.h"

namespace crownlab {
namespace {

struct Vector {
    double X = 0, Y = 0, Z = 0;
};

Vector TowardsLight(const ReliefLight& light) {
    const double azimuth = light.AzimuthDegrees * std::numbers::pi / 180;
    const double altitude = light.AltitudeDegrees * std::numbers::pi / 180;
    return {std::cos(altitude) * std::cos(azimuth), std::cos(altitude) * std::sin(azimuth), std::sin(altitude)};
}

/// Slope at the node of height `at` between its neighbours, `spacing` away each.
double Slope(double before, double at, double behind, double spacing) {
    const bool hasBefore = !IsBlank(before), hasBehind = !IsBlank(behind);
    if (hasBefore && hasBehind) return (behind - before) / (2 * spacing);
    if (hasBehind) return (behind - at) / spacing;
    return hasBefore ? (at - before) / spacing : 0;
}

/// Brightness of the surface whose normal is (-slopeX, -slopeY, 1).
std::uint8_t Brightness(double slopeX, double slopeY, const Vector& light, double softness) {
    const double length = std::sqrt(slopeX * slopeX + slopeY * slopeY + 1);
    const double cosine = std::isfinite(length) ? (light.Z - slopeX * light.X - slopeY * light.Y) / length : 0;
    return static_cast<std::uint8_t>(1 + std::lround(254 * std::clamp((cosine + softness) / (1 + softness), 0.0, 1.0)));
}

void ShadeRow(const Grid& grid, int row, const ReliefLight& relief, const Vector& light, std::uint8_t* out) {
    const int columns = grid.Shape.Columns;
    const int rows = grid.Shape.Rows;
    const double spacingX = grid.Shape.SpacingX() / relief.HeightFactor;
    const double spacingY = grid.Shape.SpacingY() / relief.HeightFactor;
    for (int column = 0; column < columns; ++column) {
        const double z = grid.At(column, row);
        if (IsBlank(z)) {
            out[column] = 0;
            continue;
        }
        const double west = column > 0 ? grid.At(column - 1, row) : kBlankHeight;
        const double east = column + 1 < columns ? grid.At(column + 1, row) : kBlankHeight;
        const double south = row > 0 ? grid.At(column, row - 1) : kBlankHeight;
        const double north = row + 1 < rows ? grid.At(column, row + 1) : kBlankHeight;
        out[column] =
            Brightness(Slope(west, z, east, spacingX), Slope(south, z, north, spacingY), light, relief.Softness);
    }
}

}  // namespace

std::vector<std::uint8_t> ShadeRelief(const Grid& grid, const ReliefLight& light) {
    std::vector<std::uint8_t> shades(grid.Z.size());
    const Vector towards = TowardsLight(light);
    Progress progress;
    constexpr int rowsAtOnce = 16;
    ForEachBlock(grid.Shape.Rows, rowsAtOnce, progress, [&](std::int64_t first, std::int64_t last) {
        for (std::int64_t row = first; row < last; ++row) {
            const int at = static_cast<int>(row);
            ShadeRow(grid, at, light, towards, shades.data() + grid.Index(0, at));
        }
    });
    return shades;
}

}  // namespace crownlab
