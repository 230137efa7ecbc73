#include "convert/surface_triangles.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <array>
#include <set>
#include <string>
#include <vector>

#include "support/random_numbers.h"

namespace crownlab {
namespace {

using Triangle = std::array<int, 3>;

/// Numbers of a drawing's nodes, top row the last one; a dot is blank.
std::vector<std::int16_t> Numbers(const std::vector<std::string>& drawing) {
    std::vector<std::int16_t> numbers;
    std::int16_t next = 0;
    const std::vector<std::string> rows(drawing.rbegin(), drawing.rend());
    for (const std::string& row : rows) {
        for (const char c : row) numbers.push_back(c == '.' ? std::int16_t{-1} : next++);
    }
    return numbers;
}

std::vector<Triangle> Surface(const std::vector<std::string>& drawing) {
    std::vector<Triangle> triangles;
    SurfaceTriangles(static_cast<int>(drawing.front().size()), static_cast<int>(drawing.size()), Numbers(drawing),
                     [&](int a, int b, int c) {
                         triangles.push_back({a, b, c});
                     });
    return triangles;
}

std::vector<Triangle> Cells(int cols, int rows) {
    std::vector<Triangle> triangles;
    CellTriangles(cols, rows, [&](int a, int b, int c) { triangles.push_back({a, b, c}); });
    return triangles;
}

/// Only the stitches: what is written beyond the four rules of a cell, which lie in one cell each.
std::vector<Triangle> Stitches(const std::vector<std::string>& drawing) {
    const int cols = static_cast<int>(drawing.front().size());
    const std::vector<std::int16_t> numbers = Numbers(drawing);
    const auto place = [&](int number) {
        return static_cast<int>(std::find(numbers.begin(), numbers.end(), number) - numbers.begin());
    };
    std::vector<Triangle> wide;
    for (const Triangle& t : Surface(drawing)) {
        std::set<int> columns;
        std::set<int> rows;
        for (const int number : t) {
            columns.insert(place(number) % cols);
            rows.insert(place(number) / cols);
        }
        if (*columns.rbegin() - *columns.begin() > 1 || *rows.rbegin() - *rows.begin() > 1) wide.push_back(t);
    }
    return wide;
}

TEST(CellTriangles, TwoACell) {
    EXPECT_EQ(Cells(3, 2), (std::vector<Triangle>{{0, 1, 3}, {1, 4, 3}, {1, 2, 4}, {2, 5, 4}}));
    EXPECT_EQ(Cells(2, 3), (std::vector<Triangle>{{0, 1, 2}, {1, 3, 2}, {2, 3, 4}, {3, 5, 4}}));
    EXPECT_TRUE(Cells(1, 5).empty());
}

TEST(SurfaceTriangles, WithoutBlanksTheSameCellsInAnotherOrder) {
    EXPECT_EQ(Surface({"xx", "xx"}), (std::vector<Triangle>{{1, 0, 2}, {1, 2, 3}}));
    const std::vector<Triangle> surface = Surface({"xxxx", "xxxx", "xxxx"});
    const std::vector<Triangle> cells = Cells(4, 3);
    ASSERT_EQ(surface.size(), cells.size());
    for (std::size_t k = 0; k < cells.size(); ++k) {
        EXPECT_EQ(std::set<int>(surface[k].begin(), surface[k].end()), std::set<int>(cells[k].begin(), cells[k].end()));
    }
}

TEST(SurfaceTriangles, ACellWithABlankCornerKeepsItsOtherHalf) {
    EXPECT_EQ(Surface({"xx", "x."}), (std::vector<Triangle>{{0, 1, 2}}));  // lower right
    EXPECT_EQ(Surface({".x", "xx"}), (std::vector<Triangle>{{0, 2, 1}}));  // upper left
    EXPECT_EQ(Surface({"xx", ".x"}), (std::vector<Triangle>{{0, 1, 2}}));  // lower left
    EXPECT_EQ(Surface({"x.", "xx"}), (std::vector<Triangle>{{1, 0, 2}}));  // upper right
    EXPECT_TRUE(Surface({"x.", ".x"}).empty());
    EXPECT_TRUE(Surface({"..", "xx"}).empty());
}

TEST(SurfaceTriangles, AHoleOfOneNodeIsStitchedFourTimes) {
    // 5 6 7
    // 3 . 4
    // 0 1 2
    EXPECT_EQ(Stitches({"xxx", "x.x", "xxx"}), (std::vector<Triangle>{{3, 6, 4}, {6, 4, 1}, {4, 1, 3}, {1, 3, 6}}));
}

TEST(SurfaceTriangles, HolesAtTheEdgeStayGaps) {
    EXPECT_TRUE(Stitches({"xxx", ".xx", "xxx"}).empty());
    EXPECT_TRUE(Stitches({"xxx", "xx.", "xxx"}).empty());
    EXPECT_TRUE(Stitches({"x.x", "xxx", "xxx"}).empty());
    EXPECT_TRUE(Stitches({"xxx", "xxx", "x.x"}).empty());
}

TEST(SurfaceTriangles, HolesOfTwoNodesInAColumn) {
    // 7 8 9
    // 5 . 6
    // 3 . 4
    // 0 1 2
    const std::vector<Triangle> stitches = Stitches({"xxx", "x.x", "x.x", "xxx"});
    // Lower node: left 3, right 4, below 1, above blank; corners 0, 2 below, 5, 6 above.
    // F3 (right, below, left), F5 (below, right above, right), F7 (below, left, left above).
    // Upper node: left 5, right 6, above 8, below blank; corners 3, 4 below, 7, 9 above.
    // F1 (left, above, right), F6 (above, right, right below), F8 (above, left below, left).
    EXPECT_EQ(stitches, (std::vector<Triangle>{{4, 1, 3}, {1, 6, 4}, {1, 3, 5}, {5, 8, 6}, {8, 6, 4}, {8, 3, 5}}));
}

TEST(SurfaceTriangles, HolesOfTwoNodesInARow) {
    // 6 7 8 9
    // 4 . . 5
    // 0 1 2 3
    // Left node: left 4, above 7, below 1, right blank: F4 (below, left, above), F9 (above, right above, left), F11
    // (right below, below, left).
    // Right node: right 5, above 8, below 2, left blank: F2 (above, right, below), F10 (left above, above, right), F12
    // (below, left below, right).
    EXPECT_EQ(Stitches({"xxxx", "x..x", "xxxx"}),
              (std::vector<Triangle>{{1, 4, 7}, {7, 8, 4}, {2, 1, 4}, {8, 5, 2}, {7, 8, 5}, {2, 1, 5}}));
}

TEST(SurfaceTriangles, NamesOnlyVerticesThatAreThere) {
    RandomNumbers random;
    for (int round = 0; round < 200; ++round) {
        std::vector<std::string> drawing(7, std::string(9, 'x'));
        for (std::string& row : drawing) {
            for (char& c : row) c = random.Below(3) == 0 ? '.' : 'x';
        }
        const std::vector<std::int16_t> numbers = Numbers(drawing);
        const int most = *std::max_element(numbers.begin(), numbers.end());
        for (const Triangle& t : Surface(drawing)) {
            EXPECT_THAT(t, ::testing::Each(::testing::AllOf(::testing::Ge(0), ::testing::Le(most))));
            EXPECT_EQ(std::set<int>(t.begin(), t.end()).size(), 3u);
        }
    }
}

}  // namespace
}  // namespace crownlab
