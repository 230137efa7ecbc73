// Colours are mixed in Oklab (B. Ottosson, "A perceptual color space for image processing", 2020), in which equal
// distances look equal.
#include "mapengine/height_colours.h"

#include <algorithm>
#include <cmath>
#include <span>
#include <vector>

namespace crownlab {
namespace {

struct Lab {
    double L = 0, A = 0, B = 0;
};

double ToLinear(std::uint8_t part) {
    const double share = part / 255.0;
    return share <= 0.04045 ? share / 12.92 : std::pow((share + 0.055) / 1.055, 2.4);
}

std::uint8_t FromLinear(double light) {
    const double share = light <= 0.0031308 ? 12.92 * light : 1.055 * std::pow(light, 1 / 2.4) - 0.055;
    return static_cast<std::uint8_t>(std::lround(255 * std::clamp(share, 0.0, 1.0)));
}

Lab ToLab(const MapColour& colour) {
    const double r = ToLinear(colour.Red), g = ToLinear(colour.Green), b = ToLinear(colour.Blue);
    const double l = std::cbrt(0.4122214708 * r + 0.5363325363 * g + 0.0514459929 * b);
    const double m = std::cbrt(0.2119034982 * r + 0.6806995451 * g + 0.1073969566 * b);
    const double s = std::cbrt(0.0883024619 * r + 0.2817188376 * g + 0.6299787005 * b);
    return {0.2104542553 * l + 0.7936177850 * m - 0.0040720468 * s,
            1.9779984951 * l - 2.4285922050 * m + 0.4505937099 * s,
            0.0259040371 * l + 0.7827717662 * m - 0.8086757660 * s};
}

double Cube(double value) { return value * value * value; }

MapColour FromLab(const Lab& lab) {
    const double l = Cube(lab.L + 0.3963377774 * lab.A + 0.2158037573 * lab.B);
    const double m = Cube(lab.L - 0.1055613458 * lab.A - 0.0638541728 * lab.B);
    const double s = Cube(lab.L - 0.0894841775 * lab.A - 1.2914855480 * lab.B);
    return {FromLinear(4.0767416621 * l - 3.3077115913 * m + 0.2309699292 * s),
            FromLinear(-1.2684380046 * l + 2.6097574011 * m - 0.3413193965 * s),
            FromLinear(-0.0041960863 * l - 0.7034186147 * m + 1.7076147010 * s)};
}

/// 256 colours over anchors that stand equally far apart. With `even` the lightness runs in a straight line.
PaletteTable Mix(std::span<const MapColour> anchors, bool even) {
    std::vector<Lab> labs;
    for (const MapColour& anchor : anchors) labs.push_back(ToLab(anchor));
    PaletteTable table;
    for (std::size_t i = 0; i < table.size(); ++i) {
        const double share = static_cast<double>(i) / (static_cast<double>(table.size()) - 1);
        const double place = share * (static_cast<double>(labs.size()) - 1);
        const std::size_t below = std::min(static_cast<std::size_t>(place), labs.size() - 2);
        const Lab &low = labs[below], &high = labs[below + 1];
        const double f = place - static_cast<double>(below);
        Lab lab{std::lerp(low.L, high.L, f), std::lerp(low.A, high.A, f), std::lerp(low.B, high.B, f)};
        if (even) lab.L = std::lerp(labs.front().L, labs.back().L, share);
        table[i] = FromLab(lab);
    }
    return table;
}

PaletteTable MakeTable(MapPalette palette) {
    // Nine colours of the palette that S. van der Walt and N. Smith gave into the public domain (2015).
    static constexpr std::array viridis{MapColour{68, 1, 84},    MapColour{71, 44, 122},  MapColour{59, 81, 139},
                                        MapColour{44, 113, 142}, MapColour{33, 144, 141}, MapColour{39, 173, 129},
                                        MapColour{92, 200, 99},  MapColour{170, 220, 50}, MapColour{253, 231, 37}};
    static constexpr std::array ivory{MapColour{41, 30, 24}, MapColour{112, 88, 68}, MapColour{196, 170, 134},
                                      MapColour{253, 248, 235}};
    static constexpr std::array grey{MapColour{16, 16, 16}, MapColour{248, 248, 248}};
    static constexpr std::array blueRed{MapColour{24, 68, 140}, MapColour{110, 160, 210}, MapColour{244, 242, 240},
                                        MapColour{222, 130, 104}, MapColour{150, 24, 38}};
    switch (palette) {
        case MapPalette::Viridis: return Mix(viridis, true);
        case MapPalette::Ivory: return Mix(ivory, true);
        case MapPalette::Grey: return Mix(grey, true);
        case MapPalette::BlueRed: return Mix(blueRed, false);
    }
    return {};
}

}  // namespace

std::string_view PaletteName(MapPalette palette) {
    switch (palette) {
        case MapPalette::Viridis: return "Violet to yellow";
        case MapPalette::Ivory: return "Brown to ivory";
        case MapPalette::Grey: return "Grey";
        case MapPalette::BlueRed: return "Blue, white, red";
    }
    return {};
}

const PaletteTable& PaletteColours(MapPalette palette) {
    static const std::array tables{MakeTable(MapPalette::Viridis), MakeTable(MapPalette::Ivory),
                                   MakeTable(MapPalette::Grey), MakeTable(MapPalette::BlueRed)};
    return tables[static_cast<std::size_t>(palette)];
}

MapColour HeightColour(const PaletteTable& table, const HeightRange& range, double z) {
    const double last = static_cast<double>(table.size()) - 1;
    const double share = range.High > range.Low ? (z - range.Low) / (range.High - range.Low) : 0.5;
    return table[static_cast<std::size_t>(std::lround(last * std::clamp(share, 0.0, 1.0)))];
}

double PerceivedLightness(const MapColour& colour) { return ToLab(colour).L; }

}  // namespace crownlab
