#include "viewer/kernel.h"

#include <algorithm>

#include "basis/memory_limit.h"
#include "basis/rounding.h"

namespace crownlab {
namespace {

/// Highest z of the window around a cell.
double WindowMaximum(const SurfaceGrid& work, int column, int row, int k) {
    double highest = -1e10;
    const int left = std::max(1, column - k);
    const int right = std::min(work.NumX, column + k);
    for (int j = std::max(1, row - k); j <= std::min(work.NumY, row + k); ++j) {
        const double* const z = &work.Z[work.At(1, j)];
        for (int i = left; i <= right; ++i) highest = std::max(highest, z[i - 1]);
    }
    return highest;
}

double CuspValue(const SurfaceGrid& work, const CuspOptions& options, int column, int row) {
    const double z = work.z(column, row);
    if (z < options.MinCuspValue) return options.WorkZMin;
    const double highest = WindowMaximum(work, column, row, options.k);
    const bool cusp = highest != 0 && z != 0 && z + options.CuspDifference >= highest;
    return cusp ? options.WorkZMax : options.WorkZMin;
}

double KernelSum(const SurfaceGrid& work, const Kernel& kernel, int column, int row) {
    double sum = 0;
    for (int dj = -kernel.k; dj <= kernel.k; ++dj) {
        for (int di = -kernel.k; di <= kernel.k; ++di) {
            const int i = column + di;
            const int j = row + dj;
            if (i >= 1 && i <= work.NumX && j >= 1 && j <= work.NumY) sum += kernel.At(di, dj) * work.z(i, j);
        }
    }
    return Finite(sum, "ProcGrid");
}

template <typename ValueOf>
SurfaceGrid ForEachCell(const SurfaceGrid& work, ValueOf valueOf) {
    RequireMemory(work.Size() * sizeof(double), "ProcGrid");
    SurfaceGrid result(work, 0);
    for (int j = 1; j <= work.NumY; ++j) {
        for (int i = 1; i <= work.NumX; ++i) result.z(i, j) = valueOf(i, j);
    }
    return result;
}

}  // namespace

Kernel LaplacianKernel() { return {.k = 1, .Weights = {0, 1, 0, 1, -4, 1, 0, 1, 0}}; }

SurfaceGrid ApplyKernel(const SurfaceGrid& work, const Kernel& kernel) {
    return ForEachCell(work, [&](int i, int j) { return KernelSum(work, kernel, i, j); });
}

SurfaceGrid DetectCusps(const SurfaceGrid& work, const CuspOptions& options) {
    return ForEachCell(work, [&](int i, int j) { return CuspValue(work, options, i, j); });
}

}  // namespace crownlab
