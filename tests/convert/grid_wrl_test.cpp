#include "convert/grid_wrl.h"

#include <gtest/gtest.h>

#include "basis/result_file.h"
#include "support/expect_failure.h"
#include "support/temp_folder.h"

namespace crownlab {
namespace {

constexpr double kBlank = 1.70141e38;

/// `cols` by `rows` nodes of height 1 at these spacings.
Lattice Flat(int cols, int rows, double xSpacing, double ySpacing) {
    Lattice lattice{.Cols = cols, .Rows = rows, .Nodes = {}};
    for (int j = 0; j < rows; ++j) {
        for (int i = 0; i < cols; ++i) lattice.Nodes.push_back({i * xSpacing, j * ySpacing, 1});
    }
    return lattice;
}

std::size_t Count(const std::string& text, const std::string& words) {
    std::size_t count = 0;
    for (std::size_t at = text.find(words); at != std::string::npos; at = text.find(words, at + 1)) ++count;
    return count;
}

TEST(NumberVertices, CountsRealNodesInFileOrder) {
    Lattice lattice = Flat(3, 2, 1, 1);
    lattice.At(2, 1).z = kBlank;
    lattice.At(1, 2).z = 1e38;
    lattice.At(2, 2).z = 9.9e37;
    EXPECT_EQ(NumberVertices(lattice), (std::vector<std::int16_t>{0, -1, 1, -1, 2, 3}));
}

TEST(NumberVertices, ThirtyTwoThousandSevenHundredSixtySevenAreTheMost) {
    // 128 by 256 nodes are 32,768.
    Lattice lattice = Flat(128, 256, 1, 1);
    EXPECT_TRUE(FailsWith(
        FailureKind::Overflow, [&] { NumberVertices(lattice); }, "number of vertices"));
    lattice.At(1, 1).z = kBlank;
    const std::vector<std::int16_t> numbers = NumberVertices(lattice);
    EXPECT_EQ(numbers.front(), -1);
    EXPECT_EQ(numbers.back(), 32766);
}

TEST(WriteGridWrl, OnlyTheSurfaceIsHeldToThatMany) {
    const TempFolder folder;
    FileTable files;
    Lattice lattice = Flat(128, 256, 1, 1);
    WrlOptions options{.Product = WrlProduct::SurfacePolygons, .Unit = DataUnit::Auto, .Subject = "a.grd"};
    EXPECT_TRUE(FailsWith(FailureKind::Overflow, [&] { WriteGridWrl(files, folder / "a.wrl", lattice, options); }));
    EXPECT_EQ(folder.EntryCount(), 0u);
    options.Product = WrlProduct::Polygons;
    WriteGridWrl(files, folder / "a.wrl", lattice, options);
    EXPECT_EQ(Count(FileBytes(folder / "a.wrl"), ", -1,\r\n"), 2u * 127 * 255);
    lattice.At(64, 100).z = kBlank;
    options.Product = WrlProduct::SurfacePolygons;
    WriteGridWrl(files, folder / "b.wrl", lattice, options);
    // The four cells around the blank node keep one of two triangles each; four stitches close the hole.
    EXPECT_EQ(Count(FileBytes(folder / "b.wrl"), ", -1,\r\n"), 2u * 127 * 255 - 8 + 4 + 4);
}

TEST(WriteGridWrl, FileSaysNothingOfMinusZero) {
    const TempFolder folder;
    FileTable files;
    Lattice lattice = Flat(2, 2, 1, 1);
    lattice.At(1, 1).z = -0.00004;
    for (const WrlProduct product : {WrlProduct::ElevationGrid, WrlProduct::Polygons, WrlProduct::SurfacePolygons}) {
        WriteGridWrl(files, folder / "a.wrl", lattice,
                     {.Product = product, .Unit = DataUnit::Auto, .Subject = "a.grd"});
        const std::string text = FileBytes(folder / "a.wrl");
        EXPECT_EQ(text.find("-0 "), std::string::npos);
        EXPECT_EQ(text.find("-0\r"), std::string::npos);
        EXPECT_EQ(Count(text, "\n"), Count(text, "\r\n"));
    }
}

TEST(FrameOf, ScaleGoesByTheUnitOrTheSpacing) {
    const auto scale = [](double spacing, DataUnit unit) { return FrameOf(Flat(2, 2, spacing, 5), unit).Scale; };
    EXPECT_EQ(scale(1, DataUnit::Auto), 10);
    EXPECT_EQ(scale(0.03, DataUnit::Auto), 10);
    EXPECT_EQ(scale(1.0001, DataUnit::Auto), 0.01);
    EXPECT_EQ(scale(30, DataUnit::Millimetres), 10);
    EXPECT_EQ(scale(0.03, DataUnit::Micrometres), 0.01);
}

TEST(FrameOf, ExtentsHaveThreeDecimals) {
    Lattice lattice = Flat(4, 3, 0.03, 0.04375);
    lattice.At(4, 3).z = 1.03125;
    const WrlFrame frame = FrameOf(lattice, DataUnit::Auto);
    EXPECT_DOUBLE_EQ(frame.XExtent, 0.9);
    EXPECT_DOUBLE_EQ(frame.YExtent, 0.875);
    EXPECT_DOUBLE_EQ(frame.ZExtent, 0.312);  // 0.3125 goes to the even digit
}

TEST(FrameOf, LowestHeightCountsBlanksAndHighestDoesNot) {
    Lattice lattice = Flat(2, 2, 1, 1);
    lattice.At(1, 1).z = kBlank;
    EXPECT_EQ(FrameOf(lattice, DataUnit::Auto).ZMax, 1);
    for (CloudPoint& node : lattice.Nodes) node.z = kBlank;
    const WrlFrame frame = FrameOf(lattice, DataUnit::Auto);
    EXPECT_EQ(frame.ZMin, 1'000'000);
    EXPECT_EQ(frame.ZMax, -1'000'000);
}

TEST(FrameOf, NeedsTwoColumnsAndRows) {
    EXPECT_TRUE(FailsWith(FailureKind::SubscriptOutOfRange, [] { FrameOf(Flat(1, 4, 1, 1), DataUnit::Auto); }));
    EXPECT_TRUE(FailsWith(FailureKind::SubscriptOutOfRange, [] { FrameOf(Flat(4, 1, 1, 1), DataUnit::Auto); }));
}

}  // namespace
}  // namespace crownlab
