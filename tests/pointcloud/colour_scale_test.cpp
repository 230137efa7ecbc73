#include "pointcloud/colour_scale.h"

#include <gmock/gmock.h>

#include "basis/number_text.h"
#include "support/expect_failure.h"

namespace crownlab {
namespace {

using ::testing::ElementsAre;

std::string Text(const ScaleColour& c) {
    return GeneralText(c.Red) + " " + GeneralText(c.Green) + " " + GeneralText(c.Blue);
}

TEST(ColourScale, OneValueIsOneColourAtTheEndOfTheRainbow) {
    const ColourScale scale = MakeColourScale({0.25});
    ASSERT_EQ(scale.Table.size(), 1u);
    EXPECT_EQ(Text(scale.Table[0]), "1 0 1");
    EXPECT_THAT(scale.Numbers, ElementsAre(1));
}

TEST(ColourScale, AValueOnAStepTakesTheColourAboveIt) {
    // 0.5 is a step that division meets exactly.
    const ColourScale scale = MakeColourScale({0, 0.5, 0.49, 0.99});
    EXPECT_EQ(scale.Table.size(), 10u);
    EXPECT_THAT(scale.Numbers, ElementsAre(1, 6, 5, 10));
}

TEST(ColourScale, StepsThatFloatsMissFollowTheFormula) {
    // 0.3 / 0.1 is just below 3 as 64-bit floats: the scale starts at 0.2, and 0.3 falls just short of its second
    // colour.
    const ColourScale scale = MakeColourScale({0.3, 0.45});
    EXPECT_EQ(scale.Table.size(), 3u);
    EXPECT_THAT(scale.Numbers, ElementsAre(1, 3));
}

TEST(ColourScale, RainbowBandsEndWhereTheNextBegin) {
    EXPECT_EQ(Text(RainbowColour(0.1)), "1 0.5 0");
    EXPECT_EQ(Text(RainbowColour(0.2)), "1 1 0");
    EXPECT_EQ(Text(RainbowColour(0.3)), "0.5 1 0");
    EXPECT_EQ(Text(RainbowColour(0.4)), "0 1 0");
    EXPECT_EQ(Text(RainbowColour(0.5)), "0 1 0.5");
    EXPECT_EQ(Text(RainbowColour(0.6)), "0 1 1");
    EXPECT_EQ(Text(RainbowColour(0.7)), "0 0.5 1");
    EXPECT_NEAR(RainbowColour(0.8).Green, 0, 1e-15);  // 0.8 - 0.6 isn't quite 0.2
    EXPECT_EQ(RainbowColour(0.8).Blue, 1);
    EXPECT_EQ(Text(RainbowColour(0.9)), "0.5 0 1");
    EXPECT_EQ(Text(RainbowColour(1)), "1 0 1");
}

TEST(ColourScale, NegativeValues) {
    const ColourScale scale = MakeColourScale({-0.25, 0.05});
    EXPECT_EQ(scale.Table.size(), 4u);
    EXPECT_THAT(scale.Numbers, ElementsAre(1, 4));
}

TEST(ColourScale, ColourNumbersAreSixteenBit) {
    EXPECT_THAT(MakeColourScale({0, 3276.65}).Numbers, ElementsAre(1, 32767));
    EXPECT_TRUE(FailsWith(
        FailureKind::Overflow,
        [] {
            MakeColourScale({0, 3276.75});
        },
        "PointColour"));
    EXPECT_TRUE(FailsWith(FailureKind::Overflow, [] { MakeColourScale({0, 1e300}); }));
    EXPECT_TRUE(FailsWith(FailureKind::Overflow, [] { MakeColourScale({1e308, -1e308}); }));
}

TEST(ColourScale, ValuesBeyondTheScanKeepItsBounds) {
    // All above 1,000,000: the smallest isn't found and stays there.
    EXPECT_EQ(MakeColourScale({1000000.25}).Table.size(), 3u);
    EXPECT_TRUE(FailsWith(
        FailureKind::OutOfMemory, [] { MakeColourScale({-1e300}); }, "ColourTable"));
}

}  // namespace
}  // namespace crownlab
