#include "viewer/grey_raster.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <string>

#include "basis/failure.h"
#include "basis/memory_limit.h"
#include "basis/rounding.h"

namespace crownlab {
namespace {

constexpr Colour kWhite{255, 255, 255};
constexpr Colour kGreen{0, 255, 0};

/// A grey of 255 times `share`.
std::uint8_t GreyOfShare(double share) {
    const double grey = RoundHalfEven(255 * share);
    if (!(grey >= -32768 && grey <= 32767)) throw Failure(FailureKind::Overflow, "grey level");
    return static_cast<std::uint8_t>(std::clamp(grey, 0.0, 255.0));
}

Colour Grey(std::uint8_t level) { return {level, level, level}; }

}  // namespace

Raster BlankRaster(int numX, int numY) {
    if (numX < 1 || numY < 1) throw Failure(FailureKind::SubscriptOutOfRange, "picBoxU");
    const std::uint64_t pixels =
        static_cast<std::uint64_t>(numX + kRasterMargin) * static_cast<std::uint64_t>(numY + kRasterMargin);
    RequireMemory(pixels * sizeof(Colour), "picBoxU");
    return {numX + kRasterMargin, numY + kRasterMargin, kWhite};
}

std::uint8_t GreyOf(double z, double zMin, double zMax) {
    if (zMax - zMin == 0) throw Failure(FailureKind::DivisionByZero, "z range");
    return GreyOfShare((z - zMin) / (zMax - zMin));
}

Raster DrawGrey(const SurfaceGrid& grid, const GreyOptions& options) {
    Raster raster = BlankRaster(grid.NumX, grid.NumY);
    const double range = options.ZMax - options.ZMin;
    const bool flat = range == 0;
    const bool mayFail = flat && options.EmptyRangeFails;
    const double green = options.Threshold.value_or(-HUGE_VAL);
    for (int t = 1; t <= grid.NumY; ++t) {
        const double* const z = &grid.Z[grid.At(1, grid.NumY - t + 1)];
        Colour* const pixels = raster.Row(t - 1);
        for (int i = 0; i < grid.NumX; ++i) {
            const bool empty = z[i] == kEmptyCellZ;
            if (mayFail && !empty) throw Failure(FailureKind::DivisionByZero, "z range of the surface");
            const std::uint8_t grey = empty || flat ? std::uint8_t{0} : GreyOfShare((z[i] - options.ZMin) / range);
            const double view = empty ? options.ZMin : z[i];
            pixels[i] = view <= green ? kGreen : Grey(grey);
        }
    }
    return raster;
}

Raster DrawGrey(const LabelGrid& grid, const GreyOptions& options) {
    Raster raster = BlankRaster(grid.NumX, grid.NumY);
    // Few different numbers stand in many cells, so each one's grey is worked out once.
    std::array<std::uint8_t, 32768> greys{};
    const double range = options.ZMax - options.ZMin;
    if (range > 0) {
        for (int label = static_cast<int>(options.ZMin); label <= static_cast<int>(options.ZMax); ++label) {
            greys[static_cast<std::size_t>(label)] = GreyOfShare((label - options.ZMin) / range);
        }
    }
    greys[kNoLabel] = 0;
    const auto columns = static_cast<std::size_t>(grid.NumX);
    for (int t = 1; t <= grid.NumY; ++t) {
        const std::int16_t* const labels = &grid.Labels[static_cast<std::size_t>(grid.NumY - t) * columns];
        Colour* const pixels = raster.Row(t - 1);
        for (std::size_t i = 0; i < columns; ++i) pixels[i] = Grey(greys[static_cast<std::size_t>(labels[i])]);
    }
    return raster;
}

BoxSize SizeOfBox(int numX, int numY, int longSide) {
    const double r = Divide(numX, numY, "NumY");
    if (r >= 1) return {.Width = longSide, .Height = static_cast<int>(std::floor(longSide / r))};
    return {.Width = static_cast<int>(std::floor(r * longSide)), .Height = longSide};
}

}  // namespace crownlab
