#include "mapengine/bilinear_height.h"

#include <gmock/gmock.h>

#include <cmath>

#include "sample_grids.h"

namespace crownlab {
namespace {

const double b = std::nan("");

TEST(BilinearHeights, AreBilinear) {
    const auto height = [](double x, double y) { return 3 + 2 * x - y + 0.5 * x * y; };
    const GridGeometry shape{.Columns = 7, .Rows = 4, .XMin = -3, .XMax = 2, .YMin = 10, .YMax = 11};
    const Grid grid = GridOf(shape, height);
    for (int i = 0; i < 30; ++i) {
        const double x = -3 + 0.17 * i;
        for (int j = 0; j < 12; ++j) {
            const double y = 10 + 0.09 * j;
            EXPECT_NEAR(BilinearHeight(grid, x, y), height(x, y), 1e-12);
        }
    }
    EXPECT_EQ(BilinearHeight(grid, 2, 11), grid.At(6, 3));
    EXPECT_EQ(BilinearHeight(grid, -3, 10), grid.At(0, 0));
}

TEST(BilinearHeights, OffTheGridAreBlank) {
    const Grid grid = GridOfRows({{1, 1}, {1, 1}});
    for (const auto& [x, y] : {std::pair(9.999, 101.0), {11.001, 101.0}, {10.5, 99.9}, {10.5, 102.1}, {b, 101.0}}) {
        EXPECT_TRUE(IsBlank(BilinearHeight(grid, x, y))) << x << " " << y;
    }
}

TEST(BilinearHeights, DisregardBlanksOfNoWeight) {
    const Grid grid = GridOfRows({{1, 2, b}, {3, 4, 5}});
    EXPECT_EQ(BilinearHeight(grid, 11, 102), 2);
    EXPECT_EQ(BilinearHeight(grid, 11, 101), 3);
    EXPECT_EQ(BilinearHeight(grid, 11.5, 100), 4.5);
    EXPECT_TRUE(IsBlank(BilinearHeight(grid, 11.5, 100.5)));
    EXPECT_TRUE(IsBlank(BilinearHeight(grid, 12, 102)));
}

}  // namespace
}  // namespace crownlab
