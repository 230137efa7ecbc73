#include "mapengine/grid_file.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdlib>
#include <limits>
#include <vector>

#include "basis/number_text.h"
#include "basis/result_file.h"
#include "grid_bytes.h"
#include "mapengine/engine_call.h"
#include "support/expect_failure.h"
#include "support/random_numbers.h"
#include "support/temp_folder.h"

namespace crownlab {
namespace {

constexpr double kNan = std::numeric_limits<double>::quiet_NaN();
constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr GridFormat kGridFormats[] = {GridFormat::Binary32, GridFormat::Binary64, GridFormat::AsciiGrid};

/// Four columns, three rows, everything different; one blank node. All values fit 32 bits.
Grid SmallGrid() {
    Grid grid(GridGeometry{.Columns = 4, .Rows = 3, .XMin = -1.5, .XMax = 6, .YMin = 10, .YMax = 11});
    for (std::size_t i = 0; i < grid.Z.size(); ++i) grid.Z[i] = 0.5 * static_cast<double>(i) - 2.25;
    grid.At(2, 1) = kBlankHeight;
    return grid;
}

/// What the hand-made files of grid_bytes.h hold.
Grid HandMade() {
    Grid grid(GridGeometry{.Columns = 3, .Rows = 2, .XMin = 1, .XMax = 2, .YMin = 10, .YMax = 12});
    grid.Z = {1, 2, 3, 4, 5, 6};
    return grid;
}

const std::string kHandMadeText = "DSAA\r\n3 2\r\n1 2\r\n10 12\r\n1 6\r\n1 2 3\r\n\r\n4 5 6\r\n\r\n";

class GridFile : public ::testing::Test {
protected:
    Grid Read(const std::string& bytes) const {
        PutFile(folder_ / "in.grd", bytes);
        return ReadGrid(folder_ / "in.grd");
    }
    ::testing::AssertionResult Refuses(const std::string& bytes, const std::string& why) const {
        return FailsWith(
            FailureKind::AutomationFailed, [&] { Read(bytes); }, (folder_ / "in.grd") + ": " + why);
    }
    std::string Written(const Grid& grid, GridFormat format) {
        WriteGrid(files_, folder_ / "out.grd", grid, format);
        return FileBytes(folder_ / "out.grd");
    }
    Grid RoundTrip(const Grid& grid, GridFormat format) { return Read(Written(grid, format)); }

