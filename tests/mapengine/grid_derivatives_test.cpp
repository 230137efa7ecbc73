#include "mapengine/grid_derivatives.h"

#include <gtest/gtest.h>

#include <cmath>
#include <numbers>
#include <optional>

#include "mapengine/test_grids.h"

namespace crownlab {
namespace {

Grid Curvature(const Grid& grid, double degrees) {
    Progress progress;
    return CurvatureGrid(grid, degrees, progress);
}

Grid Slope(const Grid& grid) {
    Progress progress;
    return SlopeGrid(grid, progress);
}

Grid Aspect(const Grid& grid, double leastSlope = 0) {
    Progress progress;
    return AspectGrid(grid, leastSlope, progress);
}

// ---- The literal way: a node at a time, each derivative by the words of its rule.

class LiteralNode {
public:
    LiteralNode(const Grid& grid, int column, int row) : grid_(grid), column_(column), row_(row) {}

    std::optional<double> Z(int dx, int dy) const {
        const int column = column_ + dx;
        const int row = row_ + dy;
        if (column < 0 || row < 0 || column >= grid_.Shape.Columns || row >= grid_.Shape.Rows) return {};
        const double z = grid_.At(column, row);
        return IsBlank(z) ? std::nullopt : std::optional(z);
    }

    std::optional<double> First(int dx, int dy) const { return FirstAt(0, 0, dx, dy); }

    std::optional<double> Second(int dx, int dy) const {
        const double h = Spacing(dx);
        if (!Z(0, 0)) return {};
        const auto before = Z(-dx, -dy);
        const auto after = Z(dx, dy);
        if (before && after) return (*before - 2 * *Z(0, 0) + *after) / (h * h);
        for (const int side : {1, -1}) {
            const auto next = Z(side * dx, side * dy);
            const auto afterNext = Z(2 * side * dx, 2 * side * dy);
            if (next && afterNext) return (*Z(0, 0) - 2 * *next + *afterNext) / (h * h);
        }
        return {};
    }

    std::optional<double> Mixed() const {
        const double h = Spacing(0);
        const auto here = FirstAt(0, 0, 1, 0);
        const auto above = FirstAt(0, 1, 1, 0);
        const auto below = FirstAt(0, -1, 1, 0);
        if (!here) return {};
        if (above && below) return (*above - *below) / (2 * h);
        if (above) return (*above - *here) / h;
        if (below) return (*here - *below) / h;
        return {};
    }

private:
    double Spacing(int dx) const { return dx != 0 ? grid_.Shape.SpacingX() : grid_.Shape.SpacingY(); }

    std::optional<double> FirstAt(int x, int y, int dx, int dy) const {
        const double h = Spacing(dx);
        const auto here = Z(x, y);
        const auto before = Z(x - dx, y - dy);
        const auto after = Z(x + dx, y + dy);
        if (!here) return {};
        if (before && after) return (*after - *before) / (2 * h);
        if (after) return (*after - *here) / h;
        if (before) return (*here - *before) / h;
        return {};
    }

