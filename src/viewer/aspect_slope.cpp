#include "viewer/aspect_slope.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "basis/arc_tangent.h"
#include "basis/dispatch.h"

namespace crownlab {
namespace {

/// Factor to degrees of the orientation; its constant is shorter than that of slopes on purpose.
constexpr double kOrientationDegrees = 180 / 3.14159265358979;
constexpr double kSlopeDegrees = 180 / kFullPi;

/// Direction of steepest descent in degrees clockwise from +y.
CROWNLAB_INLINE double Orientation(double dzdx, double dzdy) {
    const double a = ArcTangent(dzdx / dzdy) * kOrientationDegrees;
    const double turned = dzdy > 0 ? a + 180 : (dzdx > 0 ? a + 360 : a);
    const double alongX = dzdx < 0 ? 90 : 270;
    const double alongY = dzdy > 0 ? 180 : (dzdy < 0 ? 0 : kEmptyCellZ);
    const double mixed = dzdy == 0 ? alongX : turned;
    return dzdx == 0 ? alongY : mixed;
}

/// The three rows around one row of cells, and where the results go; all at the row's first column.
struct RowPointers {
    const double* __restrict Below;
    const double* __restrict Here;
    const double* __restrict Above;
    double* __restrict Slope;
    double* __restrict Aspect;
};

/// Inner cells from index `first` up to `last` of a row. Branch-free, so that it is done several cells at a
/// time. Returns false if a slope isn't finite.
template <bool UseMinSlope>
CROWNLAB_INLINE bool InnerCells(const RowPointers& r, const AspectSlopeOptions& options, int first, int last) {
    constexpr double largest = std::numeric_limits<double>::max();
    const double step = options.StepX;
    long long overflows = 0;
    for (int i = first; i < last; ++i) {
        const double sw = r.Below[i - 1], s = r.Below[i], se = r.Below[i + 1];
        const double w = r.Here[i - 1], e = r.Here[i + 1];
        const double nw = r.Above[i - 1], n = r.Above[i], ne = r.Above[i + 1];
        const bool empty = (sw == kEmptyCellZ) | (s == kEmptyCellZ) | (se == kEmptyCellZ) | (w == kEmptyCellZ) |
                           (e == kEmptyCellZ) | (nw == kEmptyCellZ) | (n == kEmptyCellZ) | (ne == kEmptyCellZ);
        const double dzdx = (se + 2 * e + ne - sw - 2 * w - nw) / 8;
        const double dzdy = (nw + 2 * n + ne - sw - 2 * s - se) / 8;
        const double slope = std::sqrt(dzdy * dzdy + dzdx * dzdx) / step;
        double aspect = Orientation(dzdx, dzdy);
        if constexpr (UseMinSlope)
            aspect = options.MinSlope > ArcTangent(slope) * kSlopeDegrees ? kBelowMinSlope : aspect;
        overflows += static_cast<long long>(!empty & !(slope <= largest));
        r.Slope[i] = empty ? kEmptyCellZ : slope;
        r.Aspect[i] = empty ? kEmptyCellZ : aspect;
    }
    return overflows == 0;
}

CROWNLAB_WIDE bool InnerCellsPlain(const RowPointers& r, const AspectSlopeOptions& options, int first, int last) {
    return InnerCells<false>(r, options, first, last);
}

CROWNLAB_WIDE bool InnerCellsWithMinSlope(const RowPointers& r, const AspectSlopeOptions& options, int first,
                                          int last) {
    return InnerCells<true>(r, options, first, last);
}

}  // namespace

void AspectSlopeCells(const SurfaceGrid& work, const AspectSlopeOptions& options, int row, int firstColumn,
                      int lastColumn, SurfaceGrid& slope, SurfaceGrid& aspect) {
    if (options.StepX == 0) throw Failure(FailureKind::DivisionByZero, "StepX");
    const std::size_t start = work.At(1, row);
    const bool edgeRow = row == 1 || row == work.NumY;
    for (int column = firstColumn; column <= lastColumn; ++column) {
        // Whole edge rows; of the others the two end columns only.
        if (!edgeRow && column > 1 && column < work.NumX) column = std::min(lastColumn + 1, work.NumX);
        if (column > lastColumn) break;
        slope.Z[work.At(column, row)] = kEmptyCellZ;
        aspect.Z[work.At(column, row)] = kEmptyCellZ;
    }
    if (edgeRow) return;
    const double* const here = &work.Z[start];
    const RowPointers pointers{here - work.NumX, here, here + work.NumX, &slope.Z[start], &aspect.Z[start]};
    const int first = std::max(firstColumn, 2) - 1;
    const int last = std::min(lastColumn, work.NumX - 1);
    const bool finite = options.UseMinSlope ? InnerCellsWithMinSlope(pointers, options, first, last)
                                            : InnerCellsPlain(pointers, options, first, last);
    if (!finite) throw Failure(FailureKind::Overflow, "SlopeGrid");
}

void AspectSlope(const SurfaceGrid& work, const AspectSlopeOptions& options, SurfaceGrid& slope, SurfaceGrid& aspect) {
    for (int row = 1; row <= work.NumY; ++row) AspectSlopeCells(work, options, row, 1, work.NumX, slope, aspect);
}

double SlopeDegrees(double rise) { return ArcTangent(rise) * kSlopeDegrees; }

}  // namespace crownlab
