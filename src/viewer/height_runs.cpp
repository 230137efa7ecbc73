#include "viewer/height_runs.h"

#include <cmath>
#include <optional>

#include "basis/memory_limit.h"
#include "basis/rounding.h"

namespace crownlab {
namespace {

constexpr std::size_t kMaxRuns = 1000000;

bool TakesPart(const SurfaceGrid& grid, int column, int row) {
    const bool inside = column > 1 && row > 1 && column < grid.NumX && row < grid.NumY;
    return inside && grid.z(column, row) != kEmptyCellZ;
}

void BeginRun(std::vector<std::int32_t>& lengths) {
    if (lengths.size() == kMaxRuns) throw Failure(FailureKind::SubscriptOutOfRange, "RunLengths");
    lengths.push_back(0);
}

/// Adds the runs of one row to `lengths`.
void FollowRow(const SurfaceGrid& work, int row, double lowLimit, double bandWidth, SurfaceGrid& marked,
               std::vector<std::int32_t>& lengths) {
    std::optional<std::int32_t> lastBand;
    for (int column = 1; column <= work.NumX; ++column) {
        if (!TakesPart(work, column, row)) {
            marked.z(column, row) = kEmptyCellZ;
            continue;
        }
        const double level = std::floor(Divide(work.z(column, row) - lowLimit, bandWidth, "HeightBand"));
        const std::int32_t band = ToInt32(1 + level, "HeightBand");
        if (band != lastBand) BeginRun(lengths);
        ++lengths.back();
        lastBand = band;
    }
}

}  // namespace

double HeightRunIndex(const SurfaceGrid& work, double zMin, double bandWidth, SurfaceGrid& marked) {
    work.RequireCells("WorkGrid");
    RequireMemory(work.Size() * sizeof(double), "ProcGrid");
    marked = SurfaceGrid(work, 0);
    const double lowLimit = bandWidth * std::floor(Divide(zMin, bandWidth, "band width"));

    std::vector<std::int32_t> lengths;
    for (int row = 1; row <= work.NumY; ++row) FollowRow(work, row, lowLimit, bandWidth, marked, lengths);

    double total = 0;
    for (const std::int32_t length : lengths) total += length;
    double sum = 0;
    for (const std::int32_t length : lengths) {
        const double share = length / total;
        sum += share * share;
    }
    return Divide(1, sum, "sum of runs");
}

}  // namespace crownlab
