#include "convert/mould_copy.h"

#include <gtest/gtest.h>

#include "basis/result_file.h"
#include "support/expect_failure.h"
#include "support/temp_folder.h"

namespace crownlab {
namespace {

class MouldCopy : public ::testing::Test {
protected:
    /// What the copy of a file of that content holds.
    std::string CopyOf(const std::string& text) {
        PutFile(Folder / "scan.txt", text);
        WriteMouldCopy(Files, Folder / "scan.txt", Folder / "copy.txt");
        return FileBytes(Folder / "copy.txt");
    }

    TempFolder Folder;
    FileTable Files;
};

TEST_F(MouldCopy, TurnsThePointsOver) { EXPECT_EQ(CopyOf("0.5,2,-0.25\n-3 4 5\n"), "-.5,2,.25\r\n3,4,-5\r\n"); }

TEST_F(MouldCopy, BlankHeightsStay) {
    EXPECT_EQ(CopyOf("1,2,1.70141E+38\n1,2,1E37\n1,2,9.99E36\n"),
              "-1,2,1.70141E+38\r\n-1,2,1E+37\r\n-1,2,-9.99E+36\r\n");
}

TEST_F(MouldCopy, NothingIsMinusZero) { EXPECT_EQ(CopyOf("0,0,0\n"), "0,0,0\r\n"); }

TEST_F(MouldCopy, OfNoPointsIsEmpty) { EXPECT_EQ(CopyOf("\n\n"), ""); }

TEST_F(MouldCopy, AFailureLeavesNoCopy) {
    EXPECT_TRUE(FailsWith(FailureKind::InputPastEnd, [this] { CopyOf("1,2,3\n4,5\n"); }));
    EXPECT_EQ(Folder.EntryCount(), 1u);
    EXPECT_TRUE(FailsWith(
        FailureKind::TypeMismatch, [this] { CopyOf("x,y,z\n1,2,3\n"); }, "scan.txt, line 1"));
    EXPECT_EQ(Folder.EntryCount(), 1u);
}

}  // namespace
}  // namespace crownlab
