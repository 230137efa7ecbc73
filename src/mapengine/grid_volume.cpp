#include "mapengine/grid_volume.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <string>
#include <vector>

#include "basis/memory_limit.h"
#include "mapengine/cut_triangle.h"
#include "mapengine/engine_call.h"
#include "mapengine/quadrature.h"

namespace crownlab {
namespace {

/// Rows that one thread takes at a time; each block reckons one row of differences twice.
constexpr int kBlockRows = 32;

/// Stands for a missing difference. The blank value itself can't: two heights may lie further apart than that.
constexpr double kNoDifference = std::numeric_limits<double>::infinity();

/// What one row of nodes, or the row of cells above it, adds. Areas in cells, volumes in cells times height.
struct RowSums {
    double Simpson = 0;
    double ThreeEighths = 0;
    double Above = 0;
    double Below = 0;
    double PlanarAbove = 0;
    double PlanarBelow = 0;
    double SurfaceAbove = 0;
    double SurfaceBelow = 0;
    double BlankCells = 0;
};

/// The values at a cell's corners, counter-clockwise from its lowest x and y, and in its middle.
///
///     3-----2
///     | \ / |
///     |  m  |
///     | / \ |
///     0-----1
struct Cell {
    std::array<double, 4> Corner{};
    double Middle = 0;

    Cell(const double* low, const double* high, int column)
        : Corner{low[column], low[column + 1], high[column + 1], high[column]},
          Middle((Corner[0] + Corner[1] + Corner[2] + Corner[3]) / 4) {}
    double Lowest() const { return std::min(std::min(Corner[0], Corner[1]), std::min(Corner[2], Corner[3])); }
    double Highest() const { return std::max(std::max(Corner[0], Corner[1]), std::max(Corner[2], Corner[3])); }
};

/// Reckons the rows of one measurement.
class VolumeRows {
public:
    VolumeRows(const Grid& upper, const LowerSurface& lower)
        : upper_(upper),
          lower_(lower),
          dx_(upper.Shape.SpacingX()),
          dy_(upper.Shape.SpacingY()),
          simpson_(SimpsonWeights(upper.Shape.Columns)),
          threeEighths_(ThreeEighthsWeights(upper.Shape.Columns)) {}

    void Measure(int first, int last, std::vector<RowSums>& rows) const {
        const int most = upper_.Shape.Rows;
        std::vector<double> low(static_cast<std::size_t>(upper_.Shape.Columns));
        std::vector<double> high(low.size());
        FillDifference(first, low);
        for (int row = first; row < last; ++row) {
            RowSums& sums = rows[static_cast<std::size_t>(row)];
            ApplyRules(low, sums);
            if (row + 1 == most) continue;
            FillDifference(row + 1, high);
            for (int column = 0; column + 1 < upper_.Shape.Columns; ++column) {
                AddCell(row, column, Cell(low.data(), high.data(), column), sums);
            }
            low.swap(high);
        }
    }

private:
    /// Upper less lower; kNoDifference where either is blank.
    void FillDifference(int row, std::vector<double>& difference) const {
        const double* const z = upper_.Z.data() + upper_.Index(0, row);
        const double* const base =
            lower_.Heights == nullptr ? nullptr : lower_.Heights->Z.data() + upper_.Index(0, row);
        for (std::size_t i = 0; i < difference.size(); ++i) {
            const bool blank = IsBlank(z[i]) || (base != nullptr && IsBlank(base[i]));
            difference[i] = blank ? kNoDifference : z[i] - (base == nullptr ? lower_.Constant : base[i]);
        }
    }

    void ApplyRules(const std::vector<double>& difference, RowSums& sums) const {
        for (std::size_t i = 0; i < difference.size(); ++i) {
            if (difference[i] == kNoDifference) continue;
            sums.Simpson += simpson_[i] * difference[i];
            sums.ThreeEighths += threeEighths_[i] * difference[i];
        }
    }

    void AddCell(int row, int column, const Cell& difference, RowSums& sums) const {
        const double highest = difference.Highest();
        const double lowest = difference.Lowest();
        if (highest == kNoDifference) {
            sums.BlankCells += 1;
            return;
        }
        const std::array<double, 4> areas = SurfaceAreas(row, column);
        // The volume under four triangles that meet at the mean of the corners is that mean.
        if (lowest > 0) {
            sums.Above += difference.Middle;
            sums.PlanarAbove += 1;
            sums.SurfaceAbove += (areas[0] + areas[1] + areas[2] + areas[3]) / 4;
        } else if (highest < 0) {
            sums.Below -= difference.Middle;
            sums.PlanarBelow += 1;
            sums.SurfaceBelow += (areas[0] + areas[1] + areas[2] + areas[3]) / 4;
        } else {
            AddCutCell(difference, areas, sums);
        }
    }

