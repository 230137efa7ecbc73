#include "mapengine/contour_lines.h"

#include <gmock/gmock.h>

#include <cmath>
#include <map>
#include <numbers>

#include "mapengine/bilinear_height.h"
#include "sample_grids.h"
#include "support/random_numbers.h"

namespace crownlab {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::SizeIs;

const double b = std::nan("");

/// Twice the area that a closed line runs round, counter-clockwise positive.
double TwiceArea(const std::vector<PlanePoint>& ring) {
    double sum = 0;
    for (std::size_t i = 0; i < ring.size(); ++i) {
        const PlanePoint &p = ring[i], &q = ring[(i + 1) % ring.size()];
        sum += p.x * q.y - q.x * p.y;
    }
    return sum;
}

TEST(Contours, OfACellHaveHighGroundOnTheLeft) {
    // 0 --- 0
    // |     |   the line goes from the lower to the left edge
    // 4 --- 0
    const std::vector<ContourLine> lines = TraceContours(GridOfRows({{0, 0}, {4, 0}}), 1);
    ASSERT_THAT(lines, SizeIs(1));
    EXPECT_FALSE(lines[0].Closed);
    EXPECT_EQ(lines[0].Level, 1);
    EXPECT_THAT(lines[0].Points, ElementsAre(PlanePoint{10.75, 100}, PlanePoint{10, 101.5}));
    const std::vector<ContourLine> pit = TraceContours(GridOfRows({{4, 4}, {0, 4}}), 1);
    ASSERT_THAT(pit, SizeIs(1));
    EXPECT_THAT(pit[0].Points, ElementsAre(PlanePoint{10, 100.5}, PlanePoint{10.25, 100}));
}

TEST(Contours, OfASaddleJoinWhatItsBilinearHeightJoins) {
    // 3 --- 0
    // |     |   saddle at 9/6 = 1.5: above it the high corners are apart, below it joined
    // 0 --- 3
    const Grid saddle = GridOfRows({{3, 0}, {0, 3}});
    const std::vector<ContourLine> high = TraceContours(saddle, 2);
    ASSERT_THAT(high, SizeIs(2));
    for (const ContourLine& line : high) {
        const PlanePoint& p = line.Points.front();
        const PlanePoint& q = line.Points.back();
        EXPECT_EQ((p.x + q.x) / 2 < 10.5, (p.y + q.y) / 2 > 101) << "round the upper left or the lower right corner";
    }
    const std::vector<ContourLine> low = TraceContours(saddle, 1);
    ASSERT_THAT(low, SizeIs(2));
    for (const ContourLine& line : low) {
        const PlanePoint& p = line.Points.front();
        const PlanePoint& q = line.Points.back();
        EXPECT_EQ((p.x + q.x) / 2 < 10.5, (p.y + q.y) / 2 < 101) << "round the lower left or the upper right corner";
    }
}

TEST(Contours, OfUnevenSaddlesDontGoByTheMean) {
    // The mean of the corners is 3.25, but the saddle lies at (12 * 1 - 0 * 0) / 13 = 0.92 below the level.
    const Grid uneven = GridOfRows({{0, 1}, {12, 0}});
    const std::vector<ContourLine> lines = TraceContours(uneven, 0.95);
    ASSERT_THAT(lines, SizeIs(2));
    EXPECT_EQ(lines[0].Points.front().y, 100) << "from the lower edge to the left one, round the high corner";
    EXPECT_EQ(lines[0].Points.back().x, 10);
}

TEST(Contours, AreJoinedAcrossCells) {
    const std::vector<ContourLine> lines =
        TraceContours(GridOfRows({{0, 0, 0, 0}, {0, 4, 4, 0}, {0, 4, 4, 0}, {0, 0, 0, 0}}), 2);
    ASSERT_THAT(lines, SizeIs(1));
    EXPECT_TRUE(lines[0].Closed);
    EXPECT_THAT(lines[0].Points, SizeIs(8));
    EXPECT_GT(TwiceArea(lines[0].Points), 0) << "counter-clockwise round a hill";
    const std::vector<ContourLine> pit =
        TraceContours(GridOfRows({{4, 4, 4, 4}, {4, 0, 0, 4}, {4, 0, 0, 4}, {4, 4, 4, 4}}), 2);
    ASSERT_THAT(pit, SizeIs(1));
    EXPECT_LT(TwiceArea(pit[0].Points), 0) << "clockwise round a pit";
}

TEST(Contours, OfAHemisphereAreCircles) {
    const GridGeometry shape{.Columns = 241, .Rows = 161, .XMin = -1.2, .XMax = 1.2, .YMin = 3.8, .YMax = 6.2};
    const Grid dome = GridOf(shape, [](double x, double y) {
        const double square = 1 - x * x - (y - 5) * (y - 5);
        return square < 0 ? kBlankHeight : std::sqrt(square);
    });
    for (const double level : {0.3, 0.6, 0.8, 0.95}) {
        const std::vector<ContourLine> lines = TraceContours(dome, level);
        ASSERT_THAT(lines, SizeIs(1)) << level;
        EXPECT_TRUE(lines[0].Closed);
        const double radius = std::sqrt(1 - level * level);
        for (const PlanePoint& point : lines[0].Points) {
            EXPECT_NEAR(std::hypot(point.x, point.y - 5), radius, 5e-4);
        }
        EXPECT_NEAR(TwiceArea(lines[0].Points) / 2, std::numbers::pi * radius * radius, 3e-3);
    }
}

TEST(Contours, EndAtBlanksAndAtTheEdge) {
    const std::vector<ContourLine> cut = TraceContours(GridOfRows({{0, 0, 0, 0, 0}, {4, 4, b, 4, 4}}), 2);
    ASSERT_THAT(cut, SizeIs(2));
    EXPECT_THAT(cut[0].Points, ElementsAre(PlanePoint{11, 101}, PlanePoint{10, 101}));
    EXPECT_THAT(cut[1].Points, ElementsAre(PlanePoint{14, 101}, PlanePoint{13, 101}));
    EXPECT_FALSE(cut[0].Closed);
    EXPECT_THAT(TraceContours(GridOfRows({{b, b}, {b, 4}}), 2), IsEmpty());
}

TEST(Contours, ThroughNodesHaveNoDoublePoints) {
    const Grid pyramid =
        GridOfRows({{0, 0, 0, 0, 0}, {0, 1, 1, 1, 0}, {0, 1, 2, 1, 0}, {0, 1, 1, 1, 0}, {0, 0, 0, 0, 0}});
    const std::vector<ContourLine> lines = TraceContours(pyramid, 1);
    ASSERT_THAT(lines, SizeIs(1));
    EXPECT_THAT(lines[0].Points, SizeIs(8)) << "each node of the ring once";
    EXPECT_THAT(TraceContours(pyramid, 2), IsEmpty()) << "the peak alone is no line";
    EXPECT_THAT(TraceContours(pyramid, 2.5), IsEmpty());
    EXPECT_THAT(TraceContours(pyramid, 0), IsEmpty()) << "all ground is high";
}

/// Every segment of the lines of a level, as the slow obvious way finds its ends: each edge of each cell alone.
TEST(Contours, CrossEachEdgeThatTheLevelCrosses) {
    RandomNumbers random;
    for (int round = 0; round < 60; ++round) {
        const GridGeometry shape{
            .Columns = 3 + round % 9, .Rows = 2 + round % 7, .XMin = 0, .XMax = 1, .YMin = 5, .YMax = 9};
        const Grid grid = GridOf(shape, [&random, round](double, double) {
            return round % 2 == 1 && random.Below(12) == 0 ? kBlankHeight : static_cast<double>(random.Below(1000));
        });
        constexpr double level = 500.5;
        std::size_t segments = 0;
        for (int row = 0; row + 1 < shape.Rows; ++row) {
            for (int column = 0; column + 1 < shape.Columns; ++column) {
                const std::array<double, 4> z{grid.At(column, row), grid.At(column + 1, row),
                                              grid.At(column + 1, row + 1), grid.At(column, row + 1)};
                if (std::any_of(z.begin(), z.end(), IsBlank)) continue;
                int crossed = 0;
                for (std::size_t i = 0; i < 4; ++i) crossed += (z[i] > level) != (z[(i + 1) % 4] > level);
                segments += static_cast<std::size_t>(crossed) / 2;
            }
        }
        std::size_t found = 0;
        std::map<std::pair<double, double>, int> ends;
        for (const ContourLine& line : TraceContours(grid, level)) {
            found += line.Points.size() - (line.Closed ? 0 : 1);
            for (const PlanePoint& point : line.Points) {
                // Beside a blank the last place of a crossing can take it in.
                if (round % 2 == 0) {
                    EXPECT_NEAR(BilinearHeight(grid, point.x, point.y), level, 1e-6) << kRandomSeed;
                }
            }
            if (line.Closed) continue;
            for (const PlanePoint& point : {line.Points.front(), line.Points.back()}) {
                EXPECT_EQ(++ends[std::pair(point.x, point.y)], 1) << "two open lines that could be joined";
            }
        }
        EXPECT_EQ(found, segments) << kRandomSeed << " round " << round;
    }
}

TEST(Contours, OfSeveralLevelsFollowOneAnother) {
    const Grid slope = GridOfRows({{0, 10}, {0, 10}});
    const std::vector<ContourLine> lines = TraceContours(slope, std::vector<double>{2, 5});
    ASSERT_THAT(lines, SizeIs(2));
    EXPECT_EQ(lines[0].Level, 2);
    EXPECT_EQ(lines[1].Level, 5);
    EXPECT_EQ(lines[1].Points[0].x, 10.5);
}

TEST(ContourLevels, AreRoundAndInside) {
    EXPECT_THAT(ContourLevels({.Low = 0, .High = 1}, 6), ElementsAre(0.2, 0.4, 0.6, 0.8));
    EXPECT_THAT(ContourLevels({.Low = 3, .High = 3}, 6), IsEmpty());
    EXPECT_THAT(ContourLevels({}, 6), IsEmpty());
}

}  // namespace
}  // namespace crownlab
