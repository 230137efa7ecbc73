#include "shell/file_batch.h"

#include <gtest/gtest.h>

#include "basis/paths.h"
#include "support/expect_failure.h"

namespace crownlab {
namespace {

const std::string kSeparator(1, kPathSeparator);

TEST(MakeBatchFile, TakesNamesApart) {
    const std::string folder = kSeparator + "scans";
    const BatchFile file = MakeBatchFile(folder, "tooth1.txt");
    EXPECT_EQ(file.FileDir, folder + kSeparator);
    EXPECT_EQ(file.FileBase, "tooth1");
    EXPECT_EQ(file.Ext, ".txt");
    EXPECT_EQ(file.Stem, folder + kSeparator + "tooth1");
    EXPECT_EQ(file.InputPath, folder + kSeparator + "tooth1.txt");
    EXPECT_EQ(file.OutputPath, "");
    EXPECT_EQ(file.RejectPath, "");
}

TEST(MakeBatchFile, DoesNotDoubleTheSeparator) {
    EXPECT_EQ(MakeBatchFile(kSeparator, "tooth1.txt").InputPath, kSeparator + "tooth1.txt");
    EXPECT_EQ(MakeBatchFile("scans" + kSeparator, "tooth1.txt").FileDir, "scans" + kSeparator);
}

TEST(MakeBatchFile, TakesTheLastFourCharactersWhateverTheyAre) {
    const BatchFile noDot = MakeBatchFile("s", "crown");
    EXPECT_EQ(noDot.FileBase, "c");
    EXPECT_EQ(noDot.Ext, "rown");
    const BatchFile longExtension = MakeBatchFile("s", "a.points");
    EXPECT_EQ(longExtension.FileBase, "a.po");
    EXPECT_EQ(longExtension.Ext, "ints");
    const BatchFile shortExtension = MakeBatchFile("s", "tooth.gz");
    EXPECT_EQ(shortExtension.FileBase, "toot");
    EXPECT_EQ(shortExtension.Ext, "h.gz");
}

TEST(MakeBatchFile, RefusesNamesWithoutABase) {
    for (const std::string name : {".txt", "abcd", "abc", "a", ""}) {
        EXPECT_TRUE(FailsWith(FailureKind::InvalidCall, [&] { MakeBatchFile("s", name); })) << name;
    }
    EXPECT_EQ(MakeBatchFile("s", "a.txt").FileBase, "a");
}

TEST(Contains, ComparesWholePaths) {
    const FileBatch batch{MakeBatchFile("s", "a.txt"), MakeBatchFile("s", "b.txt")};
    EXPECT_TRUE(Contains(batch, "s", "b.txt"));
    EXPECT_FALSE(Contains(batch, "s", "B.txt"));
    EXPECT_FALSE(Contains(batch, "t", "a.txt"));
    EXPECT_FALSE(Contains({}, "s", "a.txt"));
}

}  // namespace
}  // namespace crownlab
