#include "viewer/slots.h"

#include <gtest/gtest.h>

#include "support/expect_failure.h"
#include "viewer/grey_raster.h"
#include "viewer/surface_families.h"

namespace crownlab {
namespace {

std::shared_ptr<const LabelGrid> Labels(std::vector<std::int16_t> labels) {
    const SurfaceGrid like = MakeGrid(static_cast<int>(labels.size()), 1, [](int, int) { return 0.0; });
    return std::make_shared<const LabelGrid>(
        LabelGrid{.NumX = like.NumX, .NumY = 1, .Places = like.Places, .Labels = std::move(labels)});
}

TEST(Slots, LimitsAreThoseOfCellsWithAValue) {
    const Slot slot = SlotOfLevel(Labels({9999, 4, 12, 7, 9999}));
    EXPECT_EQ(slot.NumX, 5);
    EXPECT_EQ(slot.NumY, 1);
    EXPECT_EQ(slot.ZMin, 4);
    EXPECT_EQ(slot.ZMax, 12);
    const Slot above = SlotOfLevel(Labels({9999, 10000, 12000}));
    EXPECT_EQ(above.ZMin, 10000);
    EXPECT_EQ(above.ZMax, 12000);
    const Slot none = SlotOfLevel(Labels({9999, 9999}));
    EXPECT_EQ(none.ZMin, 100000000);
    EXPECT_EQ(none.ZMax, -100000000);
    for (int x = 0; x < 2; ++x) EXPECT_EQ(DrawSlot(none).At(x, 0), Colour{});
}

TEST(Slots, LabelsBecomeHeights) {
    const Slot slot = SlotOfLevel(Labels({9999, 4, 12}));
    const SurfaceGrid grid = GridOf(slot);
    EXPECT_EQ(grid.Z, (std::vector<double>{9999, 4, 12}));
    EXPECT_EQ(grid.Point(2, 1).x, -0.5);
    const Raster raster = DrawSlot(slot);
    EXPECT_EQ(raster.At(0, 0).Red, 0);
    EXPECT_EQ(raster.At(1, 0).Red, 0);
    EXPECT_EQ(raster.At(2, 0).Red, 255);
}

TEST(Slots, ContentIsThatOfTheBoxNamed) {
    ViewerState state;
    EXPECT_TRUE(FailsWith(FailureKind::SubscriptOutOfRange, [&] { ContentOf(state, -1); }));
    EXPECT_TRUE(FailsWith(FailureKind::SubscriptOutOfRange, [&] { ContentOf(state, 0); }));
    EXPECT_TRUE(FailsWith(FailureKind::SubscriptOutOfRange, [&] { ContentOf(state, 3); }));
    state.WorkGrid = MakeGrid(2, 1, [](int i, int) { return 1.0 * i; });
    state.WorkZMin = 1;
    state.WorkZMax = 2;
    state.ProcGrid = MakeGrid(1, 3, [](int, int j) { return 10.0 * j; });
    state.ProcZMin = 10;
    state.ProcZMax = 30;
    state.Slots[3] = SlotOfLevel(Labels({5, 6}));
    EXPECT_EQ(ContentOf(state, -1).ZMax, 2);
    EXPECT_EQ(GridOf(ContentOf(state, -1)).Z, (std::vector<double>{1, 2}));
    EXPECT_EQ(ContentOf(state, 0).NumY, 3);
    EXPECT_EQ(GridOf(ContentOf(state, 0)).Z, (std::vector<double>{10, 20, 30}));
    EXPECT_EQ(GridOf(ContentOf(state, 3)).Z, (std::vector<double>{5, 6}));
}

}  // namespace
}  // namespace crownlab
