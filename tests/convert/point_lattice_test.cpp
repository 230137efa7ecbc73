#include "convert/point_lattice.h"

#include <gtest/gtest.h>

#include "support/expect_failure.h"
#include "support/temp_folder.h"

namespace crownlab {
namespace {

class PointLattices : public ::testing::Test {
protected:
    LatticeReading Read(const std::string& content) {
        PutFile(Folder / "a.csv", content);
        return ReadPointLattice(Folder / "a.csv");
    }
    FileOrderHeights Heights(const std::string& content) {
        PutFile(Folder / "a.txt", content);
        return ReadHeightsInFileOrder(Folder / "a.txt");
    }
    TempFolder Folder;
};

// Heights 1 2 3 in the lower row, 4 5 6 in the upper one; x 0, .5, 1, y 0, 2.
void ExpectTheSix(const LatticeReading& reading) {
    EXPECT_EQ(reading.Message, "");
    const PointLattice& lattice = reading.Lattice;
    EXPECT_EQ(lattice.Cols, 3);
    EXPECT_EQ(lattice.Rows, 2);
    EXPECT_EQ(lattice.XSpacing, 0.5);
    EXPECT_EQ(lattice.YSpacing, 2);
    EXPECT_EQ(lattice.ZMin, 1);
    EXPECT_EQ(lattice.ZMax, 6);
    EXPECT_EQ(lattice.Z, (std::vector<double>{1, 2, 3, 4, 5, 6}));
    EXPECT_EQ(lattice.At(3, 1), 3);
    EXPECT_EQ(lattice.At(1, 2), 4);
}

TEST_F(PointLattices, RiseWhateverOrderTheirPointsHave) {
    ExpectTheSix(Read("0,0,1\n.5,0,2\n1,0,3\n0,2,4\n.5,2,5\n1,2,6\n"));
    ExpectTheSix(Read("1,0,3\n.5,0,2\n0,0,1\n1,2,6\n.5,2,5\n0,2,4\n"));
    ExpectTheSix(Read("0,2,4\n.5,2,5\n1,2,6\n0,0,1\n.5,0,2\n1,0,3\n"));
    ExpectTheSix(Read("1,2,6\n.5,2,5\n0,2,4\n1,0,3\n.5,0,2\n0,0,1\n"));
    ExpectTheSix(Read("0,0,1\n0,2,4\n.5,0,2\n.5,2,5\n1,0,3\n1,2,6\n"));
    ExpectTheSix(Read("0,2,4\n0,0,1\n.5,2,5\n.5,0,2\n1,2,6\n1,0,3\n"));
    ExpectTheSix(Read("1,0,3\n1,2,6\n.5,0,2\n.5,2,5\n0,0,1\n0,2,4\n"));
    ExpectTheSix(Read("1 2 6\r\n1 0 3\r\n.5\t2\t5\r\n.5 0 2\r\n0 2 4\r\n0 0 1"));
}

TEST_F(PointLattices, BlanksLieAtTheLowestHeight) {
    const PointLattice lattice = Read("0,0,1e38\n1,0,9.9e37\n0,1,-7\n1,1,1.70141E+38\n").Lattice;
    EXPECT_EQ(lattice.Z, (std::vector<double>{-7, 9.9e37, -7, -7}));
    EXPECT_EQ(lattice.ZMax, 9.9e37);
    // The limits' own starts show through where all is beyond them.
    EXPECT_EQ(Read("0,0,2e5\n1,0,2e5\n0,1,2e5\n1,1,2e38\n").Lattice.Z.back(), 100'000);
    EXPECT_EQ(Read("0,0,-2e5\n1,0,-2e5\n0,1,-2e5\n1,1,-2e5\n").Lattice.ZMax, -100'000);
}

TEST_F(PointLattices, IncompleteRowsAreTold) {
    EXPECT_EQ(Read("0,0,1\n1,0,2\n2,0,3\n0,1,4\n1,1,5\n").Message,
              "Incorrect number of lines - error in parsing xlines");
    EXPECT_EQ(Read("0,0,1\n0,1,2\n0,2,3\n1,0,4\n1,1,5\n").Message,
              "Incorrect number of lines - error in parsing ylines");
}

TEST_F(PointLattices, EqualFirstPointsLeaveNoStep) {
    const PointLattice lattice = Read("0,0,1\n0,0,2\n1,0,3\n1,0,4\n").Lattice;
    EXPECT_EQ(lattice.YSpacing, 0);
    EXPECT_EQ(lattice.XSpacing, 1);
    EXPECT_EQ(lattice.Z, (std::vector<double>{1, 3, 2, 4}));
}

TEST_F(PointLattices, ReadingGoesOnBehindTheFirstTwo) {
    // Along a diagonal both coordinates differ from the first; the third point is the first one looked at.
    EXPECT_EQ(Read("0,0,1\n1,1,2\n2,2,3\n3,3,4\n").Lattice.Cols, 2);
}

TEST_F(PointLattices, OneLineRunsOffTheEnd) {
    for (const char* const text :
         {"", "0,0,1\n", "0,0,1\n1,0,2\n", "0,0,1\n0,1,2\n0,2,3\n", "0,0,1\n1,0,2\n\n0,1,3\n1,1,4\n"}) {
        EXPECT_TRUE(FailsWith(FailureKind::InputPastEnd, [&] { Read(text); })) << text;
    }
    EXPECT_TRUE(FailsWith(FailureKind::TypeMismatch, [&] { Read("0,0,1\n1,zero,2\n"); }));
    for (const char* const text : {"", "0,0,1\n", "0,0,1\n1,0,2\n"}) {
        EXPECT_TRUE(FailsWith(FailureKind::InputPastEnd, [&] { Heights(text); })) << text;
    }
}

TEST_F(PointLattices, HeightsInFileOrderStayThere) {
    const FileOrderHeights heights = Heights("5,9,1\n3,9,1.70141E+38\n5,8.5,-2\n3,8.5,4\n");
    EXPECT_EQ(heights.Cols, 2);
    EXPECT_EQ(heights.Rows, 2);
    EXPECT_EQ(heights.XSpacing, 2);
    EXPECT_EQ(heights.YSpacing, 0.5);
    EXPECT_EQ(heights.Z, (std::vector<double>{1, -2, -2, 4}));
}

TEST_F(PointLattices, RowsOfHeightsAreRounded) {
    EXPECT_EQ(Heights("0,0,1\n1,0,2\n2,0,3\n0,1,4\n").Rows, 1);
    EXPECT_TRUE(FailsWith(FailureKind::SubscriptOutOfRange, [&] { Heights("0,0,1\n1,0,2\n2,0,3\n0,1,4\n1,1,5\n"); }));
}

}  // namespace
}  // namespace crownlab
