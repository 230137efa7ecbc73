#include "basis/result_file.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <memory>
#include <string>

#include "support/expect_failure.h"
#include "support/ordinary_user.h"
#include "support/small_disk.h"
#include "support/temp_folder.h"

namespace crownlab {
namespace {
namespace fs = std::filesystem;

class ResultFileTest : public ::testing::Test {
protected:
    TempFolder Folder;
    FileTable Files;
};

TEST_F(ResultFileTest, WritesRecordsInTheCommaSeparatedForm) {
    ResultFile file(Files, "a.csv");
    file.Record("name", 0.5, 12, -0.25, 7L, 8LL, std::string("b"), std::string_view("c"));
    file.Record();
    file.Record("say \"x\"");
    file.Line("free text");
    file.Line();
    file.PrintNumber(0.5);
    file.PrintNumber(-2);
    file.EndLine();
    file.Commit();
    EXPECT_EQ(FileBytes("a.csv"),
              "\"name\",.5,12,-.25,7,8,\"b\",\"c\"\r\n"
              "\r\n"
              "\"say \"x\"\"\r\n"
              "free text\r\n"
              "\r\n"
              " .5 -2 \r\n");
}

TEST_F(ResultFileTest, PutsABlankOrTheSignBeforeAPrintedNumber) {
    EXPECT_EQ(PrintNumberText(1.5), " 1.5 ");
    EXPECT_EQ(PrintNumberText(-1.5), "-1.5 ");
    EXPECT_EQ(PrintNumberText(0), " 0 ");
}

TEST_F(ResultFileTest, ShowsNothingUnderItsNameUntilItIsWhole) {
    PutFile("a.csv", "old");
    ResultFile file(Files, "a.csv");
    file.Write(std::string(1U << 20, 'x'));
    EXPECT_EQ(FileBytes("a.csv"), "old");
    file.Commit();
    EXPECT_EQ(FileBytes("a.csv").size(), 1U << 20);
    EXPECT_EQ(Folder.EntryCount(), 1U) << "no temporary file stays";
}

TEST_F(ResultFileTest, LeavesNoTraceUnlessCommitted) {
    {
        ResultFile file(Files, "a.csv");
        file.Write(std::string(1U << 20, 'x'));
        EXPECT_EQ(Folder.EntryCount(), 1U);
    }
    EXPECT_EQ(Folder.EntryCount(), 0U);
}

TEST_F(ResultFileTest, KeepsTheOldFileIfItIsNotCommitted) {
    PutFile("a.csv", "old");
    { ResultFile(Files, "a.csv").Write("new"); }
    EXPECT_EQ(FileBytes("a.csv"), "old");
    EXPECT_EQ(Folder.EntryCount(), 1U);
}

TEST_F(ResultFileTest, CloseAllDropsUnfinishedOutputs) {
    ResultFile first(Files, "a.csv");
    ResultFile second(Files, "b.csv");
    first.Write("x");
    Files.CloseAll();
    EXPECT_EQ(Folder.EntryCount(), 0U);
    EXPECT_TRUE(FailsWith(
        FailureKind::InvalidCall, [&] { first.Write("y"); }, "a.csv was closed"));
    EXPECT_TRUE(FailsWith(FailureKind::InvalidCall, [&] { first.Commit(); }));
    EXPECT_TRUE(FailsWith(
        FailureKind::InvalidCall, [&] { second.Line(); }, "b.csv was closed"));
    EXPECT_EQ(Folder.EntryCount(), 0U);
}

TEST_F(ResultFileTest, CloseAllLeavesFinishedOutputsAlone) {
    ResultFile file(Files, "a.csv");
    file.Write("whole");
    file.Commit();
    Files.CloseAll();
    EXPECT_EQ(FileBytes("a.csv"), "whole");
}

TEST_F(ResultFileTest, AppendsToTheEnd) {
    for (const char* const text : {"one", "two"}) {
        ResultFile file(Files, "all.csv", ResultFile::Mode::Append);
        file.Line(text);
        file.Commit();
    }
    EXPECT_EQ(FileBytes("all.csv"), "one\r\ntwo\r\n");
    EXPECT_EQ(Folder.EntryCount(), 1U);
}

TEST_F(ResultFileTest, WritesThroughALink) {
    fs::create_directory("there");
    PutFile("there/goal.csv", "old");
    fs::create_symlink("there/goal.csv", "link.csv");
    WriteWholeFile(Files, "link.csv", "new");
    EXPECT_TRUE(fs::is_symlink("link.csv"));
    EXPECT_EQ(FileBytes("there/goal.csv"), "new");
}

TEST_F(ResultFileTest, WritesThroughALinkWhoseGoalIsMissing) {
    fs::create_symlink("goal.csv", "link.csv");
    WriteWholeFile(Files, "link.csv", "new");
    EXPECT_EQ(FileBytes("goal.csv"), "new");
}

TEST_F(ResultFileTest, KeepsTheOldFilesPermissions) {
    PutFile("a.csv", "old");
    fs::permissions("a.csv", fs::perms::owner_read | fs::perms::owner_write);
    WriteWholeFile(Files, "a.csv", "new");
    EXPECT_EQ(fs::status("a.csv").permissions(), fs::perms::owner_read | fs::perms::owner_write);
}

TEST_F(ResultFileTest, WritesNamesOfOtherAlphabets) {
    WriteWholeFile(Files, "Z\xC3\xA4hne \xE6\xAD\xAF.csv", "x");
    EXPECT_EQ(FileBytes("Z\xC3\xA4hne \xE6\xAD\xAF.csv"), "x");
}

TEST_F(ResultFileTest, FailsWhereTheFolderIsMissing) {
    EXPECT_TRUE(FailsWith(
        FailureKind::PathNotFound, [&] { ResultFile(Files, "gone/a.csv"); }, "gone/a.csv"));
    PutFile("file", "");
    EXPECT_TRUE(FailsWith(FailureKind::PathNotFound, [&] { ResultFile(Files, "file/a.csv"); }));
    EXPECT_TRUE(
        FailsWith(FailureKind::PathNotFound, [&] { ResultFile(Files, "gone/a.csv", ResultFile::Mode::Append); }));
}

TEST_F(ResultFileTest, RefusesToReplaceAFolder) {
    fs::create_directory("a.csv");
    EXPECT_TRUE(FailsWith(
        FailureKind::PermissionDenied, [&] { ResultFile(Files, "a.csv"); }, "a.csv"));
    EXPECT_EQ(Folder.EntryCount(), 1U);
}

TEST_F(ResultFileTest, RefusesAFileThatIsWriteProtected) {
    PutFile("a.csv", "old");
    fs::permissions("a.csv", fs::perms::owner_read | fs::perms::others_read);
    const OrdinaryUser user(Folder.Path());
    ASSERT_TRUE(user.Holds());
    EXPECT_TRUE(FailsWith(
        FailureKind::PermissionDenied, [&] { ResultFile(Files, "a.csv"); }, "a.csv"));
    EXPECT_TRUE(
        FailsWith(FailureKind::PermissionDenied, [&] { ResultFile(Files, "a.csv", ResultFile::Mode::Append); }));
    EXPECT_EQ(FileBytes("a.csv"), "old");
}

TEST_F(ResultFileTest, RefusesAFolderThatIsWriteProtected) {
    fs::create_directory("shut");
    const OrdinaryUser user(Folder.Path());
    ASSERT_TRUE(user.Holds());
    fs::create_directory("mine");
    fs::permissions("mine", fs::perms::owner_read | fs::perms::owner_exec);
    EXPECT_TRUE(FailsWith(
        FailureKind::PermissionDenied, [&] { ResultFile(Files, "mine/a.csv"); }, "mine/a.csv"));
    fs::permissions("mine", fs::perms::owner_all);
}

#ifdef __linux__
TEST_F(ResultFileTest, KeepsTheOldFileWhenTheDiskIsFull) {
    PutFile("a.csv", "old");
    {
        const SmallDisk disk(100000);
        EXPECT_TRUE(FailsWith(
            FailureKind::DiskFull,
            [&] {
                ResultFile file(Files, "a.csv");
                for (int i = 0; i < 100; ++i) file.Write(std::string(10000, 'x'));
                file.Commit();
            },
            "a.csv"));
        EXPECT_TRUE(
            FailsWith(FailureKind::DiskFull, [&] { WriteWholeFile(Files, "a.csv", std::string(100001, 'x')); }));
    }
    EXPECT_EQ(FileBytes("a.csv"), "old");
    EXPECT_EQ(Folder.EntryCount(), 1U);
}

TEST_F(ResultFileTest, WritesDevicesInPlaceAndSaysWhenTheyAreFull) {
    WriteWholeFile(Files, "/dev/null", "x");
    EXPECT_TRUE(fs::is_character_file("/dev/null"));
    EXPECT_TRUE(FailsWith(
        FailureKind::DiskFull, [&] { WriteWholeFile(Files, "/dev/full", "x"); }, "/dev/full"));
}
#endif

TEST_F(ResultFileTest, TheTableDropsWhatIsOpenWhenItGoes) {
    auto table = std::make_unique<FileTable>();
    auto file = std::make_unique<ResultFile>(*table, "a.csv");
    table->CloseAll();
    file.reset();
    table.reset();
    EXPECT_EQ(Folder.EntryCount(), 0U);
}

}  // namespace
}  // namespace crownlab
