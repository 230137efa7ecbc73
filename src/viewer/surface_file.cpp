#include "viewer/surface_file.h"

#include <algorithm>
#include <cmath>

#include "basis/memory_limit.h"
#include "basis/result_file.h"
#include "basis/rounding.h"

namespace crownlab {
namespace {

/// Above this z a record is a blank of the source grid.
constexpr double kBlankLimit = 1e36;
/// Extents start here; see FindSurfaceExtents.
constexpr double kExtentStart = 100000;
/// z between minus this and 0 is the noise of a level edge and doesn't lower the minimum.
constexpr double kLevelNoise = 0.0001;

void FindPlaneExtents(const std::vector<SurfacePoint>& points, SurfaceExtents& extents) {
    for (const SurfacePoint& p : points) {
        if (p.x < extents.XMin) extents.XMin = p.x;
        if (p.x > extents.XMax) extents.XMax = p.x;
        if (p.y < extents.YMin) extents.YMin = p.y;
        if (p.y > extents.YMax) extents.YMax = p.y;
        if (p.z < extents.ZMin && !(p.z > -kLevelNoise && p.z < 0)) extents.ZMin = p.z;
    }
}

void FillBlanks(std::vector<SurfacePoint>& points, SurfaceExtents& extents) {
    for (SurfacePoint& p : points) {
        if (p.z > kBlankLimit) p.z = extents.ZMin;
        if (p.z > extents.ZMax) extents.ZMax = p.z;
    }
}

/// Takes the difference of two consecutive coordinates into account.
void NarrowStep(double difference, double& step) {
    // Rounding at six decimals moves a difference by half of 1e-6 at most: most need no rounding at all.
    constexpr double roundingReach = 1e-6;
    if (difference == 0 || std::fabs(difference) > step + roundingReach) return;
    const double rounded = std::fabs(RoundDecimals(difference, 6));
    if (rounded < step && rounded > 0) step = std::fabs(RoundDecimals(difference, 10));
}

/// Cell number of a coordinate, from 1.
template <CellRule Rule>
double CellNumber(double coordinate, double low, double step) {
    const double steps = (coordinate - low) / step;
    return 1 + (Rule == CellRule::Rounded ? RoundHalfEven(steps) : std::floor(steps));
}

template <CellRule Rule>
void PlacePoints(const std::vector<SurfacePoint>& points, const GridLimits& limits, const SurfaceSteps& steps,
                 std::vector<Place>& places, SurfaceGrid& grid) {
    for (const SurfacePoint& p : points) {
        const double column = CellNumber<Rule>(p.x, limits.XMin, steps.X);
        const double row = CellNumber<Rule>(p.y, limits.YMin, steps.Y);
        if (!(column >= 1 && column <= grid.NumX && row >= 1 && row <= grid.NumY)) {
            throw Failure(FailureKind::SubscriptOutOfRange, "CellGrid");
        }
        const std::size_t at = grid.At(static_cast<int>(column), static_cast<int>(row));
        places[at] = {p.x, p.y};
        grid.Z[at] = p.z;
    }
}

/// Cells that no point reached lie where their column and row put them, without a surface.
void FillUnreached(const GridLimits& limits, const SurfaceSteps& steps, std::vector<Place>& places, SurfaceGrid& grid) {
    for (int j = 1; j <= grid.NumY; ++j) {
        for (int i = 1; i <= grid.NumX; ++i) {
            const std::size_t at = grid.At(i, j);
            if (grid.Z[at] != 0 || places[at].x != 0 || places[at].y != 0) continue;
            places[at] = {(i - 1) * steps.X + limits.XMin, (j - 1) * steps.Y + limits.YMin};
            grid.Z[at] = kEmptyCellZ;
        }
    }
}

template <typename Cell>
std::vector<Cell> ZeroCells(std::uint64_t count) {
    std::vector<Cell> cells;
    cells.reserve(count);
    HintLargePages(cells.data(), count * sizeof(Cell));
    cells.resize(count);
    return cells;
}

int CountOfCells(double low, double high, double step, const char* name) {
    return ToInt16(1 + Divide(high - low, step, name), name);
}

}  // namespace

SurfaceExtents FindSurfaceExtents(std::vector<SurfacePoint>& points, bool originalModelFile, double& zOrigin) {
    if (originalModelFile) {
        for (SurfacePoint& p : points) p.z = -p.z;
    }
    SurfaceExtents extents{.XMin = kExtentStart,
                           .XMax = -kExtentStart,
                           .YMin = kExtentStart,
                           .YMax = -kExtentStart,
                           .ZMin = kExtentStart,
                           .ZMax = -kExtentStart};
    FindPlaneExtents(points, extents);
    FillBlanks(points, extents);
    if (originalModelFile) {
        for (SurfacePoint& p : points) p.z -= extents.ZMin;
        zOrigin = extents.ZMin;
        extents.ZMax -= zOrigin;
        extents.ZMin = 0;
    }
    return extents;
}

SurfaceSteps FindSteps(const std::vector<SurfacePoint>& points) {
    SurfaceSteps steps;
    for (std::size_t i = 1; i < points.size(); ++i) {
        NarrowStep(points[i].x - points[i - 1].x, steps.X);
        NarrowStep(points[i].y - points[i - 1].y, steps.Y);
    }
    return steps;
}

GridLimits LimitsForMode(int mode, const SurfaceExtents& extents, const SurfaceSteps& steps, const GridLimits& old) {
    constexpr double defaultSide = 24;
    if (mode == 1) return {.XMin = 1, .XMax = defaultSide, .YMin = 1, .YMax = defaultSide};
    if (mode != 2) return old;
    return {.XMin = extents.XMin - steps.X,
            .XMax = extents.XMax + steps.X,
            .YMin = extents.YMin - steps.Y,
            .YMax = extents.YMax + steps.Y};
}

GridSize SizeOfGrid(const GridLimits& limits, const SurfaceSteps& steps) {
    return {.NumX = CountOfCells(limits.XMin, limits.XMax, steps.X, "NumX"),
            .NumY = CountOfCells(limits.YMin, limits.YMax, steps.Y, "NumY")};
}

SurfaceGrid BuildCells(const std::vector<SurfacePoint>& points, const GridLimits& limits, const SurfaceSteps& steps,
                       GridSize size, CellRule rule) {
    if (size.NumX < 1 || size.NumY < 1) throw Failure(FailureKind::SubscriptOutOfRange, "CellGrid");
    const std::uint64_t cells = static_cast<std::uint64_t>(size.NumX) * static_cast<std::uint64_t>(size.NumY);
    RequireMemory(cells * kCellBytes, "CellGrid");
    SurfaceGrid grid;
    grid.NumX = size.NumX;
    grid.NumY = size.NumY;
    grid.Z = ZeroCells<double>(cells);
    const auto places = std::make_shared<std::vector<Place>>(ZeroCells<Place>(cells));
    if (rule == CellRule::Rounded) {
        PlacePoints<CellRule::Rounded>(points, limits, steps, *places, grid);
    } else {
        PlacePoints<CellRule::Floored>(points, limits, steps, *places, grid);
    }
    FillUnreached(limits, steps, *places, grid);
    grid.Places = places;
    return grid;
}

void WriteSurfaceFile(FileTable& files, const std::string& path, const SurfaceGrid& grid) {
    ResultFile file(files, path);
    grid.RequireCells("CellGrid");
    for (std::size_t at = 0; at < grid.Size(); ++at)
        file.Record((*grid.Places)[at].x, (*grid.Places)[at].y, grid.Z[at]);
    file.Commit();
}

}  // namespace crownlab