    TempFolder folder_;
    FileTable files_;
};

void ExpectSame(const Grid& a, const Grid& b) {
    EXPECT_EQ(a.Shape, b.Shape);
    EXPECT_EQ(a.Z, b.Z);
}

TEST_F(GridFile, EachFormatGivesBackWhatWasWritten) {
    for (const GridFormat format : kGridFormats) ExpectSame(RoundTrip(SmallGrid(), format), SmallGrid());
}

TEST_F(GridFile, ReadsFilesPutTogetherByHand) {
    ExpectSame(Read(Binary32File().Whole()), HandMade());
    ExpectSame(Read(Binary64File().Whole()), HandMade());
    ExpectSame(Read(kHandMadeText), HandMade());
}

TEST_F(GridFile, WritesFilesByteForByte) {
    EXPECT_EQ(Written(HandMade(), GridFormat::Binary32), Binary32File().Whole());
    EXPECT_EQ(Written(HandMade(), GridFormat::Binary64), Binary64File().Whole());
    EXPECT_EQ(Written(HandMade(), GridFormat::AsciiGrid), kHandMadeText);
}

TEST_F(GridFile, NodeTextRunsAlongXFromTheLowestRow) {
    EXPECT_EQ(Written(SmallGrid(), GridFormat::NodeText),
              "-1.5 10 -2.25\r\n1 10 -1.75\r\n3.5 10 -1.25\r\n6 10 -0.75\r\n"
              "-1.5 10.5 -0.25\r\n1 10.5 0.25\r\n3.5 10.5 1.70141E+38\r\n6 10.5 1.25\r\n"
              "-1.5 11 1.75\r\n1 11 2.25\r\n3.5 11 2.75\r\n6 11 3.25\r\n");
}

TEST_F(GridFile, NodeTextHas15DigitsAndTheLastNodeLiesOnTheLimit) {
    Grid grid(GridGeometry{.Columns = 4, .Rows = 2, .XMin = 0, .XMax = 0.1, .YMin = 0, .YMax = 1e-20});
    grid.Z = {1.0 / 3, -2e20, 123456789.0123456789, -0.0, 1, 1, 1, 1};
    EXPECT_EQ(
        Written(grid, GridFormat::NodeText),
        "0 0 0.333333333333333\r\n3.33333333333333E-02 0 -2E+20\r\n6.66666666666667E-02 0 123456789.012346\r\n"
        "0.1 0 0\r\n0 1E-20 1\r\n3.33333333333333E-02 1E-20 1\r\n6.66666666666667E-02 1E-20 1\r\n0.1 1E-20 1\r\n");
}

TEST_F(GridFile, HeightsAreKeptBitForBitIn64Bits) {
    RandomNumbers random;
    Grid grid(GridGeometry{.Columns = 37, .Rows = 23, .XMin = -1, .XMax = 3, .YMin = 0, .YMax = 1});
    for (double& z : grid.Z) z = random.Mixed();
    for (double& z : grid.Z) z = IsBlank(z) ? kBlankHeight : z;
    for (const GridFormat format : {GridFormat::Binary64, GridFormat::AsciiGrid}) {
        EXPECT_EQ(RoundTrip(grid, format).Z, grid.Z);
    }
}

TEST_F(GridFile, HeightsAreRoundedIn32Bits) {
    Grid grid = HandMade();
    grid.Z = {0.1, 1.0 / 3, -2e38, 1e-60, -1e-60, 16777217};
    const Grid back = RoundTrip(grid, GridFormat::Binary32);
    for (std::size_t i = 0; i < grid.Z.size(); ++i) EXPECT_EQ(back.Z[i], static_cast<float>(grid.Z[i]));
}

TEST_F(GridFile, LimitsAreKept) {
    RandomNumbers random;
    for (int i = 0; i < 60; ++i) {
        Grid grid = HandMade();
        grid.Shape.XMin = random.ShortDecimal();
        grid.Shape.XMax = grid.Shape.XMin + 1 + std::fabs(random.ShortDecimal());
        grid.Shape.YMin = random.ShortDecimal() / 3;
        grid.Shape.YMax = grid.Shape.YMin + 1e-3;
        EXPECT_EQ(RoundTrip(grid, GridFormat::Binary32).Shape, grid.Shape);
        EXPECT_EQ(RoundTrip(grid, GridFormat::AsciiGrid).Shape, grid.Shape);
        // Origin and spacing: the far limits come back to the last place.
        const GridGeometry back = RoundTrip(grid, GridFormat::Binary64).Shape;
        EXPECT_EQ(back.XMin, grid.Shape.XMin);
        EXPECT_EQ(back.YMin, grid.Shape.YMin);
        EXPECT_LE(std::fabs(back.XMax - grid.Shape.XMax), 1e-15 * std::fabs(grid.Shape.XMax));
        EXPECT_LE(std::fabs(back.YMax - grid.Shape.YMax), 1e-15 * std::fabs(grid.Shape.YMax));
    }
}

TEST_F(GridFile, BlankIsWhatReachesTheBlankValueOrIsNotFinite) {
    const double below = std::nextafter(kBlankHeight, 0);
    const auto blanked = [](double z) { return IsBlank(z) ? kBlankHeight : z; };
    Binary64File file;
    file.Heights = Numbers({kBlankHeight, below, 1e300, kNan, kInfinity, -kInfinity});
    const std::vector<double> expected{kBlankHeight, below, kBlankHeight, kBlankHeight, kBlankHeight, kBlankHeight};
    EXPECT_EQ(Read(file.Whole()).Z, expected);
    EXPECT_EQ(blanked(below), below);

    // The file's own blank value counts too, and only in this file.
    file.Heights = Numbers({-1, 0, 4.999, 5, 5.001, 1e30});
    file.BlankValue = 5;
    EXPECT_EQ(Read(file.Whole()).Z, (std::vector<double>{-1, 0, 4.999, kBlankHeight, kBlankHeight, kBlankHeight}));
    file.BlankValue = kNan;
    EXPECT_EQ(Read(file.Whole()).Z, (std::vector<double>{-1, 0, 4.999, 5, 5.001, 1e30}));
    file.BlankValue = 1e300;
    file.Heights = Numbers({1, 2, 3, 4, 5, 2e38});
    EXPECT_EQ(Read(file.Whole()).Z, (std::vector<double>{1, 2, 3, 4, 5, kBlankHeight}));

    Binary32File small;
    small.Heights =
        Numbers32({1.70141e38F, 1.5e38F, 3e38F, static_cast<float>(kNan), static_cast<float>(kInfinity), -1});
    EXPECT_EQ(Read(small.Whole()).Z,
              (std::vector<double>{kBlankHeight, 1.5e38F, kBlankHeight, kBlankHeight, kBlankHeight, -1}));

    EXPECT_EQ(Read("DSAA 3 2 0 1 0 1 0 1 1.70141e38 1.70141E+038 nan -inf 1e999 -1e999").Z,
              std::vector<double>(6, kBlankHeight));
}

TEST_F(GridFile, WritesBlanksSoThatTheyReadBackAsSuch) {
    Grid grid = HandMade();
    grid.Z = {kBlankHeight, kNan, -kInfinity, 1e300, std::nextafter(kBlankHeight, 0), -3};
    for (const GridFormat format : kGridFormats) {
        const std::vector<double> z = RoundTrip(grid, format).Z;
        EXPECT_EQ(std::vector<double>(z.begin(), z.begin() + 4), std::vector<double>(4, kBlankHeight));
        EXPECT_LT(z[4], kBlankHeight);
        EXPECT_NEAR(z[4], kBlankHeight, 3e31);
        EXPECT_EQ(z[5], -3);
    }
    EXPECT_EQ(Written(grid, GridFormat::Binary32).substr(56, 4), Numbers32({1.70141e38F}));
    EXPECT_EQ(Written(grid, GridFormat::Binary64).substr(100, 8), Numbers({1.70141e38}));
    EXPECT_NE(Written(grid, GridFormat::NodeText).find("1 10 1.70141E+38\r\n1.5 10 1.70141E+38\r\n"),
              std::string::npos);
}

TEST_F(GridFile, TheZRangeIsThatOfTheNodesThatAreNotBlank) {
    Grid grid = HandMade();
    grid.Z = {kBlankHeight, -4, 7, 2, kBlankHeight, 0};
    EXPECT_EQ(Written(grid, GridFormat::AsciiGrid).substr(0, 32), "DSAA\r\n3 2\r\n1 2\r\n10 12\r\n-4 7\r\n1.7");
    EXPECT_EQ(Written(grid, GridFormat::Binary32).substr(40, 16), Numbers({-4, 7}));
    EXPECT_EQ(Written(grid, GridFormat::Binary64).substr(60, 16), Numbers({-4, 7}));
    grid.Z.assign(6, kBlankHeight);
    for (const GridFormat format : kGridFormats) EXPECT_EQ(RoundTrip(grid, format).Z, grid.Z);
}

TEST_F(GridFile, NeverWritesMinusZero) {
    Grid grid = HandMade();
    grid.Shape.XMin = -0.0;
    grid.Z = {-0.0, -1e-320, 0, -0.0, -0.0, -0.0};
    EXPECT_EQ(Written(grid, GridFormat::AsciiGrid).find("-0 "), std::string::npos);
    EXPECT_EQ(Written(grid, GridFormat::AsciiGrid).find("-0\r"), std::string::npos);
    EXPECT_EQ(Written(grid, GridFormat::NodeText).substr(0, 8), "0 10 0\r\n");
    for (const GridFormat format : {GridFormat::Binary32, GridFormat::Binary64}) {
        EXPECT_FALSE(std::signbit(RoundTrip(grid, format).Z[0]));
        EXPECT_FALSE(std::signbit(RoundTrip(grid, format).Z[3]));
    }
    EXPECT_FALSE(std::signbit(RoundTrip(grid, GridFormat::Binary32).Z[1]));
}

TEST_F(GridFile, AsciiRowsMayBeBrokenAnywhere) {
    for (const std::string text : {
             "DSAA\n3 2\n1 2\n10 12\n1 6\n1 2\n3 4 5\n6",
             "DSAA 3 2 1 2 10 12 1 6 1 2 3 4 5 6",
             "DSAA\r3\t2\r1 2\r10 12\r1 6\r\r\r1\r2\r3\r\r4\r5\r6\r",
             "DSAA\n\n 3  2 \n1.0E+000 2.0E+000\n1.0e+001 1.2E1\n1 6\n1.0E+000 +2 3.\n\n40E-001 0.5E+001 6.0\n\n",
             "DSAA\n3 2\n1 2\n10 12\n1 6\n1 2 3\n4 5 6\n7 8 9 and more",
             "DSAA\n3 2\n1 2\n10 12\n-99 1E300\n1 2 3 4 5 6\n",
         }) {
        ExpectSame(Read(text), HandMade());
    }
}

TEST_F(GridFile, SkipsSectionsAndBytesThatItDoesNotKnow) {
    const Binary64File file;
    const std::string unknown = Section("FLTI", "some fault lines");
    const std::string data = Section("DATA", file.Heights);
    ExpectSame(Read(file.Head() + unknown + file.GridSection() + unknown + Section("NOTE", "") + data), HandMade());
    ExpectSame(Read(file.Whole() + unknown), HandMade());
    ExpectSame(Read(file.Whole() + "rest"), HandMade());
    ExpectSame(Read(Binary32File().Whole() + "rest"), HandMade());
    // A section that has grown, and data longer than the counts say.
    ExpectSame(Read(Section("DSRB", Bytes(std::int32_t{2}) + "more") +
                    Section("GRID", file.GridSection().substr(8) + "more") + Section("DATA", file.Heights + "more")),
               HandMade());
}

TEST_F(GridFile, RefusesWhatIsNoGrid) {
    for (const std::string bytes : {"", "DSB", "dsaa 2 2", "1,2,3\n", "DSCC\0\0\0\0"}) {
        EXPECT_TRUE(Refuses(bytes, "it is not a grid")) << bytes;
    }
    EXPECT_TRUE(FailsWith(
        FailureKind::AutomationFailed, [&] { ReadGrid(folder_ / "none.grd"); },
        "there is no file " + (folder_ / "none.grd")));
    EXPECT_TRUE(FailsWith(
        FailureKind::AutomationFailed, [&] { ReadGrid(folder_ / "none/none.grd"); },
        "there is no folder for the file " + (folder_ / "none/none.grd")));
    EXPECT_TRUE(FailsWith(
        FailureKind::AutomationFailed, [&] { ReadGrid(folder_.Path()); },
        "access to the file " + folder_.Path() + " is denied"));
}

TEST_F(GridFile, RefusesEveryTruncation) {
    for (const std::string& whole : {Binary32File().Whole(), Binary64File().Whole()}) {
        for (std::size_t size = 0; size < whole.size(); ++size) EXPECT_TRUE(Refuses(whole.substr(0, size), "")) << size;
    }
    // Of a text nothing is missing as long as only line ends or digits are.
    const std::string text = "DSAA\n3 2\n1 2\n10 12\n1 6\n1 2 3\n4 5 6";
    for (std::size_t size = 0; size < text.size(); ++size) EXPECT_TRUE(Refuses(text.substr(0, size), "")) << size;
}

TEST_F(GridFile, RefusesCountsThatTheDataDoNotFill) {
    Binary64File file;
    for (const auto& [rows, columns] : std::vector<std::pair<int, int>>{{3, 3},
                                                                        {2, 4},
                                                                        {std::numeric_limits<int>::max(), 2},
                                                                        {2, std::numeric_limits<int>::max()},
                                                                        {1 << 30, 1 << 30}}) {
        file.Rows = rows;
        file.Columns = columns;
        EXPECT_TRUE(Refuses(file.Whole(), "its counts ask for ")) << rows << " " << columns;
    }
    EXPECT_TRUE(Refuses(Binary32File{.Columns = 4}.Whole(), "its counts ask for 8 heights, but it holds 6"));
    EXPECT_TRUE(
        Refuses(Binary32File{.Columns = 32767, .Rows = 32767}.Whole(), "its counts ask for 1073676289 heights"));
    EXPECT_TRUE(
        Refuses("DSAA 3 3 1 2 10 12 1 6 1 2 3 4 5 6", "its counts ask for 9 heights, for which it is too short"));
    EXPECT_TRUE(Refuses("DSAA 3 3 1 2 10 12 1 6 1 2 3 4 5 6.000000", "it ends before a height"));
    EXPECT_TRUE(Refuses("DSAA 2147483647 2147483647 1 2 10 12 1 6 1 2 3 4 5 6", "its counts ask for "));
    // A section shorter than the counts say, whatever follows it.
    EXPECT_TRUE(Refuses(Binary64File().Head() + Binary64File().GridSection() +
                            Section("DATA", Numbers({1, 2, 3, 4, 5})) + Numbers({6, 7}),
                        "its counts ask for 6 heights, but it holds 5"));
}

TEST_F(GridFile, RefusesFewerThanTwoRowsOrColumns) {
    for (const int count : {1, 0, -1, std::numeric_limits<int>::min()}) {
        EXPECT_TRUE(Refuses(Binary64File{.Rows = count}.Whole(), "a grid of 3 columns and ")) << count;
        EXPECT_TRUE(Refuses(Binary64File{.Columns = count}.Whole(), "a grid of ")) << count;
    }
    EXPECT_TRUE(Refuses(Binary32File{.Columns = 1}.Whole(), "a grid of 1 columns and 2 rows"));
    EXPECT_TRUE(Refuses(Binary32File{.Rows = -2}.Whole(), "a grid of 3 columns and -2 rows"));
    EXPECT_TRUE(Refuses("DSAA 1 6 1 2 10 12 1 6 1 2 3 4 5 6", "a grid of 1 columns and 6 rows"));
    EXPECT_TRUE(Refuses("DSAA 2.5 6 1 2 10 12 1 6 1 2 3 4 5 6", "the number of columns is 2.5"));
    EXPECT_TRUE(Refuses("DSAA 2 1e10 1 2 10 12 1 6 1 2 3 4 5 6", "the number of rows is 10000000000"));
    EXPECT_TRUE(Refuses("DSAA 2 nan 1 2 10 12 1 6 1 2 3 4 5 6", "the number of rows is NAN"));
}

TEST_F(GridFile, RefusesLimitsThatDoNotRise) {
    for (const double limit : {1.0, 0.0, kNan, kInfinity, -kInfinity}) {
        EXPECT_TRUE(Refuses(Binary32File{.XMax = limit}.Whole(), "x limits 1 to ")) << limit;
    }
    EXPECT_TRUE(Refuses(Binary32File{.YMin = 12}.Whole(), "y limits 12 to 12 don't rise"));
    EXPECT_TRUE(Refuses(Binary32File{.XMin = -1e308, .XMax = 1e308}.Whole(), "x limits -1E+308 to 1E+308 don't rise"));
    for (const double spacing : {0.0, -0.5, kNan, kInfinity, 1e-30}) {
        EXPECT_TRUE(Refuses(Binary64File{.SpacingX = spacing}.Whole(), "x limits 1 to ")) << spacing;
        EXPECT_TRUE(Refuses(Binary64File{.SpacingY = spacing}.Whole(), "y limits 10 to ")) << spacing;
    }
    EXPECT_TRUE(Refuses(Binary64File{.X = kNan}.Whole(), "x limits NAN to NAN don't rise"));
    EXPECT_TRUE(Refuses("DSAA 3 2 2 1 10 12 1 6 1 2 3 4 5 6", "x limits 2 to 1 don't rise"));
    EXPECT_TRUE(Refuses("DSAA 3 2 1 nan 10 12 1 6 1 2 3 4 5 6", "x limits 1 to NAN don't rise"));
}

TEST_F(GridFile, RefusesWhatItCanNotHold) {
    EXPECT_TRUE(Refuses(Binary64File{.Rotation = 30}.Whole(), "it is turned by 30 degrees"));
    EXPECT_TRUE(Refuses(Binary64File{.Rotation = kNan}.Whole(), "it is turned by NAN degrees"));
    EXPECT_TRUE(Refuses(Binary64File{.Version = 3}.Whole(), "its version 3 isn't known"));
    EXPECT_TRUE(Refuses(Binary64File{.Version = 0}.Whole(), "its version 0 isn't known"));
    EXPECT_TRUE(
        Refuses(Binary64File().Head() + Section("DATA", Numbers({1, 2, 3, 4, 5, 6})), "it has no GRID section"));
    EXPECT_TRUE(Refuses(Binary64File().Head() + Binary64File().GridSection(), "it has no DATA section"));
    EXPECT_TRUE(
        Refuses(Binary64File().Head() + Section("GRID", std::string(71, '\1')), "its GRID section is too short"));
}

TEST_F(GridFile, RefusesTextThatIsNotANumber) {
    EXPECT_TRUE(Refuses("DSAA 3 2 1 2 10 12 1 6 1 2 x 4 5 6", "\"x\" stands where a height should be"));
    EXPECT_TRUE(Refuses("DSAA 3 2 1 2 10 12 1 6 1 2,3 4 5 6 7", "\"2,3\" stands where a height should be"));
    EXPECT_TRUE(Refuses("DSAA 3 2 1 2 10 12 1 6 1 2 +-3 4 5 6", "\"+-3\" stands where a height should be"));
    EXPECT_TRUE(Refuses("DSAA 3 2 1 2 10 12 1 6 1 2 0x3 4 5 6", "\"0x3\" stands where a height should be"));
    EXPECT_TRUE(Refuses("DSAA 3 2 1 2 ten 12 1 6 1 2 3 4 5 6", "\"ten\" stands where the y minimum should be"));
    EXPECT_TRUE(Refuses("DSAAB 3 2 1 2 10 12 1 6 1 2 3 4 5 6", "\"B\" stands where the number of columns should be"));
}

TEST_F(GridFile, TellsMemoryThatIsMissing) {
    PutFile(folder_ / "in.grd",
            Binary64File{.Rows = 1000, .Columns = 1000, .Heights = std::string(8000000, '\0')}.Whole());
    setenv("CROWNLAB_MEMORY", "7000000", 1);
    EXPECT_TRUE(FailsWith(FailureKind::OutOfMemory, [&] { ReadGrid(folder_ / "in.grd"); }));
    unsetenv("CROWNLAB_MEMORY");
    EXPECT_EQ(ReadGrid(folder_ / "in.grd").Shape.Rows, 1000);
}

TEST_F(GridFile, RefusesToWriteWhatAFormatCanNotHold) {
    const Grid wide(GridGeometry{.Columns = 32768, .Rows = 2, .XMin = 0, .XMax = 1, .YMin = 0, .YMax = 1});
    Grid deep = HandMade();
    deep.Z[3] = -1e39;
    PutFile(folder_ / "out.grd", "old");
    EXPECT_TRUE(FailsWith(
        FailureKind::AutomationFailed, [&] { Written(wide, GridFormat::Binary32); },
        (folder_ / "out.grd") + ": 32768 columns and 2 rows don't fit a format of 16 bits"));
    EXPECT_TRUE(FailsWith(
        FailureKind::AutomationFailed, [&] { Written(deep, GridFormat::Binary32); },
        (folder_ / "out.grd") + ": a height of -1E+39 doesn't fit 32 bits"));
    EXPECT_EQ(FileBytes(folder_ / "out.grd"), "old");
    EXPECT_EQ(folder_.EntryCount(), 1U);
    ExpectSame(RoundTrip(wide, GridFormat::Binary64), wide);
    ExpectSame(RoundTrip(wide, GridFormat::AsciiGrid), wide);
    ExpectSame(RoundTrip(deep, GridFormat::AsciiGrid), deep);
    const Grid widest(GridGeometry{.Columns = 32767, .Rows = 2, .XMin = 0, .XMax = 1, .YMin = 0, .YMax = 1});
    ExpectSame(RoundTrip(widest, GridFormat::Binary32), widest);
}

/// Text forms written plainly, one node after the other.
std::string PlainNodeText(const Grid& grid) {
    std::string text;
    for (int row = 0; row < grid.Shape.Rows; ++row) {
        for (int column = 0; column < grid.Shape.Columns; ++column) {
            text += GeneralText(grid.Shape.X(column)) + " " + GeneralText(grid.Shape.Y(row)) + " " +
                    GeneralText(grid.At(column, row)) + "\r\n";
        }
    }
    return text;
}

TEST_F(GridFile, TextIsTheSameForAnyNumberOfThreads) {
    RandomNumbers random;
    // Rows that end inside the pieces made at once, and more pieces than are made in one go.
    Grid grid(GridGeometry{.Columns = 701, .Rows = 401, .XMin = -1, .XMax = 2, .YMin = 5, .YMax = 6});
    for (double& z : grid.Z) z = random.ShortDecimal();
    const std::string expected = PlainNodeText(grid);
    std::string ascii;
    for (const char* const threads : {"1", "2", "7"}) {
        setenv("CROWNLAB_THREADS", threads, 1);
        EXPECT_TRUE(Written(grid, GridFormat::NodeText) == expected) << threads;
        const std::string written = Written(grid, GridFormat::AsciiGrid);
        EXPECT_TRUE(ascii.empty() || written == ascii) << threads;
        ascii = written;
    }
    unsetenv("CROWNLAB_THREADS");
    ExpectSame(Read(ascii), grid);
}

TEST(GridFormats, AreNumberedByClass) {
    using enum GridFormat;
    EXPECT_EQ(DefaultFormat(EngineVersion::Six), Binary32);
    EXPECT_EQ(DefaultFormat(EngineVersion::Eight), Binary64);
    EXPECT_EQ(FormatOfNumber(EngineVersion::Six, 1), Binary32);
    EXPECT_EQ(FormatOfNumber(EngineVersion::Six, 2), AsciiGrid);
    EXPECT_EQ(FormatOfNumber(EngineVersion::Six, 3), NodeText);
    EXPECT_EQ(FormatOfNumber(EngineVersion::Eight, 1), Binary32);
    EXPECT_EQ(FormatOfNumber(EngineVersion::Eight, 2), AsciiGrid);
    EXPECT_EQ(FormatOfNumber(EngineVersion::Eight, 3), Binary64);
    EXPECT_EQ(FormatOfNumber(EngineVersion::Eight, 4), NodeText);
    for (const int number : {0, 4, -1}) {
        EXPECT_TRUE(FailsWith(
            FailureKind::AutomationFailed, [&] { FormatOfNumber(EngineVersion::Six, number); },
            "OutFmt " + std::to_string(number) + " stands for no format"));
    }
    EXPECT_TRUE(FailsWith(FailureKind::AutomationFailed, [] { FormatOfNumber(EngineVersion::Eight, 5); }));
}

}  // namespace
}  // namespace crownlab
