#include "formats/unblanked_points.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "basis/result_file.h"
#include "support/expect_failure.h"
#include "support/temp_folder.h"

namespace crownlab {
namespace {

class UnblankedPoints : public ::testing::Test {
protected:
    TempFolder folder_;
    FileTable files_;
};

TEST_F(UnblankedPoints, AreRecordsInShortestForm) {
    PutFile(folder_ / "in.dat", "0.5 -0.25 0.125\n1,2,1.70141E+38\r\n-0 3 -1.5\n4\t5 9.9E+36\n6 7 1E+37\n");
    WriteUnblankedPoints(files_, folder_ / "in.dat", folder_ / "out.dat");
    EXPECT_EQ(FileBytes(folder_ / "out.dat"), ".5,-.25,.125\r\n0,3,-1.5\r\n4,5,9.9E+36\r\n");
}

TEST_F(UnblankedPoints, OfNothingAreNothing) {
    PutFile(folder_ / "empty.dat", "");
    PutFile(folder_ / "blank.dat", "1 2 1.70141E+38\n");
    WriteUnblankedPoints(files_, folder_ / "empty.dat", folder_ / "out.dat");
    EXPECT_EQ(FileBytes(folder_ / "out.dat"), "");
    WriteUnblankedPoints(files_, folder_ / "blank.dat", folder_ / "out.dat");
    EXPECT_EQ(FileBytes(folder_ / "out.dat"), "");
    EXPECT_TRUE(std::filesystem::exists(folder_ / "out.dat"));
}

TEST_F(UnblankedPoints, AShortRecordLeavesTheOldFile) {
    PutFile(folder_ / "short.dat", "1 2 3\n4 5\n");
    PutFile(folder_ / "out.dat", "old");
    EXPECT_TRUE(FailsWith(FailureKind::InputPastEnd,
                          [&] { WriteUnblankedPoints(files_, folder_ / "short.dat", folder_ / "out.dat"); }));
    EXPECT_EQ(FileBytes(folder_ / "out.dat"), "old");
    EXPECT_EQ(folder_.EntryCount(), 2u);
}

TEST_F(UnblankedPoints, RemovingBlanksUsesUpItsCopy) {
    PutFile(folder_ / "tooth.dat", "1 2 3\n4 5 1.70141E+38\n");
    PutFile(folder_ / "temp.dat", "old");
    RemoveBlankPoints(files_, folder_ / "tooth.dat", folder_ / "temp.dat");
    EXPECT_EQ(FileBytes(folder_ / "tooth.dat"), "1,2,3\r\n");
    EXPECT_EQ(folder_.EntryCount(), 1u);
}

TEST_F(UnblankedPoints, AFileThatIsItsOwnCopyStays) {
    PutFile(folder_ / "temp.dat", "1 2 3\n4 5 1.70141E+38\n");
    RemoveBlankPoints(files_, folder_ / "temp.dat", folder_.Path() + "/./temp.dat");
    EXPECT_EQ(FileBytes(folder_ / "temp.dat"), "1,2,3\r\n");
}

}  // namespace
}  // namespace crownlab
