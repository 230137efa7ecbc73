#include "surferfns/smoothing.h"

#include <gmock/gmock.h>

#include "support/expect_failure.h"

namespace crownlab {
namespace {

using ::testing::ElementsAre;

TEST(Smoothing, NamesTakeTheTextsThatTheirFilterHeeds) {
    const FilterTexts texts{"5.0", "two", ""};
    EXPECT_EQ(PreDefinedFilter("Moving average (nxn)", texts)->Suffix, "_fa5.0");
    EXPECT_EQ(PreDefinedFilter("Distance weighting (nxn)", texts)->Suffix, "_fd5.0,two");
    EXPECT_EQ(PreDefinedFilter("Inverse distance (nxn)", texts)->Suffix, "_fid5.0,two,");
    EXPECT_EQ(PreDefinedFilter("High pass 3 (3x3)", texts)->Suffix, "_hp3");
    EXPECT_EQ(PreDefinedFilter("High pass 3 (3x3)", texts)->Code, 16);
    EXPECT_EQ(DefinedFilter(texts).Suffix, "_fwa5.0,two");
    EXPECT_EQ(DefinedFilter(texts).Code, 5);
}

TEST(Smoothing, NoEntryIsNoFilter) {
    EXPECT_FALSE(PreDefinedFilter("", {}));
    EXPECT_FALSE(PreDefinedFilter("Moving average", {}));
}

TEST(Smoothing, WeightsAreOnesAroundTheMiddle) {
    const NumberMatrix single = FilterWeights(1, 4.5);
    EXPECT_THAT(single.Values, ElementsAre(4.5));
    const NumberMatrix nine = FilterWeights(3, -2);
    EXPECT_EQ(nine.Rows, 3);
    EXPECT_EQ(nine.Columns, 3);
    EXPECT_THAT(nine.Values, ElementsAre(1, 1, 1, 1, -2, 1, 1, 1, 1));
    EXPECT_EQ(FilterWeights(5, 7).Values.at(2 * 5 + 2), 7);
}

TEST(Smoothing, WeightsNeedANode) {
    EXPECT_TRUE(FailsWith(FailureKind::SubscriptOutOfRange, [] { FilterWeights(-1, 1); }));
    EXPECT_TRUE(FailsWith(FailureKind::OutOfMemory, [] { FilterWeights(9e15, 1); }));
    EXPECT_TRUE(FailsWith(FailureKind::OutOfMemory, [] { FilterWeights(999999, 1); }));
}

}  // namespace
}  // namespace crownlab
