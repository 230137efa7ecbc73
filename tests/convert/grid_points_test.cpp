#include "convert/grid_points.h"

#include <gtest/gtest.h>

#include "basis/result_file.h"
#include "support/expect_failure.h"
#include "support/temp_folder.h"

namespace crownlab {
namespace {

TEST(OneToThreeDecimals, AsManyAsItTakes) {
    EXPECT_EQ(OneToThreeDecimals(0), "0.0");
    EXPECT_EQ(OneToThreeDecimals(-0.0), "0.0");
    EXPECT_EQ(OneToThreeDecimals(7), "7.0");
    EXPECT_EQ(OneToThreeDecimals(0.5), "0.5");
    EXPECT_EQ(OneToThreeDecimals(1.25), "1.25");
    EXPECT_EQ(OneToThreeDecimals(-3.125), "-3.125");
    EXPECT_EQ(OneToThreeDecimals(0.001), "0.001");
    EXPECT_EQ(OneToThreeDecimals(-0.0004), "0.0");
    EXPECT_EQ(OneToThreeDecimals(99.9996), "100.0");
    EXPECT_EQ(OneToThreeDecimals(123456789.5), "123456789.5");
}

TEST(OneToThreeDecimals, HalvesGoToTheEvenDigit) {
    EXPECT_EQ(OneToThreeDecimals(0.0625), "0.062");
    EXPECT_EQ(OneToThreeDecimals(0.1875), "0.188");
    EXPECT_EQ(OneToThreeDecimals(-2.0625), "-2.062");
}

TEST(OneToThreeDecimals, ThousandthsAreExactAsFarAsNumbersHoldThem) {
    EXPECT_EQ(OneToThreeDecimals(999999999999.125), "999999999999.125");
    EXPECT_EQ(OneToThreeDecimals(1000000000000.5), "1000000000000.5");
    EXPECT_EQ(OneToThreeDecimals(-999999999999.5), "-999999999999.5");
    EXPECT_EQ(OneToThreeDecimals(12.05), "12.05");
    EXPECT_EQ(OneToThreeDecimals(12.005), "12.005");
}

TEST(OneToThreeDecimals, LargeNumbersHaveNoExponent) {
    EXPECT_EQ(OneToThreeDecimals(1e15), "1000000000000000.0");
    EXPECT_EQ(OneToThreeDecimals(-3e20), "-300000000000000000000.0");
    EXPECT_EQ(OneToThreeDecimals(-1e308), "-1" + std::string(308, '0') + ".0");
    EXPECT_TRUE(FailsWith(FailureKind::Overflow, [] { OneToThreeDecimals(1e308 * 10); }));
}

std::string Shifted(const std::string& content) {
    const TempFolder folder;
    FileTable files;
    PutFile(folder / "temp.dat", content);
    WriteShiftedPoints(files, folder / "temp.dat", folder / "a.xyz");
    return FileBytes(folder / "a.xyz");
}

TEST(WriteShiftedPoints, BeginAtNoughtAndLeaveBlanksOut) {
    EXPECT_EQ(Shifted("2.5 -1 7\r\n3 -1 6.5\r\n2.5 0.25 1.70141E+38\r\n3 0.25 8\r\n"),
              "0.0 0.0 0.5\r\n0.5 0.0 0.0\r\n0.5 1.25 1.5\r\n");
}

TEST(WriteShiftedPoints, BlanksCountForThePlace) {
    EXPECT_EQ(Shifted("0 0 1E+37\r\n1 0 9E+36\r\n0 1 2\r\n"),
              "1.0 0.0 9" + std::string(36, '0') + ".0\r\n0.0 1.0 0.0\r\n");
}

TEST(WriteShiftedPoints, FarPointsAreShiftedByAMillion) {
    EXPECT_EQ(Shifted("2000000 3000000 1000001\r\n"), "1000000.0 2000000.0 1.0\r\n");
}

TEST(WriteShiftedPoints, ShortAndWrongRecordsFail) {
    EXPECT_EQ(Shifted(""), "");
    EXPECT_TRUE(FailsWith(FailureKind::InputPastEnd, [] { Shifted("1 2 3\r\n4 5\r\n"); }));
    EXPECT_TRUE(FailsWith(FailureKind::TypeMismatch, [] { Shifted("1 2 three\r\n"); }));
}

}  // namespace
}  // namespace crownlab
