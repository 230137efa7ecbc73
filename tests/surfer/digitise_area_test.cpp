#include "surfer/digitise_area.h"

#include <gtest/gtest.h>

#include "support/expect_failure.h"
#include "support/temp_folder.h"
#include "support/test_desk.h"

namespace crownlab {
namespace {

class DigitiseAreaTest : public ::testing::Test {
protected:
    MapOfGrid Map() const { return {folder_ / "", "m1"}; }
    void Cancel() { services_.Screen.Answers = {Button::Cancel}; }
    const std::string& BoxText() { return services_.Screen.Boxes.at(0).Text; }

    TempFolder folder_;
    TestServices services_;
};

TEST_F(DigitiseAreaTest, OneAreaIsARingWithATextForItsFlag) {
    PutFile("digit.dat", "0,0\n2.5,-1\n");
    EXPECT_EQ(DigitiseArea(services_.Ties, Map(), 1), folder_ / "m1blnpts.bln");
    EXPECT_EQ(FileBytes("m1blnpts.bln"),
              " 3            1\r\n 0             0 \r\n 2.5          -1 \r\n 0             0 \r\n");
    DigitiseArea(services_.Ties, Map(), 0);
    EXPECT_TRUE(FileBytes("m1blnpts.bln").starts_with(" 3            0\r\n"));
    EXPECT_EQ(FileBytes("m1blnpts.dat"), "0,0\n2.5,-1\n");
    EXPECT_EQ(BoxText(),
              "Use 'Digitise' to digitise area of m1 to be blanked.\n\r"
              "Save as digit.dat in same directory as grid then press 'OK'.");
}

TEST_F(DigitiseAreaTest, SeveralAreasAreRingsWithANumberForTheirFlag) {
    PutFile("digit.dat", "-1\n0,0\n2.5,-1\n-1\n-1\n7,8\n");
    EXPECT_EQ(DigitiseAreas(services_.Ties, Map()), folder_ / "m1blnmpts.bln");
    EXPECT_EQ(FileBytes("m1blnmpts.bln"),
              " 3             1 \r\n 0             0 \r\n 2.5          -1 \r\n 0             0 \r\n"
              " 2             1 \r\n 7             8 \r\n 7             8 \r\n");
    EXPECT_EQ(FileBytes("m1blnmpts.dat"), FileBytes("digit.dat"));
    EXPECT_EQ(BoxText(),
              "Use 'Digitise' to digitise multiple areas of m1 to be blanked. Type '-1' between separate areas.\n\r"
              "Save as digit.dat in same directory as grid then press 'OK'.");
}

TEST_F(DigitiseAreaTest, AreasWithoutAnyPointAreAnEmptyOutline) {
    PutFile("digit.dat", "-1\n-1\n");
    EXPECT_TRUE(DigitiseAreas(services_.Ties, Map()).has_value());
    EXPECT_EQ(FileBytes("m1blnmpts.bln"), "");
}

TEST_F(DigitiseAreaTest, ABadLineLeavesTheCopyAndTheOldOutline) {
    PutFile("digit.dat", "0,0\n-1\n1\n");
    PutFile("m1blnmpts.bln", "old\n");
    EXPECT_TRUE(FailsWith(FailureKind::InputPastEnd, [&] { DigitiseAreas(services_.Ties, Map()); }));
    EXPECT_EQ(FileBytes("m1blnmpts.bln"), "old\n");
    EXPECT_EQ(FileBytes("m1blnmpts.dat"), FileBytes("digit.dat"));
}

TEST_F(DigitiseAreaTest, ABoxIsTwoPoints) {
    PutFile("digit.dat", "4,5\n1 2\nwords\n");
    const auto box = DigitiseBox(services_.Ties, Map());
    ASSERT_TRUE(box.has_value());
    EXPECT_EQ(box->LowerLeft, (PlanePoint{4, 5})) << "the order is for the caller to see";
    EXPECT_EQ(box->UpperRight, (PlanePoint{1, 2}));
    EXPECT_EQ(FileBytes("m1extpts.dat"), FileBytes("digit.dat"));
    EXPECT_EQ(BoxText(),
              "Use 'Digitise' to digitise bottom left and top right of area in m1 to keep.\n\r"
              "Save as digit.dat in same directory as grid then press 'OK'.");
}

TEST_F(DigitiseAreaTest, CancelChangesNothing) {
    PutFile("digit.dat", "0,0\n1,1\n");
    Cancel();
    EXPECT_FALSE(DigitiseArea(services_.Ties, Map(), 0).has_value());
    Cancel();
    EXPECT_FALSE(DigitiseAreas(services_.Ties, Map()).has_value());
    Cancel();
    EXPECT_FALSE(DigitiseBox(services_.Ties, Map()).has_value());
    EXPECT_EQ(folder_.EntryCount(), 1U);
}

TEST_F(DigitiseAreaTest, WithoutPointsItIsFileNotFound) {
    EXPECT_TRUE(FailsWith(FailureKind::FileNotFound, [&] { DigitiseArea(services_.Ties, Map(), 0); }));
    EXPECT_TRUE(FailsWith(FailureKind::FileNotFound, [&] { DigitiseAreas(services_.Ties, Map()); }));
    EXPECT_TRUE(FailsWith(FailureKind::FileNotFound, [&] { DigitiseBox(services_.Ties, Map()); }));
    EXPECT_EQ(folder_.EntryCount(), 0U);
}

}  // namespace
}  // namespace crownlab
