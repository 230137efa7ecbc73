#include "formats/point_extents.h"

#include <gtest/gtest.h>

#include "support/expect_failure.h"
#include "support/temp_folder.h"

namespace crownlab {
namespace {

class PointExtentsTest : public ::testing::Test {
protected:
    PointExtents Read(const std::string& bytes) const {
        PutFile(folder_ / "scan.txt", bytes);
        return ReadPointExtents(folder_ / "scan.txt");
    }
    TempFolder folder_;
};

TEST_F(PointExtentsTest, BlankHeightsCountInXAndYOnly) {
    const PointExtents extents = Read("1,2,3\r\n-4,5,-6\r\n7 -8 1E37\r\n");
    EXPECT_EQ(extents.Count, 3U);
    EXPECT_EQ(extents.XMin, -4);
    EXPECT_EQ(extents.XMax, 7);
    EXPECT_EQ(extents.YMin, -8);
    EXPECT_EQ(extents.YMax, 5);
    EXPECT_EQ(extents.ZMin, -6);
    EXPECT_EQ(extents.ZMax, 3);
}

TEST_F(PointExtentsTest, WhatLiesBeyondTheStartsKeepsThem) {
    const PointExtents extents = Read("200000,-200000,1\n");
    EXPECT_EQ(extents.XMin, 100'000);
    EXPECT_EQ(extents.XMax, 200'000);
    EXPECT_EQ(extents.YMin, -200'000);
    EXPECT_EQ(extents.YMax, -100'000);
}

TEST_F(PointExtentsTest, NoPointsLeaveTheStarts) { EXPECT_EQ(Read("\n\n").Count, 0U); }

TEST_F(PointExtentsTest, AShortRecordAndAWordFail) {
    EXPECT_TRUE(FailsWith(FailureKind::InputPastEnd, [&] { Read("1,2,3\n4,5\n"); }));
    EXPECT_TRUE(FailsWith(FailureKind::TypeMismatch, [&] { Read("x,y,z\n"); }));
}

}  // namespace
}  // namespace crownlab
