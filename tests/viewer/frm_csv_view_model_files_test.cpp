#include <gtest/gtest.h>

#include "basis/paths.h"
#include "forms/acts.h"
#include "support/expect_failure.h"
#include "support/temp_folder.h"
#include "viewer/multi_tooth_file.h"
#include "viewer_window.h"

namespace crownlab {
namespace {

/// A model file of that many teeth, each with a line that tells which it is.
std::string ModelFile(const std::string& name, int teeth) {
    std::string text;
    for (int i = 1; i <= teeth; ++i) text += name + " " + std::to_string(i) + "\n666\n";
    return text;
}

class ModelFilesTest : public ::testing::Test {
protected:
    void PutCounts(const std::string& text) { PutFile(folder_ / "netregu_e1000_ToothCount.csv", text); }
    FrmCSVView& Form() { return window_.Form(); }

    TempFolder folder_;
    ViewerWindow window_;
};

TEST_F(ModelFilesTest, CountsTheNamedFile) {
    PutFile(folder_ / "some.txt", ModelFile("a", 3) + "rest\n");
    window_.Choose("some.txt");
    Press(Form().cmdCTFiles);
    EXPECT_EQ(FileBytes(folder_ / "ToothCount.csv"), "\"File\",\"Count\"\r\n\"some.txt\",3\r\n");
    EXPECT_EQ(Form().txtTempCTFiles.Text, "some.txt");
    EXPECT_EQ(Form().MousePointer, kPointerNormal);
}

TEST_F(ModelFilesTest, AsksForANameFirst) {
    for (const char* name : {"", "*.dat", "*.csv"}) {
        window_.Choose(name);
        Press(Form().cmdCTFiles);
        EXPECT_EQ(window_.Screen.Boxes.back(), "Choose csv filename");
    }
    EXPECT_EQ(window_.Screen.Boxes.size(), 3u);
    EXPECT_EQ(folder_.EntryCount(), 0u);
}

TEST_F(ModelFilesTest, CountsAllModelFilesByNumber) {
    PutFile(folder_ / "netregu10.dat", ModelFile("a", 2));
    PutFile(folder_ / "netregu9.dat", ModelFile("b", 0));
    PutFile(folder_ / "other.dat", ModelFile("c", 7));
    SetChecked(Form().chkCTFilesAll, true);
    Press(Form().cmdCTFiles);
    EXPECT_EQ(FileBytes(folder_ / "ToothCount.csv"),
              "\"File\",\"Count\"\r\n\"netregu9.dat\",0\r\n\"netregu10.dat\",2\r\n");
    EXPECT_EQ(window_.Screen.Redraws, 2) << "progress shows with each file";
    EXPECT_EQ(window_.Screen.Yields, 0);
}

TEST_F(ModelFilesTest, AFolderWithoutModelFilesMissesTheDefaultOne) {
    SetChecked(Form().chkCTFilesAll, true);
    EXPECT_TRUE(FailsWith(
        FailureKind::FileNotFound, [&] { Press(Form().cmdCTFiles); }, "netregu113.dat"));
    EXPECT_EQ(folder_.EntryCount(), 0u);
}

TEST_F(ModelFilesTest, ExtractsEachFilesShare) {
    PutFile(folder_ / "netregu1.dat", ModelFile("a", 30));
    PutFile(folder_ / "netregu2.dat", ModelFile("b", 10));
    PutCounts("\"File\",\"Count\"\r\n\"netregu1.dat\",30\r\n\"netregu2.dat\",10\r\n");
    Form().txtCTFENo.Text = "8";
    Press(Form().cmdCTFExtract);
    EXPECT_EQ(Form().txtExtractCurr.Text, "netregu2.dat");
    EXPECT_EQ(Form().txtExtractTotal.Text, "8");

    const std::string sample = FileBytes(folder_ / "netregu_e8.csv");
    EXPECT_EQ(ScanSentinels(sample, "sample").NumTeeth(), 8);
    EXPECT_LT(sample.rfind("a "), sample.find("b "));
    // The positions tell the teeth of the sample, in its order.
    std::string expected;
    std::string told = FileBytes(folder_ / "netregu_e8_pos.csv");
    for (std::size_t at = 0; at < sample.size(); at = sample.find("666\r\n", at) + 5) {
        const bool first = sample[at] == 'a';
        const std::string number = sample.substr(at + 2, sample.find('\r', at) - at - 2);
        expected += std::string("\"netregu") + (first ? "1" : "2") + ".dat\"," + number + "," +
                    std::to_string(2 * std::stoi(number) - 1) + "\r\n";
    }
    EXPECT_EQ(told, expected);
}

TEST_F(ModelFilesTest, ASampleOfAllTeethIsAllFilesAndCollects) {
    PutFile(folder_ / "netregu1.dat", ModelFile("a", 2));
    PutFile(folder_ / "netregu2.dat", ModelFile("b", 1));
    PutCounts("\"File\",\"Count\"\r\n\"netregu1.dat\",2\r\n\"netregu2.dat\",1\r\n");
    Press(Form().cmdCTFExtract);
    const std::string all = "a 1\r\n666\r\na 2\r\n666\r\nb 1\r\n666\r\n";
    EXPECT_EQ(FileBytes(folder_ / "netregu_e1000.csv"), all);
    EXPECT_EQ(Form().txtExtractTotal.Text, "3") << "what was really taken";
    Press(Form().cmdCTFExtract);
    EXPECT_EQ(FileBytes(folder_ / "netregu_e1000.csv"), all + all);
}

TEST_F(ModelFilesTest, CountsThatPromiseTooMuchFail) {
    PutFile(folder_ / "netregu1.dat", ModelFile("a", 2));
    PutCounts("netregu1.dat,5\r\n");
    EXPECT_TRUE(FailsWith(
        FailureKind::InputPastEnd, [&] { Press(Form().cmdCTFExtract); }, "netregu1.dat"));
    EXPECT_FALSE(IsFile(folder_ / "netregu_e1000.csv"));
    PutCounts("netregu3.dat,5\r\n");
    EXPECT_TRUE(FailsWith(FailureKind::FileNotFound, [&] { Press(Form().cmdCTFExtract); }));
    PutCounts("netregu1.dat,0\r\n");
    EXPECT_TRUE(FailsWith(FailureKind::DivisionByZero, [&] { Press(Form().cmdCTFExtract); }));
}

TEST_F(ModelFilesTest, CountsOfBillionsEndInAFailure) {
    PutFile(folder_ / "netregu1.dat", ModelFile("a", 2));
    PutCounts("netregu1.dat,2147483647\r\n");
    Form().txtCTFENo.Text = "3";
    // Three picks of two thousand millions: the file ends long before.
    EXPECT_TRUE(FailsWith(FailureKind::InputPastEnd, [&] { Press(Form().cmdCTFExtract); }));
    Form().txtCTFENo.Text = "3000000000";
    EXPECT_TRUE(FailsWith(FailureKind::Overflow, [&] { Press(Form().cmdCTFExtract); }));
}

TEST_F(ModelFilesTest, FilesOfNoShareAreNotRead) {
    PutFile(folder_ / "netregu1.dat", ModelFile("a", 1));
    PutCounts("netregu1.dat,1\r\ngone.dat,0\r\n");
    Press(Form().cmdCTFExtract);
    EXPECT_EQ(Form().txtExtractTotal.Text, "1");
}

TEST_F(ModelFilesTest, WithoutCountsThereIsNoSample) {
    EXPECT_TRUE(FailsWith(
        FailureKind::FileNotFound, [&] { Press(Form().cmdCTFExtract); }, "netregu_e1000_ToothCount.csv"));
}

}  // namespace
}  // namespace crownlab
