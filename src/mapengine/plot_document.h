#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <variant>
#include <vector>

#include "mapengine/grid.h"

namespace crownlab {

/// The page on which a map starts, in page units (centimetres); y runs up. Sheets of many maps go far beyond it.
inline constexpr double kPageWidth = 21.59;
inline constexpr double kPageHeight = 27.94;
/// Longer side of a map that nobody has placed yet.
inline constexpr double kMapSide = 15;

enum class MapKind { Contour, Image, Relief, Surface };

/// Style of one axis of a map.
///
///        2 top
///      +-------+
///   3  |       |  4        5: the height axis of a 3D surface
/// left +-------+ right
///       1 bottom
struct MapAxis {
    bool ShowLabels = true;
    int MajorTickType = 2;            ///< 1 none, 2 outside, 3 inside, 4 across
    std::string LineStyle = "Solid";  ///< or "Invisible"
};

/// A bar of cycles that are dark and light in turn, with numbers below it. Lengths in map units.
struct ScaleBar {
    double CycleSpacing = 1;    ///< length of one cycle, above 0
    double LabelIncrement = 1;  ///< what the numbers rise by from cycle to cycle
    int NumCycles = 4;          ///< 1 or more
};

/// How a map shows its grid. Each kind uses its own part of it.
struct MapLayer {
    // Relief maps: where the light stands, in degrees.
    double HLightAngle = 135;  ///< counter-clockwise from +x
    double VLightAngle = 45;   ///< above the horizon
    // Contour and image maps and 3D surfaces.
    bool ShowColorScale = false;
    // 3D surfaces. Degrees.
    double LightAzimuth = 135;  ///< counter-clockwise from +x
    double LightZenith = 45;    ///< above the horizon
    int ViewProjection = 1;     ///< 1 perspective, 2 orthographic
    double ViewRotation = 45;   ///< about the height axis
    double ViewTilt = 30;       ///< 0 from the side, 90 from above
    /// Map units that one page unit shows, along x (y alike) and along z. Above 0.
    double XMapPerPU = 1;
    double ZMapPerPU = 1;
    friend bool operator==(const MapLayer&, const MapLayer&) = default;
};

/// A map on a page: its rectangle has its upper left corner at (Left, Top).
struct PlotMap {
    MapKind Kind = MapKind::Contour;
    std::string ObjectName;    ///< empty if it has none
    std::string GridFilename;  ///< as the call named it; the file may be gone or changed since
    GridGeometry Shape;        ///< of the grid in the file when the map was made
    HeightRange Heights;       ///< likewise, of all its nodes
    /// The heights to draw: the grid, or of a large one every n-th row and column, whose last ones then may end short
    /// of the limits in `Shape`. Never nullptr.
    std::shared_ptr<const Grid> Nodes;
    double Left = 0;
    double Top = 0;
    double XLength = 0;
    double YLength = 0;
    MapLayer Layer;
    std::array<MapAxis, 5> Axes;  ///< 1 to 5 in the drawing above, from index 0 here; the fifth for surfaces only
    std::vector<ScaleBar> ScaleBars;
};

/// Where the point of a text lies in it.
struct TextFont {
    int HAlign = 1;  ///< 1 left, 2 middle, 3 right
    int VAlign = 4;  ///< 4 top, 5 middle, 6 bottom
};

struct PlotText {
    std::string ObjectName;  ///< empty if it has none
    double X = 0;
    double Y = 0;
    std::string Text;
    TextFont Font;  ///< the document's default at the time when the text was added
};

using PlotShape = std::variant<PlotMap, PlotText>;

/// A page with maps and texts, as the front end draws it.
struct PlotDocument {
    std::string Name;
    std::vector<PlotShape> Shapes;  ///< later ones lie over earlier ones
    TextFont DefaultFont;
    std::vector<std::size_t> Selection;  ///< indices of the selected shapes
    /// Grows with every change.
    std::uint64_t Changes = 0;
    /// False once it was closed; a front end that holds it still may read it.
    bool IsOpen = true;
};

/// A map of the grid in the middle of the page. `path` is what the map calls it.
PlotMap MakeMap(MapKind kind, const std::string& path, const Grid& grid);

/// A scale bar of round lengths that fits the map.
ScaleBar MakeScaleBar(const PlotMap& map);

}  // namespace crownlab
