#include "mapengine/grid_derivatives.h"

#include <algorithm>
#include <cmath>

#include "basis/arc_tangent.h"
#include "basis/dispatch.h"
#include "mapengine/node_differences.h"

namespace crownlab {
namespace {

constexpr int kBlockRows = 32;
constexpr double kDegreesPerRadian = 180.0 / kFullPi;

/// A direction in the plane, of length 1.
struct Direction {
    double X = 1;
    double Y = 0;
};

/// In extended precision: the C library's functions of 64 bits take a way of their own on some processors and may
/// differ in the last place. The four axes come out exactly.
Direction DirectionOf(double degrees) {
    const double turned = std::fmod(degrees, 360.0);
    const double quarters = turned / 90;
    if (quarters == std::floor(quarters)) {
        constexpr Direction axes[] = {{1, 0}, {0, 1}, {-1, 0}, {0, -1}};
        return axes[(static_cast<int>(quarters) + 4) % 4];
    }
    const long double angle = static_cast<long double>(turned) * 3.14159265358979323846264338327950288L / 180.0L;
    return {static_cast<double>(std::cos(angle)), static_cast<double>(std::sin(angle))};
}

double NumberOrBlank(double value) { return IsBlank(value) ? kBlankHeight : value; }

/// First and second derivative along a direction in one number.
CROWNLAB_INLINE double CurvatureOf(double first, double second) {
    const double q = 1 + first * first;
    return std::fabs(second) / (q * std::sqrt(q));
}

/// Derivatives by x and y at a node.
struct Slopes {
    double ByX = kBlankHeight;
    double ByY = kBlankHeight;

    bool AreThere() const { return !IsBlank(ByX) && !IsBlank(ByY); }
};

double SlopeByX(const RowWindow& rows, int row, int column, double dx) {
    const double* const z = rows.Row(row) + column;
    return FirstDifference(z[-1], z[0], z[1], dx);
}

double SlopeByY(const RowWindow& rows, int column, double dy) {
    return FirstDifference(rows.Row(-1)[column], rows.Row(0)[column], rows.Row(1)[column], dy);
}

/// Reckons the curvature of rows in one direction.
class CurvatureRows {
public:
    CurvatureRows(const GridGeometry& shape, double degrees)
        : columns_(shape.Columns), dx_(shape.SpacingX()), dy_(shape.SpacingY()), direction_(DirectionOf(degrees)) {}

    void Row(const RowWindow& rows, double* curvature) const {
        // All nodes alike first; then those again that have something blank around them.
        Inner(rows.Row(-1), rows.Row(0), rows.Row(1), curvature);
        curvature[0] = Node(rows, 0);
        curvature[columns_ - 1] = Node(rows, columns_ - 1);
        if (rows.IsWhole()) return;
        for (int i = 1; i < columns_ - 1; ++i) {
            if (IsBlank(HighestAround(rows, i))) curvature[i] = Node(rows, i);
        }
    }

private:
    static double HighestAround(const RowWindow& rows, int column) {
        double highest = rows.Row(0)[column];
        for (int row = -1; row <= 1; ++row) {
            const double* const z = rows.Row(row) + column;
            highest = std::max(highest, std::max(z[-1], std::max(z[0], z[1])));
        }
        return highest;
    }

    /// All nodes but the first and the last: the same numbers as Node's where no neighbour is blank, many at once.
    CROWNLAB_WIDE void Inner(const double* below, const double* here, const double* above, double* curvature) const {
        const double c = direction_.X;
        const double s = direction_.Y;
        for (int i = 1; i < columns_ - 1; ++i) {
            const double byX = (here[i + 1] - here[i - 1]) / (2 * dx_);
            const double byY = (above[i] - below[i]) / (2 * dy_);
            const double byXX = (here[i - 1] - 2 * here[i] + here[i + 1]) / (dx_ * dx_);
            const double byYY = (below[i] - 2 * here[i] + above[i]) / (dy_ * dy_);
            const double byXAbove = (above[i + 1] - above[i - 1]) / (2 * dx_);
            const double byXBelow = (below[i + 1] - below[i - 1]) / (2 * dx_);
            const double byXY = (byXAbove - byXBelow) / (2 * dy_);
            const double value = CurvatureOf(c * byX + s * byY, c * c * byXX + 2 * c * s * byXY + s * s * byYY);
            curvature[i] = value < kBlankHeight ? value : kBlankHeight;
        }
    }

