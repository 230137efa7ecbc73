#include "formats/lattice_text.h"

#include <gtest/gtest.h>

#include "support/expect_failure.h"
#include "support/temp_folder.h"

namespace crownlab {
namespace {

Lattice Read(const std::string& content) {
    const TempFolder folder;
    PutFile(folder / "grid.dat", content);
    return ReadLattice(folder / "grid.dat");
}

TEST(ReadLattice, FirstChangeOfYEndsTheFirstRow) {
    const Lattice lattice = Read("0 5 1\r\n.5 5 2\r\n1 5 3\r\n0 6 4\r\n.5 6 1.70141E+38\r\n1 6 6\r\n");
    EXPECT_EQ(lattice.Cols, 3);
    EXPECT_EQ(lattice.Rows, 2);
    EXPECT_EQ(lattice.At(3, 1), (CloudPoint{1, 5, 3}));
    EXPECT_EQ(lattice.At(2, 2), (CloudPoint{0.5, 6, 1.70141e38}));
    EXPECT_EQ(lattice.Index(2, 2), 4u);
}

TEST(ReadLattice, NumberOfRowsIsRounded) {
    // Seven lines of three make two rows, the last line is left over; eight make three, of which one node is missing.
    const std::string seven = "0,0,1\n1,0,2\n2,0,3\n0,1,4\n1,1,5\n2,1,6\n0,2,7\n";
    EXPECT_EQ(Read(seven).Rows, 2);
    EXPECT_TRUE(FailsWith(FailureKind::InputPastEnd, [&] { Read(seven + "1,2,8\n"); }));
}

TEST(ReadLattice, OneRowRunsOffTheEnd) {
    EXPECT_TRUE(FailsWith(FailureKind::InputPastEnd, [] { Read("0 5 1\n1 5 2\n2 5 3\n"); }));
    EXPECT_TRUE(FailsWith(FailureKind::InputPastEnd, [] { Read(""); }));
    EXPECT_TRUE(FailsWith(FailureKind::TypeMismatch, [] { Read("0 5 1\n1 y 2\n"); }));
}

TEST(ReadLattice, RowsHaveSixteenBits) {
    std::string text;
    for (int row = 0; row < 32767; ++row) text += "0 " + std::to_string(row) + " 1\n";
    EXPECT_EQ(Read(text).Rows, 32767);
    EXPECT_TRUE(FailsWith(
        FailureKind::Overflow, [&] { Read(text + "0 40000 1\n"); }, "number of rows"));
}

}  // namespace
}  // namespace crownlab
