#include "basis/paths.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <ctime>
#include <filesystem>
#include <string>
#include <vector>

#ifndef _WIN32
#include <fcntl.h>
#include <sys/stat.h>
#endif

#include "support/expect_failure.h"
#include "support/ordinary_user.h"
#include "support/temp_folder.h"

namespace crownlab {
namespace {
namespace fs = std::filesystem;

using Names = std::vector<std::string>;

class PathsTest : public ::testing::Test {
protected:
    TempFolder Folder;
};

TEST_F(PathsTest, TellFilesFromFolders) {
    PutFile("a.csv", "");
    fs::create_directory("sub");
    EXPECT_TRUE(IsFile("a.csv"));
    EXPECT_FALSE(IsFolder("a.csv"));
    EXPECT_TRUE(IsFolder("sub"));
    EXPECT_FALSE(IsFile("sub"));
    EXPECT_TRUE(IsFolder(Folder.Path() + kPathSeparator));
}

TEST_F(PathsTest, TakeAnyErrorForNo) {
    EXPECT_FALSE(IsFile(""));
    EXPECT_FALSE(IsFolder(""));
    EXPECT_FALSE(IsFile("gone"));
    EXPECT_FALSE(IsFolder("gone/deeper"));
    EXPECT_FALSE(IsFile(std::string(100000, 'x')));
    EXPECT_FALSE(IsFolder(std::string(100000, 'x')));
    fs::create_symlink("round", "round");
    EXPECT_FALSE(IsFile("round"));
    EXPECT_FALSE(IsFolder("round"));
}

TEST_F(PathsTest, FollowLinks) {
    fs::create_directory("sub");
    PutFile("a.csv", "");
    fs::create_symlink("sub", "tosub");
    fs::create_symlink("a.csv", "toa");
    EXPECT_TRUE(IsFolder("tosub"));
    EXPECT_TRUE(IsFile("toa"));
}

TEST(JoinPath, DoesNotDoubleTheSeparator) {
    const std::string separator(1, kPathSeparator);
    EXPECT_EQ(JoinPath("a", "b"), "a" + separator + "b");
    EXPECT_EQ(JoinPath("a" + separator, "b"), "a" + separator + "b");
    EXPECT_EQ(JoinPath(separator, "b"), separator + "b");
    EXPECT_EQ(WithSeparator("a"), "a" + separator);
    EXPECT_EQ(WithSeparator("a" + separator), "a" + separator);
    EXPECT_EQ(WithSeparator(separator), separator);
}

TEST_F(PathsTest, AbsolutePathHasNoDotsAndNoSeparatorAtItsEnd) {
    EXPECT_EQ(AbsolutePath("."), Folder.Path());
    EXPECT_EQ(AbsolutePath("sub"), Folder / "sub");
    EXPECT_EQ(AbsolutePath("sub/"), Folder / "sub");
    EXPECT_EQ(AbsolutePath("./x/../sub//"), Folder / "sub");
    EXPECT_EQ(AbsolutePath("/"), "/");
    EXPECT_EQ(AbsolutePath("//"), "/");
    EXPECT_EQ(AbsolutePath("//usr//bin/"), "/usr/bin");
    EXPECT_TRUE(FailsWith(FailureKind::PathNotFound, [] { AbsolutePath(""); }));
    EXPECT_EQ(AbsolutePath("/.."), "/");
}

TEST_F(PathsTest, ChangeFolderGoesThereOrFails) {
    fs::create_directory("sub");
    ChangeFolder("sub");
    EXPECT_EQ(CurrentFolder(), Folder / "sub");
    EXPECT_TRUE(FailsWith(
        FailureKind::PathNotFound, [] { ChangeFolder("gone"); }, "gone"));
    EXPECT_TRUE(FailsWith(FailureKind::PathNotFound, [] { ChangeFolder(""); }));
    EXPECT_EQ(CurrentFolder(), Folder / "sub");
}

TEST_F(PathsTest, MakeFolderMakesOneLevel) {
    MakeFolder("sub");
    EXPECT_TRUE(IsFolder("sub"));
    MakeFolder("sub");
    EXPECT_TRUE(FailsWith(
        FailureKind::PathNotFound, [] { MakeFolder("gone/deeper"); }, "gone/deeper"));
    PutFile("file", "");
    EXPECT_TRUE(FailsWith(
        FailureKind::PermissionDenied, [] { MakeFolder("file"); }, "file"));
}

TEST_F(PathsTest, MakeFolderIsRefusedInAProtectedFolder) {
    const OrdinaryUser user(Folder.Path());
    ASSERT_TRUE(user.Holds());
    fs::create_directory("mine");
    fs::permissions("mine", fs::perms::owner_read | fs::perms::owner_exec);
    EXPECT_TRUE(FailsWith(
        FailureKind::PermissionDenied, [] { MakeFolder("mine/sub"); }, "mine/sub"));
    fs::permissions("mine", fs::perms::owner_all);
}

TEST_F(PathsTest, ListFilesOrdersByNameWithoutCase) {
    for (const char* const name : {"b.csv", "A.csv", "a.csv", "C.CSV", "_.csv", "Z.txt", "noextension"})
        PutFile(name, "");
    fs::create_directory("folder.csv");
    EXPECT_EQ(ListFiles(".", "*.csv"), (Names{"_.csv", "A.csv", "a.csv", "b.csv", "C.CSV"}));
    EXPECT_EQ(ListFiles(".", "*.*"), (Names{"_.csv", "A.csv", "a.csv", "b.csv", "C.CSV", "noextension", "Z.txt"}));
    EXPECT_EQ(ListFiles(".", "*.CSV;*.TXT"), (Names{"_.csv", "A.csv", "a.csv", "b.csv", "C.CSV", "Z.txt"}));
    EXPECT_EQ(ListFiles(".", "*.grd"), Names{});
}

TEST_F(PathsTest, ListFilesFailsWithoutItsFolder) {
    EXPECT_TRUE(FailsWith(
        FailureKind::PathNotFound, [] { ListFiles("gone", "*.*"); }, "gone"));
    EXPECT_TRUE(FailsWith(FailureKind::PathNotFound, [] { ListFiles("", "*.*"); }));
    PutFile("file", "");
    EXPECT_TRUE(FailsWith(FailureKind::PathNotFound, [] { ListFiles("file", "*.*"); }));
}

TEST_F(PathsTest, ListFoldersHasFoldersOnly) {
    fs::create_directory("b");
    fs::create_directory("A");
    fs::create_directory_symlink("b", "link");
    fs::create_symlink("gone", "dead");
    PutFile("file", "");
    EXPECT_EQ(ListFolders("."), (Names{"A", "b", "link"}));
}

TEST_F(PathsTest, ReadWholeFileGivesItsBytes) {
    const std::string bytes("a\0\r\n\xFF", 5);
    PutFile("a.csv", bytes);
    EXPECT_EQ(ReadWholeFile("a.csv"), bytes);
    PutFile("empty", "");
    EXPECT_EQ(ReadWholeFile("empty"), "");
    PutFile("large", std::string(300000, 'x'));
    EXPECT_EQ(ReadWholeFile("large").size(), 300000U);
}

TEST_F(PathsTest, ReadWholeFileSaysWhatIsMissing) {
    EXPECT_TRUE(FailsWith(
        FailureKind::FileNotFound, [] { ReadWholeFile("gone.csv"); }, "gone.csv"));
    EXPECT_TRUE(FailsWith(
        FailureKind::PathNotFound, [] { ReadWholeFile("gone/a.csv"); }, "gone/a.csv"));
    EXPECT_TRUE(FailsWith(FailureKind::PermissionDenied, [&] { ReadWholeFile(Folder.Path()); }));
    EXPECT_TRUE(FailsWith(FailureKind::FileNotFound, [] { ReadWholeFile(""); }));
}

TEST_F(PathsTest, ReadWholeFileHeedsPermissions) {
    PutFile("a.csv", "secret");
    fs::permissions("a.csv", fs::perms::none);
    const OrdinaryUser user(Folder.Path());
    ASSERT_TRUE(user.Holds());
    EXPECT_TRUE(FailsWith(
        FailureKind::PermissionDenied, [] { ReadWholeFile("a.csv"); }, "a.csv"));
}

#ifdef __linux__
TEST_F(PathsTest, ReadWholeFileReadsWhatHasNoSize) {
    EXPECT_NE(ReadWholeFile("/proc/self/status").find("VmRSS"), std::string::npos);
}

TEST_F(PathsTest, ReadWholeFileEndsAtTheMemoryBound) {
    setenv("CROWNLAB_MEMORY", "100000000", 1);
    EXPECT_TRUE(FailsWith(
        FailureKind::OutOfMemory, [] { ReadWholeFile("/dev/zero"); }, "/dev/zero"));
    std::ofstream("sparse").put('x');
    fs::resize_file("sparse", 1ULL << 40);
    EXPECT_TRUE(FailsWith(
        FailureKind::OutOfMemory, [] { ReadWholeFile("sparse"); }, "sparse"));
    unsetenv("CROWNLAB_MEMORY");
}

TEST_F(PathsTest, FileTimeTextIsLocal) {
    setenv("TZ", "UTC-2", 1);
    tzset();
    PutFile("a.csv", "");
    constexpr std::time_t oneYear = 31536000;  // seconds
    const timespec times[2] = {{oneYear, 0}, {oneYear, 0}};
    ASSERT_EQ(utimensat(AT_FDCWD, "a.csv", times, 0), 0);
    EXPECT_EQ(FileTimeText("a.csv"), "1971-01-01 02:00:00");
    unsetenv("TZ");
    tzset();
}
#endif

TEST_F(PathsTest, FileTimeTextNeedsTheFile) {
    EXPECT_TRUE(FailsWith(
        FailureKind::FileNotFound, [] { FileTimeText("gone"); }, "gone"));
}

}  // namespace
}  // namespace crownlab
