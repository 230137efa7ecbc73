#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace crownlab {

class FileTable;

/// Red, green, blue, each 0 to 255.
struct Colour {
    std::uint8_t Red = 0;
    std::uint8_t Green = 0;
    std::uint8_t Blue = 0;
    friend bool operator==(const Colour&, const Colour&) = default;
};

/// Red + 256 green + 65536 blue.
constexpr std::uint32_t PackedColour(Colour c) { return c.Red + 256u * c.Green + 65536u * c.Blue; }

/// A picture of Width by Height pixels, row 0 on top.
struct Raster {
    Raster() = default;
    Raster(int width, int height, Colour fill);

    int Width = 0;
    int Height = 0;
    std::vector<Colour> Pixels;  ///< row after row from the top

    Colour& At(int x, int y) { return Pixels[Offset(x, y)]; }
    const Colour& At(int x, int y) const { return Pixels[Offset(x, y)]; }
    /// First pixel of row y.
    Colour* Row(int y) { return Pixels.data() + Offset(0, y); }

private:
    std::size_t Offset(int x, int y) const {
        return static_cast<std::size_t>(y) * static_cast<std::size_t>(Width) + static_cast<std::size_t>(x);
    }
};

/// Writes a 24-bit Windows bitmap (BMP, bottom row first, rows padded to four bytes). A raster without
/// pixels is InvalidCall.
void SaveBitmap(FileTable& files, const Raster& raster, const std::string& path);

}  // namespace crownlab
