#include "forms/raster.h"

#include <gtest/gtest.h>

#include "basis/result_file.h"
#include "support/expect_failure.h"
#include "support/temp_folder.h"

namespace crownlab {
namespace {

std::string Bytes(std::initializer_list<int> values) {
    std::string bytes;
    for (const int value : values) bytes += static_cast<char>(value);
    return bytes;
}

TEST(SaveBitmap, WritesBottomRowFirstBlueGreenRedPaddedToFourBytes) {
    const TempFolder folder;
    FileTable files;
    Raster raster(2, 2, {.Red = 1, .Green = 2, .Blue = 3});
    raster.At(0, 0) = {.Red = 255, .Green = 0, .Blue = 0};
    raster.At(1, 1) = {.Red = 10, .Green = 20, .Blue = 30};
    SaveBitmap(files, raster, "a.bmp");
    const std::string header =
        Bytes({'B', 'M', 70, 0, 0,    0,    0, 0, 0,    0,    54, 0, 0, 0,                     // file
               40,  0,   0,  0, 2,    0,    0, 0, 2,    0,    0,  0, 1, 0, 24, 0, 0, 0, 0, 0,  // size, depth
               16,  0,   0,  0, 0xC4, 0x0E, 0, 0, 0xC4, 0x0E, 0,  0, 0, 0, 0,  0, 0, 0, 0, 0});
    const std::string bottom = Bytes({3, 2, 1, 30, 20, 10, 0, 0});
    const std::string top = Bytes({0, 0, 255, 3, 2, 1, 0, 0});
    EXPECT_EQ(FileBytes("a.bmp"), header + bottom + top);
}

TEST(SaveBitmap, NeedsNoPaddingAtAMultipleOfFourPixels) {
    const TempFolder folder;
    FileTable files;
    SaveBitmap(files, Raster(4, 3, {}), "a.bmp");
    EXPECT_EQ(FileBytes("a.bmp").size(), 54U + 4 * 3 * 3);
    SaveBitmap(files, Raster(5, 1, {}), "b.bmp");
    EXPECT_EQ(FileBytes("b.bmp").size(), 54U + 16);
}

TEST(SaveBitmap, RefusesAnEmptyRaster) {
    const TempFolder folder;
    FileTable files;
    EXPECT_TRUE(FailsWith(
        FailureKind::InvalidCall, [&] { SaveBitmap(files, Raster(), "a.bmp"); }, "a.bmp"));
    EXPECT_TRUE(FailsWith(FailureKind::InvalidCall, [&] { SaveBitmap(files, Raster(0, 5, {}), "a.bmp"); }));
    EXPECT_EQ(folder.EntryCount(), 0U);
}

TEST(SaveBitmap, RefusesMoreThanTheFormatCanCount) {
    FileTable files;
    // A raster that only claims to be that large: it is refused before a pixel is read.
    Raster raster(1, 1, {});
    raster.Width = 40000;
    raster.Height = 40000;
    EXPECT_TRUE(FailsWith(
        FailureKind::Overflow, [&] { SaveBitmap(files, raster, "a.bmp"); }, "a.bmp"));
}

TEST(PackedColour, PutsRedInTheLowestByte) {
    EXPECT_EQ(PackedColour({.Red = 255, .Green = 0, .Blue = 0}), 255U);
    EXPECT_EQ(PackedColour({.Red = 1, .Green = 2, .Blue = 3}), 1U + 2 * 256 + 3 * 65536);
}

}  // namespace
}  // namespace crownlab