    double Node(const RowWindow& rows, int column) const {
        const double* const z = rows.Row(0) + column;
        if (IsBlank(z[0])) return kBlankHeight;
        double first = 0;
        double second = 0;
        if (direction_.X != 0) {
            const double byX = SlopeByX(rows, 0, column, dx_);
            const double byXX = SecondDifference({z[-2], z[-1], z[0], z[1], z[2]}, dx_);
            if (IsBlank(byX) || IsBlank(byXX)) return kBlankHeight;
            first += direction_.X * byX;
            second += direction_.X * direction_.X * byXX;
        }
        if (direction_.X != 0 && direction_.Y != 0) {
            const double byXY = Mixed(rows, column);
            if (IsBlank(byXY)) return kBlankHeight;
            second += 2 * direction_.X * direction_.Y * byXY;
        }
        if (direction_.Y != 0) {
            const double byY = SlopeByY(rows, column, dy_);
            const double byYY = SecondDifference(
                {rows.Row(-2)[column], rows.Row(-1)[column], z[0], rows.Row(1)[column], rows.Row(2)[column]}, dy_);
            if (IsBlank(byY) || IsBlank(byYY)) return kBlankHeight;
            first += direction_.Y * byY;
            second += direction_.Y * direction_.Y * byYY;
        }
        return NumberOrBlank(CurvatureOf(first, second));
    }

    double Mixed(const RowWindow& rows, int column) const {
        return FirstDifference(SlopeByX(rows, -1, column, dx_), SlopeByX(rows, 0, column, dx_),
                               SlopeByX(rows, 1, column, dx_), dy_);
    }

    int columns_;
    double dx_;
    double dy_;
    Direction direction_;
};

/// Runs `row(window, result)` for each row of the grid.
template <typename Act>
Grid ForEachRow(const Grid& grid, Progress& progress, const Act& row) {
    Grid result(grid.Shape);
    ForEachBlock(grid.Shape.Rows, kBlockRows, progress, [&](std::int64_t first, std::int64_t last) {
        RowWindow window(grid);
        for (auto j = static_cast<int>(first); j < static_cast<int>(last); ++j) {
            window.MoveTo(j);
            row(window, result.Z.data() + result.Index(0, j));
        }
    });
    return result;
}

/// Runs `node(slopes)` for each node, and takes what it gives.
template <typename Act>
Grid FromSlopes(const Grid& grid, Progress& progress, const Act& node) {
    const double dx = grid.Shape.SpacingX();
    const double dy = grid.Shape.SpacingY();
    return ForEachRow(grid, progress, [&](const RowWindow& rows, double* result) {
        for (int i = 0; i < grid.Shape.Columns; ++i) {
            const Slopes slopes{.ByX = SlopeByX(rows, 0, i, dx), .ByY = SlopeByY(rows, i, dy)};
            result[i] = slopes.AreThere() ? NumberOrBlank(node(slopes)) : kBlankHeight;
        }
    });
}

double Steepest(const Slopes& slopes) { return std::sqrt(slopes.ByX * slopes.ByX + slopes.ByY * slopes.ByY); }

/// Degrees clockwise from +y of the direction (x, y), which isn't zero.
double Azimuth(double x, double y) {
    if (y == 0) return x > 0 ? 90 : 270;
    double degrees = ArcTangent(x / y) * kDegreesPerRadian;
    if (y < 0) degrees += 180;
    if (degrees < 0) degrees += 360;
    return degrees < 360 ? degrees + 0.0 : 0;
}

}  // namespace

Grid CurvatureGrid(const Grid& grid, double degrees, Progress& progress) {
    const CurvatureRows curvature(grid.Shape, degrees);
    return ForEachRow(grid, progress, [&](const RowWindow& rows, double* result) { curvature.Row(rows, result); });
}

Grid SlopeGrid(const Grid& grid, Progress& progress) {
    return FromSlopes(grid, progress,
                      [](const Slopes& slopes) { return ArcTangent(Steepest(slopes)) * kDegreesPerRadian; });
}

Grid AspectGrid(const Grid& grid, double leastSlope, Progress& progress) {
    return FromSlopes(grid, progress, [&](const Slopes& slopes) {
        const bool flat = slopes.ByX == 0 && slopes.ByY == 0;
        if (flat || ArcTangent(Steepest(slopes)) < leastSlope) return kBlankHeight;
        return Azimuth(-slopes.ByX, -slopes.ByY);
    });
}

}  // namespace crownlab
