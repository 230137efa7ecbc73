#include "viewer/turn_grid.h"

#include <gtest/gtest.h>

#include "grids.h"
#include "support/expect_failure.h"

namespace crownlab {
namespace {

void ExpectSameRecords(const SurfaceGrid& a, const SurfaceGrid& b) {
    ASSERT_EQ(a.NumX, b.NumX);
    ASSERT_EQ(a.NumY, b.NumY);
    for (int row = 1; row <= a.NumY; ++row) {
        for (int column = 1; column <= a.NumX; ++column) EXPECT_EQ(a.Point(column, row), b.Point(column, row));
    }
}

/// Larger than the squares in which cells are moved, and no multiple of them.
SurfaceGrid LargeGrid() {
    SurfaceGrid grid;
    grid.NumX = 70;
    grid.NumY = 37;
    const auto places = std::make_shared<std::vector<Place>>();
    for (int i = 0; i < grid.NumX * grid.NumY; ++i) {
        places->push_back({i + 0.25, i + 0.5});
        grid.Z.push_back(i);
    }
    grid.Places = places;
    return grid;
}

const std::vector<SurfaceGrid>& Families() {
    static const std::vector<SurfaceGrid> families{GridOfRows({{5}}),
                                                   GridOfRows({{1, 2, 3}}),
                                                   GridOfRows({{1}, {2}, {3}}),
                                                   GridOfRows({{1, 2, 3}, {4, 5, 6}}),
                                                   GridOfRows({{1, 2}, {3, kEmptyCellZ}, {5, 6}}),
                                                   LargeGrid()};
    return families;
}

TEST(TurnGrid, RecordsMoveWithTheirPlaces) {
    const SurfaceGrid grid = GridOfRows({{1, 2, 3},  //
                                         {4, 5, 6}});
    EXPECT_EQ(MirroredColumns(grid).Z, GridOfRows({{3, 2, 1}, {6, 5, 4}}).Z);
    EXPECT_EQ(MirroredRows(grid).Z, GridOfRows({{4, 5, 6}, {1, 2, 3}}).Z);
    EXPECT_EQ(MirroredColumns(grid).Point(1, 1), (SurfacePoint{30, 100, 6}));
    EXPECT_EQ(MirroredRows(grid).Point(1, 1), (SurfacePoint{10, 200, 1}));
    const SurfaceGrid turned = Transposed(grid);
    EXPECT_EQ(turned.NumX, 2);
    EXPECT_EQ(turned.NumY, 3);
    EXPECT_EQ(turned.Point(1, 1), (SurfacePoint{10, 100, 4}));
    EXPECT_EQ(turned.Point(2, 3), (SurfacePoint{30, 200, 3}));
}

TEST(TurnGrid, EachCellIsWhereItBelongs) {
    for (const SurfaceGrid& grid : Families()) {
        const SurfaceGrid columns = MirroredColumns(grid);
        const SurfaceGrid rows = MirroredRows(grid);
        const SurfaceGrid turned = Transposed(grid);
        for (int j = 1; j <= grid.NumY; ++j) {
            for (int i = 1; i <= grid.NumX; ++i) {
                EXPECT_EQ(columns.Point(i, j), grid.Point(grid.NumX - i + 1, j));
                EXPECT_EQ(rows.Point(i, j), grid.Point(i, grid.NumY - j + 1));
                EXPECT_EQ(turned.Point(j, i), grid.Point(i, j));
            }
        }
    }
}

TEST(TurnGrid, TwiceRestoresTheGrid) {
    for (const SurfaceGrid& grid : Families()) {
        ExpectSameRecords(MirroredColumns(MirroredColumns(grid)), grid);
        ExpectSameRecords(MirroredRows(MirroredRows(grid)), grid);
        ExpectSameRecords(Transposed(Transposed(grid)), grid);
    }
}

TEST(TurnGrid, FourQuarterTurnsRestoreTheGrid) {
    for (const SurfaceGrid& grid : Families()) {
        SurfaceGrid turned = grid;
        for (int i = 0; i < 4; ++i) turned = MirroredColumns(Transposed(turned));
        ExpectSameRecords(turned, grid);
        // One turn the one way and one the other.
        ExpectSameRecords(MirroredRows(Transposed(MirroredColumns(Transposed(grid)))), grid);
    }
}

TEST(TurnGrid, AnticlockwiseAsItIsSeen) {
    const SurfaceGrid turned = MirroredColumns(Transposed(GridOfRows({{1, 2, 3},  //
                                                                      {4, 5, 6}})));
    EXPECT_EQ(turned.Z, GridOfRows({{3, 6}, {2, 5}, {1, 4}}).Z);
}

TEST(TurnGrid, HalfATurnIsBothMirrors) {
    for (const SurfaceGrid& grid : Families()) {
        const SurfaceGrid half = MirroredRows(Transposed(MirroredRows(Transposed(grid))));
        ExpectSameRecords(half, MirroredRows(MirroredColumns(grid)));
    }
}

TEST(TurnGrid, RefusesAGridWithoutCells) {
    EXPECT_TRUE(FailsWith(FailureKind::SubscriptOutOfRange, [] { MirroredColumns({}); }));
    EXPECT_TRUE(FailsWith(FailureKind::SubscriptOutOfRange, [] { MirroredRows({}); }));
    EXPECT_TRUE(FailsWith(FailureKind::SubscriptOutOfRange, [] { Transposed({}); }));
}

}  // namespace
}  // namespace crownlab
