#include "mapengine/height_colours.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <set>
#include <string>

namespace crownlab {
namespace {

TEST(Palettes, GrowLighterEvenly) {
    for (const MapPalette palette : {MapPalette::Viridis, MapPalette::Ivory, MapPalette::Grey}) {
        const PaletteTable& table = PaletteColours(palette);
        const double first = PerceivedLightness(table.front()), last = PerceivedLightness(table.back());
        EXPECT_GT(last - first, 0.55) << PaletteName(palette);
        for (std::size_t i = 0; i < table.size(); ++i) {
            // Rounding to eight bits, and colours that a screen can't show, take a little off the line.
            const double wanted = first + (last - first) * static_cast<double>(i) / 255;
            EXPECT_NEAR(PerceivedLightness(table[i]), wanted, 0.02) << PaletteName(palette) << " " << i;
        }
    }
}

TEST(Palettes, OfDifferencesAreLightInTheMiddle) {
    const PaletteTable& table = PaletteColours(MapPalette::BlueRed);
    EXPECT_GT(table[0].Blue, table[0].Red + 60);
    EXPECT_GT(table[255].Red, table[255].Blue + 60);
    for (std::size_t i = 0; i < 127; ++i) {
        EXPECT_LE(PerceivedLightness(table[i]), PerceivedLightness(table[i + 1]) + 0.005) << i;
        EXPECT_LE(PerceivedLightness(table[255 - i]), PerceivedLightness(table[254 - i]) + 0.005) << i;
    }
}

TEST(Palettes, HaveNoJumps) {
    for (const MapPalette palette : kMapPalettes) {
        const PaletteTable& table = PaletteColours(palette);
        for (std::size_t i = 0; i + 1 < table.size(); ++i) {
            EXPECT_LE(std::abs(table[i].Red - table[i + 1].Red), 8);
            EXPECT_LE(std::abs(table[i].Green - table[i + 1].Green), 8);
            EXPECT_LE(std::abs(table[i].Blue - table[i + 1].Blue), 8);
        }
    }
}

TEST(Palettes, HaveNamesOfTheirOwn) {
    std::set<std::string> names;
    for (const MapPalette palette : kMapPalettes) names.emplace(PaletteName(palette));
    EXPECT_EQ(names.size(), kMapPalettes.size());
    EXPECT_EQ(names.count(""), 0u);
}

TEST(Palettes, StartAndEndWithTheirAnchors) {
    EXPECT_EQ(PaletteColours(MapPalette::Viridis).front(), (MapColour{68, 1, 84}));
    EXPECT_EQ(PaletteColours(MapPalette::Viridis).back(), (MapColour{253, 231, 37}));
    EXPECT_EQ(PaletteColours(MapPalette::Grey).front(), (MapColour{16, 16, 16}));
    EXPECT_NEAR(PerceivedLightness({255, 255, 255}), 1, 1e-6);
    EXPECT_NEAR(PerceivedLightness({0, 0, 0}), 0, 1e-6);
}

TEST(HeightColours, GoFromEndToEnd) {
    const PaletteTable& table = PaletteColours(MapPalette::Viridis);
    const HeightRange range{.Low = -2, .High = 6};
    EXPECT_EQ(HeightColour(table, range, -2), table[0]);
    EXPECT_EQ(HeightColour(table, range, 6), table[255]);
    EXPECT_EQ(HeightColour(table, range, 0), table[64]);
    EXPECT_EQ(HeightColour(table, range, -100), table[0]);
    EXPECT_EQ(HeightColour(table, range, 1e30), table[255]);
    EXPECT_EQ(HeightColour(table, {.Low = 3, .High = 3}, 3), table[128]) << "a level surface";
}

}  // namespace
}  // namespace crownlab
