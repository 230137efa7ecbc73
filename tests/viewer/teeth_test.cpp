#include "viewer/teeth.h"

#include <gtest/gtest.h>

#include "grids.h"
#include "support/expect_failure.h"

namespace crownlab {
namespace {

std::vector<Tooth> TeethOfHeights(std::initializer_list<double> heights) {
    std::vector<Tooth> teeth;
    for (const double height : heights)
        teeth.push_back({.Grid = {}, .Params = {}, .NumX = 0, .NumY = 0, .ZMin = 0, .ZMax = height});
    return teeth;
}

TEST(ToothAt, RoundsAndTestsTheNumber) {
    std::vector<Tooth> teeth = TeethOfHeights({1, 2, 3});
    EXPECT_EQ(ToothAt(teeth, 1).ZMax, 1);
    EXPECT_EQ(ToothAt(teeth, 2.5).ZMax, 2);
    EXPECT_EQ(ToothAt(teeth, 3.4).ZMax, 3);
    for (const double outside : {0.0, 0.5, -1.0, 3.6, 4.0, 32767.0}) {
        EXPECT_TRUE(FailsWith(FailureKind::SubscriptOutOfRange, [&] { ToothAt(teeth, outside); })) << outside;
    }
    EXPECT_TRUE(FailsWith(FailureKind::Overflow, [&] { ToothAt(teeth, 32768); }));
    std::vector<Tooth> none;
    EXPECT_TRUE(FailsWith(FailureKind::SubscriptOutOfRange, [&] { ToothAt(none, 1); }));
}

TEST(IsEmptyTooth, GoesByTheFirstCell) {
    Tooth tooth;
    EXPECT_TRUE(IsEmptyTooth(tooth));
    tooth.Grid = GridOfRows({{1, 2}});
    EXPECT_FALSE(IsEmptyTooth(tooth));
    tooth.Grid.Places = std::make_shared<std::vector<Place>>(std::vector<Place>{{0, 5}, {1, 5}});
    EXPECT_TRUE(IsEmptyTooth(tooth));
}

TEST(RequireToothSize, AllowsTwentyFourBothWays) {
    SurfaceGrid grid;
    grid.NumX = grid.NumY = 24;
    EXPECT_NO_THROW(RequireToothSize(grid));
    grid.NumX = 25;
    EXPECT_TRUE(FailsWith(FailureKind::SubscriptOutOfRange, [&] { RequireToothSize(grid); }));
    grid.NumX = 1;
    grid.NumY = 25;
    EXPECT_TRUE(FailsWith(FailureKind::SubscriptOutOfRange, [&] { RequireToothSize(grid); }));
}

TEST(ReorderTeeth, TakesListsAlong) {
    std::vector<Tooth> teeth = TeethOfHeights({30, 10, 20, 99});
    ToothTable table{.MaxHt = {30, 10, 20}, .SA = {3, 1, 2}, .Vol = {}, .SAVolRat = {7, 8}};
    ReorderTeeth({2, 3, 1}, teeth, table);
    EXPECT_EQ(teeth[0].ZMax, 10);
    EXPECT_EQ(teeth[1].ZMax, 20);
    EXPECT_EQ(teeth[2].ZMax, 30);
    EXPECT_EQ(teeth[3].ZMax, 99) << "a place without a tooth stays";
    EXPECT_EQ(table.MaxHt, (std::vector<double>{10, 20, 30}));
    EXPECT_EQ(table.SA, (std::vector<double>{1, 2, 3}));
    EXPECT_TRUE(table.Vol.empty());
    EXPECT_EQ(table.SAVolRat, (std::vector<double>{7, 8})) << "a list of fewer teeth isn't theirs";
}

}  // namespace
}  // namespace crownlab