    static void AddCutCell(const Cell& difference, const std::array<double, 4>& areas, RowSums& sums) {
        for (std::size_t side = 0; side < 4; ++side) {
            const CutTriangle cut =
                CutAtZero(difference.Corner[side], difference.Corner[(side + 1) % 4], difference.Middle);
            sums.Above += cut.Above.Volume / 4;
            sums.Below += cut.Below.Volume / 4;
            sums.PlanarAbove += cut.Above.Area / 4;
            sums.PlanarBelow += cut.Below.Area / 4;
            sums.SurfaceAbove += cut.Above.Area * areas[side] / 4;
            sums.SurfaceBelow += cut.Below.Area * areas[side] / 4;
        }
    }

    /// Surface of each triangle of the upper grid's cell, over its planar area. The triangle stands on the side from
    /// corner i to the next.
    std::array<double, 4> SurfaceAreas(int row, int column) const {
        const Cell z(upper_.Z.data() + upper_.Index(0, row), upper_.Z.data() + upper_.Index(0, row + 1), column);
        const auto& [a, b, c, d] = z.Corner;
        // Along the side, and from its middle to the middle of the cell.
        return {Stretch((b - a) / dx_, (2 * z.Middle - (a + b)) / dy_),
                Stretch((c - b) / dy_, (2 * z.Middle - (b + c)) / dx_),
                Stretch((c - d) / dx_, (2 * z.Middle - (c + d)) / dy_),
                Stretch((d - a) / dy_, (2 * z.Middle - (d + a)) / dx_)};
    }

    static double Stretch(double slopeX, double slopeY) { return std::sqrt(1 + slopeX * slopeX + slopeY * slopeY); }

    const Grid& upper_;
    const LowerSurface& lower_;
    double dx_;
    double dy_;
    std::vector<double> simpson_;
    std::vector<double> threeEighths_;
};

GridVolumes Total(const std::vector<RowSums>& rows, const GridGeometry& shape) {
    const std::vector<double> simpson = SimpsonWeights(shape.Rows);
    const std::vector<double> threeEighths = ThreeEighthsWeights(shape.Rows);
    GridVolumes total;
    for (std::size_t row = 0; row < rows.size(); ++row) {
        total.Simpson += simpson[row] * rows[row].Simpson;
        total.ThreeEighths += threeEighths[row] * rows[row].ThreeEighths;
        total.Above += rows[row].Above;
        total.Below += rows[row].Below;
        total.PlanarAbove += rows[row].PlanarAbove;
        total.PlanarBelow += rows[row].PlanarBelow;
        total.SurfaceAbove += rows[row].SurfaceAbove;
        total.SurfaceBelow += rows[row].SurfaceBelow;
        total.PlanarBlank += rows[row].BlankCells;
    }
    const double cell = shape.SpacingX() * shape.SpacingY();
    for (double* const value : {&total.Simpson, &total.ThreeEighths, &total.Above, &total.Below, &total.PlanarAbove,
                                &total.PlanarBelow, &total.SurfaceAbove, &total.SurfaceBelow, &total.PlanarBlank}) {
        *value *= cell;
        if (!std::isfinite(*value)) FailCall("a volume or an area is too large for a number");
    }
    return total;
}

void RequireSameShape(const Grid& upper, const Grid& lower) {
    if (upper.Shape.SameShape(lower.Shape)) return;
    FailCall("the lower grid has " + std::to_string(lower.Shape.Columns) + " columns and " +
             std::to_string(lower.Shape.Rows) + " rows, the upper one " + std::to_string(upper.Shape.Columns) +
             " and " + std::to_string(upper.Shape.Rows));
}

}  // namespace

GridVolumes MeasureVolume(const Grid& upper, const LowerSurface& lower, Progress& progress) {
    if (lower.Heights != nullptr) RequireSameShape(upper, *lower.Heights);
    RequireMemory(static_cast<std::uint64_t>(upper.Shape.Rows) * sizeof(RowSums), "the volume of a grid");
    std::vector<RowSums> rows(static_cast<std::size_t>(upper.Shape.Rows));
    const VolumeRows measure(upper, lower);
    ForEachBlock(upper.Shape.Rows, kBlockRows, progress, [&](std::int64_t first, std::int64_t last) {
        measure.Measure(static_cast<int>(first), static_cast<int>(last), rows);
    });
    return Total(rows, upper.Shape);
}

}  // namespace crownlab
