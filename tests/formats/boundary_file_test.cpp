#include "formats/boundary_file.h"

#include <gtest/gtest.h>

#include "basis/result_file.h"
#include "support/expect_failure.h"
#include "support/temp_folder.h"

namespace crownlab {
namespace {

class BoundaryFile : public ::testing::Test {
protected:
    std::vector<PlanePoint> Read(const std::string& bytes) const {
        PutFile(folder_ / "digit.dat", bytes);
        return ReadDigitisedPoints(folder_ / "digit.dat");
    }

    TempFolder folder_;
    FileTable files_;
};

const std::vector<PlanePoint> kTriangle{{0, 0}, {2.5, -1}, {1e-7, 123456789.125}};

TEST_F(BoundaryFile, PointsAreSeparatedByCommasOrBlanks) {
    const std::vector<PlanePoint> expected{{1, 2}, {-0.5, 4}};
    EXPECT_EQ(Read("1,2\r\n-.5,4\r\n"), expected);
    EXPECT_EQ(Read("1 2\n -.5\t4"), expected);
}

TEST_F(BoundaryFile, AFileWithoutALineHasNoPoint) {
    EXPECT_TRUE(FailsWith(FailureKind::SubscriptOutOfRange, [&] { Read(""); }));
}

TEST_F(BoundaryFile, AnEmptyLineIsAPointTooMany) {
    EXPECT_TRUE(FailsWith(FailureKind::InputPastEnd, [&] { Read("1,2\r\n\r\n"); }));
}

TEST_F(BoundaryFile, AWordIsNoPoint) {
    EXPECT_TRUE(FailsWith(FailureKind::TypeMismatch, [&] { Read("1,x\r\n"); }));
}

TEST_F(BoundaryFile, AsManyPointsAsAreWanted) {
    PutFile(folder_ / "digit.dat", "1,2\n3,4\nwords\n");
    EXPECT_EQ(ReadDigitisedPoints(folder_ / "digit.dat", 2), (std::vector<PlanePoint>{{1, 2}, {3, 4}}));
}

TEST_F(BoundaryFile, ARingEndsWithItsFirstPoint) {
    WriteRingFile(files_, folder_ / "a.bln", kTriangle, {});
    EXPECT_EQ(FileBytes(folder_ / "a.bln"),
              " 4             0 \r\n"
              " 0             0 \r\n"
              " 2.5          -1 \r\n"
              " .0000001      123456789.125 \r\n"
              " 0             0 \r\n");
}

TEST_F(BoundaryFile, AFlagMayBeAText) {
    WriteRingFile(files_, folder_ / "a.bln", std::span(kTriangle.data(), 1),
                  {.Sense = 1, .As = BoundaryFlag::Form::Text});
    EXPECT_EQ(FileBytes(folder_ / "a.bln"), " 2            1\r\n 0             0 \r\n 0             0 \r\n");
}

TEST_F(BoundaryFile, AnOpenLineStaysAsItWasDrawn) {
    ResultFile file(files_, folder_ / "a.bln");
    WriteOpenLine(file, std::span(kTriangle.data(), 2), {});
    file.Commit();
    EXPECT_EQ(FileBytes(folder_ / "a.bln"), " 2             0 \r\n 0             0 \r\n 2.5          -1 \r\n");
}

TEST(InZone, TakesTheNextItemToTheNextFourteenthColumn) {
    EXPECT_EQ(InZone(" 1 "), " 1            ");
    EXPECT_EQ(InZone(" 123456789012 "), " 123456789012 ");
    EXPECT_EQ(InZone(" 1234567890123 ").size(), 28U);
}

}  // namespace
}  // namespace crownlab
