#include "convert/path_parts.h"

#include <gtest/gtest.h>

#include "basis/paths.h"
#include "support/expect_failure.h"

namespace crownlab {
namespace {

/// The path with the platform's separators.
std::string Path(std::string text) {
    for (char& c : text) c = c == '/' ? kPathSeparator : c;
    return text;
}

TEST(FindRootDir, IsAllUpToTheLastSeparator) {
    EXPECT_EQ(FindRootDir(Path("/teeth/upper/m1.grd")), Path("/teeth/upper/"));
    EXPECT_EQ(FindRootDir(Path("/m1.grd")), Path("/"));
    EXPECT_EQ(FindRootDir(Path("/teeth/")), Path("/teeth/"));
    EXPECT_EQ(FindRootDir("m1.grd"), "");
}

TEST(FindBaseFilename, IsTheNameLessFourCharacters) {
    EXPECT_EQ(FindBaseFilename(Path("/teeth/upper/m1.grd")), "m1");
    EXPECT_EQ(FindBaseFilename("m1.b.grd"), "m1.b");
    EXPECT_EQ(FindBaseFilename(Path("/teeth/crown")), "c");
}

TEST(FindBaseFilename, NeedsABase) {
    for (const char* const name : {".grd", "m1", "", "/teeth/"}) {
        EXPECT_TRUE(FailsWith(FailureKind::InvalidCall, [name] { FindBaseFilename(Path(name)); })) << name;
    }
}

TEST(SingleFile, HasItsPartsLikeAFileOfTheBatch) {
    const BatchFile file = SingleFile(Path("/teeth"), "m1.txt");
    const BatchFile entry = MakeBatchFile(Path("/teeth"), "m1.txt");
    EXPECT_EQ(file.InputPath, entry.InputPath);
    EXPECT_EQ(file.FileDir, entry.FileDir);
    EXPECT_EQ(file.FileBase, entry.FileBase);
    EXPECT_EQ(file.Stem, entry.Stem);
    EXPECT_EQ(file.Ext, entry.Ext);
    EXPECT_EQ(SingleFile(Path("/"), "m1.txt").InputPath, Path("/m1.txt"));
}

}  // namespace
}  // namespace crownlab
