#include "forms/raster.h"

#include "basis/failure.h"
#include "basis/result_file.h"

namespace crownlab {
namespace {

constexpr int kFileHeaderSize = 14;
constexpr int kInfoHeaderSize = 40;
/// 96 dots an inch, what a screen is taken to have.
constexpr std::uint32_t kPixelsPerMetre = 3780;

void AppendLittleEndian(std::string& bytes, std::uint32_t value, int size) {
    for (int i = 0; i < size; ++i) bytes += static_cast<char>((value >> (8 * i)) & 0xFF);
}

std::string BitmapHeader(int width, int height, std::uint32_t imageSize) {
    std::string header = "BM";
    AppendLittleEndian(header, kFileHeaderSize + kInfoHeaderSize + imageSize, 4);
    AppendLittleEndian(header, 0, 4);
    AppendLittleEndian(header, kFileHeaderSize + kInfoHeaderSize, 4);
    AppendLittleEndian(header, kInfoHeaderSize, 4);
    AppendLittleEndian(header, static_cast<std::uint32_t>(width), 4);
    AppendLittleEndian(header, static_cast<std::uint32_t>(height), 4);
    AppendLittleEndian(header, 1, 2);   // planes
    AppendLittleEndian(header, 24, 2);  // bits a pixel
    AppendLittleEndian(header, 0, 4);   // no compression
    AppendLittleEndian(header, imageSize, 4);
    AppendLittleEndian(header, kPixelsPerMetre, 4);
    AppendLittleEndian(header, kPixelsPerMetre, 4);
    AppendLittleEndian(header, 0, 4);  // no palette
    AppendLittleEndian(header, 0, 4);
    return header;
}

}  // namespace

Raster::Raster(int width, int height, Colour fill)
    : Width(width), Height(height), Pixels(static_cast<std::size_t>(width) * static_cast<std::size_t>(height), fill) {}

void SaveBitmap(FileTable& files, const Raster& raster, const std::string& path) {
    if (raster.Pixels.empty()) throw Failure(FailureKind::InvalidCall, "no picture to save as " + path);
    const std::uint64_t rowSize = (static_cast<std::uint64_t>(raster.Width) * 3 + 3) / 4 * 4;
    const std::uint64_t imageSize = rowSize * static_cast<std::uint64_t>(raster.Height);
    if (imageSize > 0xFFFFFF00u) throw Failure(FailureKind::Overflow, "picture too large for a bitmap: " + path);

    ResultFile file(files, path);
    file.Write(BitmapHeader(raster.Width, raster.Height, static_cast<std::uint32_t>(imageSize)));
    std::string row(rowSize, '\0');
    for (int y = raster.Height - 1; y >= 0; --y) {
        for (int x = 0; x < raster.Width; ++x) {
            const Colour c = raster.At(x, y);
            const std::size_t at = static_cast<std::size_t>(x) * 3;
            row[at] = static_cast<char>(c.Blue);
            row[at + 1] = static_cast<char>(c.Green);
            row[at + 2] = static_cast<char>(c.Red);
        }
        file.Write(row);
    }
    file.Commit();
}

}  // namespace crownlab
