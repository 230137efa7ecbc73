#pragma once

#include <array>
#include <cstdint>
#include <string_view>

#include "mapengine/grid.h"

namespace crownlab {

/// A colour as screens and pictures have it (sRGB).
struct MapColour {
    std::uint8_t Red = 0;
    std::uint8_t Green = 0;
    std::uint8_t Blue = 0;
    friend bool operator==(const MapColour&, const MapColour&) = default;
};

/// Runs of colours from low to high. All but the last grow lighter evenly, so that equal steps of height look equal, in
/// black and white too and for eyes that don't tell red from green.
enum class MapPalette {
    Viridis,  ///< violet, blue, green, yellow
    Ivory,    ///< brown to ivory, as relief is drawn
    Grey,
    BlueRed,  ///< blue, white in the middle, red: for differences
};
inline constexpr std::array kMapPalettes{MapPalette::Viridis, MapPalette::Ivory, MapPalette::Grey, MapPalette::BlueRed};

/// The name of a palette as a person reads it.
std::string_view PaletteName(MapPalette palette);

/// 256 colours from low to high.
using PaletteTable = std::array<MapColour, 256>;
const PaletteTable& PaletteColours(MapPalette palette);

/// The colour of a height between `range.Low` and `range.High`, of which what lies beyond takes the end's. The middle
/// colour where both are equal. `z` isn't blank.
MapColour HeightColour(const PaletteTable& table, const HeightRange& range, double z);

/// Lightness of a colour as the eye has it, 0 black to 1 white (L of Oklab).
double PerceivedLightness(const MapColour& colour);

}  // namespace crownlab