    const Grid& grid_;
    int column_;
    int row_;
};

template <typename Act>
Grid ForEachNode(const Grid& grid, const Act& act) {
    Grid result(grid.Shape);
    for (int row = 0; row < grid.Shape.Rows; ++row) {
        for (int column = 0; column < grid.Shape.Columns; ++column) {
            result.At(column, row) = act(LiteralNode(grid, column, row)).value_or(kBlankHeight);
        }
    }
    return result;
}

Grid LiteralCurvature(const Grid& grid, double degrees) {
    const double c = std::cos(degrees * std::numbers::pi / 180);
    const double s = std::sin(degrees * std::numbers::pi / 180);
    return ForEachNode(grid, [&](const LiteralNode& node) -> std::optional<double> {
        const auto x = node.First(1, 0), y = node.First(0, 1), xx = node.Second(1, 0), yy = node.Second(0, 1);
        const auto xy = node.Mixed();
        if (!x || !y || !xx || !yy || !xy) return {};
        const double first = c * *x + s * *y;
        return std::abs(c * c * *xx + 2 * s * c * *xy + s * s * *yy) / std::pow(1 + first * first, 1.5);
    });
}

Grid LiteralSlope(const Grid& grid) {
    return ForEachNode(grid, [](const LiteralNode& node) -> std::optional<double> {
        const auto x = node.First(1, 0), y = node.First(0, 1);
        if (!x || !y) return {};
        return std::atan(std::hypot(*x, *y)) * 180 / std::numbers::pi;
    });
}

Grid LiteralAspect(const Grid& grid, double leastSlope) {
    return ForEachNode(grid, [&](const LiteralNode& node) -> std::optional<double> {
        const auto x = node.First(1, 0), y = node.First(0, 1);
        if (!x || !y || (*x == 0 && *y == 0)) return {};
        if (std::atan(std::hypot(*x, *y)) < leastSlope) return {};
        const double degrees = std::atan2(-*x, -*y) * 180 / std::numbers::pi;
        return degrees < 0 ? degrees + 360 : degrees;
    });
}

TEST(GridDerivatives, RandomGridsAgreeWithTheLiteralRules) {
    RandomNumbers random;
    SCOPED_TRACE(kRandomSeed);
    for (int round = 0; round < 80; ++round) {
        const GridGeometry shape =
            ShapeOf(2 + static_cast<int>(random.Below(20)), 2 + static_cast<int>(random.Below(60)));
        const Grid grid = RandomGrid(random, shape, round % 4 == 0 ? 0 : 3 + random.Below(30));
        const double degrees = 1 + static_cast<double>(random.Below(88)) + 90.0 * static_cast<double>(random.Below(4));
        EXPECT_TRUE(GridsAgree(Curvature(grid, degrees), LiteralCurvature(grid, degrees), 1e-9)) << degrees;
        EXPECT_TRUE(GridsAgree(Slope(grid), LiteralSlope(grid), 1e-13));
        EXPECT_TRUE(GridsAgree(Aspect(grid), LiteralAspect(grid, 0), 1e-12));
        EXPECT_TRUE(GridsAgree(Aspect(grid, 1.4), LiteralAspect(grid, 1.4), 1e-12));
    }
}

// ---- Closed forms.

TEST(GridDerivatives, PlaneIsNotCurvedAndSlopesEverywhereAlike) {
    // Rises by 3/4 along x and 1 along y: slope atan(5/4), falls towards (-3/4, -1).
    const Grid plane = GridOf(ShapeOf(6, 5), [](double x, double y) { return 0.75 * x + y; });
    for (const double degrees : {0.0, 10.0, 45.0, 90.0, 123.0, 180.0, 270.0, -30.0}) {
        for (const double curvature : Curvature(plane, degrees).Z) EXPECT_NEAR(curvature, 0, 1e-13);
    }
    for (const double slope : Slope(plane).Z) EXPECT_NEAR(slope, std::atan(1.25) * 180 / std::numbers::pi, 1e-12);
    const double aspect = 180 + std::atan(0.75) * 180 / std::numbers::pi;
    for (const double degrees : Aspect(plane).Z) EXPECT_NEAR(degrees, aspect, 1e-11);
}

TEST(GridDerivatives, ParaboloidIsExactInsideAndSecondDerivativesAtTheEdgeToo) {
    // z = 2x² + 3xy + 5y²: second derivatives 4, 3, 10 at every node; first ones exact where neighbours are on both
    // sides.
    const GridGeometry shape = ShapeOf(7, 6);
    const Grid grid = GridOf(shape, [](double x, double y) { return 2 * x * x + 3 * x * y + 5 * y * y; });
    const double c = std::cos(std::numbers::pi / 6);
    const double s = 0.5;
    const Grid curvature = Curvature(grid, 30);
    for (int row = 1; row + 1 < shape.Rows; ++row) {
        for (int column = 1; column + 1 < shape.Columns; ++column) {
            const double x = shape.X(column);
            const double y = shape.Y(row);
            const double first = c * (4 * x + 3 * y) + s * (3 * x + 10 * y);
            const double second = 4 * c * c + 6 * c * s + 10 * s * s;
            EXPECT_NEAR(curvature.At(column, row), second / std::pow(1 + first * first, 1.5), 1e-11);
        }
    }
    // The lower left corner: first differences over the one interval to the right and above.
    const double x = shape.XMin + 0.25;
    const double y = shape.YMin + 0.125;
    const double first = c * (4 * x + 3 * shape.YMin) + s * (3 * shape.XMin + 10 * y);
    EXPECT_NEAR(curvature.At(0, 0), (4 * c * c + 6 * c * s + 10 * s * s) / std::pow(1 + first * first, 1.5), 1e-11);
}

TEST(GridDerivatives, HemisphereIsCurvedByItsRadiusAlongItsMeridians) {
    // Along the x axis the section at angle 0 is a circle of radius 2.
    const Grid grid = GridOf({.Columns = 401, .Rows = 5, .XMin = -1, .XMax = 1, .YMin = -0.01, .YMax = 0.01},
                             [](double x, double y) { return std::sqrt(4 - x * x - y * y); });
    const Grid curvature = Curvature(grid, 0);
    const Grid slope = Slope(grid);
    for (int column = 1; column < 400; ++column) {
        EXPECT_NEAR(curvature.At(column, 2), 0.5, 1e-4);
        EXPECT_NEAR(slope.At(column, 2), std::abs(std::asin(grid.Shape.X(column) / 2)) * 180 / std::numbers::pi, 1e-3);
    }
}

TEST(GridDerivatives, ConeFallsAwayFromItsTip) {
    const GridGeometry shape{.Columns = 21, .Rows = 17, .XMin = 1, .XMax = 3, .YMin = 2, .YMax = 5};
    const Grid grid = GridOf(shape, [](double x, double y) { return 9 - std::sqrt(x * x + y * y); });
    const Grid slope = Slope(grid);
    const Grid aspect = Aspect(grid);
    for (int row = 1; row + 1 < shape.Rows; ++row) {
        for (int column = 1; column + 1 < shape.Columns; ++column) {
            EXPECT_NEAR(slope.At(column, row), 45, 0.1);
            const double outward = std::atan2(shape.X(column), shape.Y(row)) * 180 / std::numbers::pi;
            EXPECT_NEAR(aspect.At(column, row), outward, 0.2);
        }
    }
}

TEST(GridDerivatives, AspectOfTheEightDirections) {
    // What it falls towards: x, y, and the degrees clockwise from +y.
    struct Case {
        double X, Y, Degrees;
    };
    for (const Case& c : {Case{0, 1, 0},
                          {1, 1, 45},
                          {1, 0, 90},
                          {1, -1, 135},
                          {0, -1, 180},
                          {-1, -1, 225},
                          {-1, 0, 270},
                          {-1, 1, 315}}) {
        const Grid grid = GridOf({.Columns = 3, .Rows = 3, .XMin = 0, .XMax = 2, .YMin = 0, .YMax = 2},
                                 [&](double x, double y) { return -c.X * x - c.Y * y; });
        for (const double degrees : Aspect(grid).Z) EXPECT_NEAR(degrees, c.Degrees, 1e-13);
    }
}

TEST(GridDerivatives, AspectStaysBelow360) {
    const Grid grid = GridOf({.Columns = 3, .Rows = 3, .XMin = 0, .XMax = 2, .YMin = 0, .YMax = 2},
                             [](double x, double y) { return 1e-17 * x - y; });
    for (const double degrees : Aspect(grid).Z) EXPECT_EQ(degrees, 0);
}

TEST(GridDerivatives, FlatAndGentleNodesHaveNoAspect) {
    const Grid flat = GridOf(ShapeOf(3, 3), [](double, double) { return 4.0; });
    for (const double degrees : Aspect(flat).Z) EXPECT_EQ(degrees, kBlankHeight);
    const Grid gentle = GridOf(ShapeOf(3, 3), [](double x, double) { return x; });
    for (const double degrees : Aspect(gentle, 0.785).Z) EXPECT_EQ(degrees, 270);
    for (const double degrees : Aspect(gentle, 0.786).Z) EXPECT_EQ(degrees, kBlankHeight);
    for (const double degrees : Slope(flat).Z) EXPECT_EQ(degrees, 0);
}

TEST(GridDerivatives, VerySmallSlopesAreSlopes) {
    const Grid grid = GridOf({.Columns = 3, .Rows = 3, .XMin = 0, .XMax = 2, .YMin = 0, .YMax = 2},
                             [](double x, double) { return 1e-200 * x; });
    for (const double degrees : Aspect(grid).Z) EXPECT_EQ(degrees, 270);
}

TEST(GridDerivatives, TwoNodesInARowHaveNoSecondDerivative) {
    const Grid grid = GridOf(ShapeOf(2, 3), [](double x, double y) { return x + y * y; });
    for (const double curvature : Curvature(grid, 30).Z) EXPECT_EQ(curvature, kBlankHeight);
    for (const double curvature : Curvature(grid, 0).Z) EXPECT_EQ(curvature, kBlankHeight);
    // Along y only what lies along y is needed.
    for (const double curvature : Curvature(grid, 90).Z) EXPECT_LT(curvature, 2.1);
    for (const double slope : Slope(grid).Z) EXPECT_LT(slope, 90);
}

TEST(GridDerivatives, OppositeDirectionsAgreeToTheBit) {
    RandomNumbers random;
    const Grid grid = RandomGrid(random, ShapeOf(9, 12), 15);
    EXPECT_TRUE(SameBits(Curvature(grid, 0).Z, Curvature(grid, 180).Z));
    EXPECT_TRUE(SameBits(Curvature(grid, 90).Z, Curvature(grid, -90).Z));
    EXPECT_TRUE(SameBits(Curvature(grid, 37).Z, Curvature(grid, 397).Z));
}

TEST(GridDerivatives, SameBitsForAnyNumberOfThreads) {
    RandomNumbers random;
    const Grid grid = RandomGrid(random, ShapeOf(131, 207), 400);
    const auto results = [&](const char* threads) {
        const ThreadBound bound(threads);
        std::vector<double> all = Curvature(grid, 33).Z;
        for (const Grid& result : {Slope(grid), Aspect(grid, 0.1)})
            all.insert(all.end(), result.Z.begin(), result.Z.end());
        return all;
    };
    const std::vector<double> one = results("1");
    EXPECT_TRUE(SameBits(one, results("2")));
    EXPECT_TRUE(SameBits(one, results("5")));
}

TEST(GridDerivatives, RowsWithAndWithoutBlanksGiveTheSameNumbers) {
    // The same surface once whole and once with one blank node far to the right.
    const GridGeometry shape = ShapeOf(40, 9);
    const Grid whole = GridOf(shape, [](double x, double y) { return std::sin(x) * std::cos(3 * y); });
    Grid holed = whole;
    holed.At(39, 4) = kBlankHeight;
    const Grid a = Curvature(whole, 20);
    const Grid b = Curvature(holed, 20);
    for (int row = 0; row < shape.Rows; ++row) {
        for (int column = 0; column < 36; ++column) EXPECT_EQ(a.At(column, row), b.At(column, row));
    }
}

}  // namespace
}  // namespace crownlab
