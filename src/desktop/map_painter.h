#pragma once

#include <QColor>
#include <QImage>
#include <QMarginsF>
#include <QPointF>
#include <QRectF>
#include <vector>

#include "mapengine/contour_lines.h"
#include "mapengine/grid.h"
#include "mapengine/height_colours.h"
#include "mapengine/relief_shading.h"

class QFontMetricsF;
class QPainter;

namespace crownlab {

// Maps drawn with a QPainter, on the screen, on paper and into files alike. All lengths are in the painter's own units;
// `unit` is how long a thin line is wide in them (1 on a screen). Texts have the painter's font.

/// Where a map lies on the painted surface: x to the right, y up.
struct MapTransform {
    QPointF Origin;  ///< where the map position (X0, Y0) lies
    double X0 = 0;   ///< map units
    double Y0 = 0;
    double ScaleX = 1;  ///< painter's units for one map unit
    double ScaleY = 1;

    QPointF ToView(double x, double y) const {
        return {Origin.x() + (x - X0) * ScaleX, Origin.y() - (y - Y0) * ScaleY};
    }
    QPointF ToView(const PlanePoint& at) const { return ToView(at.x, at.y); }
    PlanePoint ToMap(QPointF at) const {
        return {X0 + (at.x() - Origin.x()) / ScaleX, Y0 + (Origin.y() - at.y()) / ScaleY};
    }
};

/// The whole map in the middle of `area`, as large as it fits, both axes to the same scale.
MapTransform FitMap(const GridGeometry& shape, const QRectF& area);
/// The rectangle between the limits of a grid.
QRectF MapRect(const MapTransform& transform, const GridGeometry& shape);

/// A grid as a picture, a pixel a node, with smaller copies of it for small scales. Blank nodes are transparent.
class MapImage {
public:
    MapImage() = default;
    /// `nodes` has a pixel for each node, the highest row first.
    MapImage(QImage nodes, const GridGeometry& shape);

    bool IsNull() const { return levels_.empty(); }
    /// Paints what lies in `clip`, smooth between the nodes, up to the grid's limits.
    void Paint(QPainter& painter, const MapTransform& transform, const QRectF& clip) const;

private:
    GridGeometry shape_;
    std::vector<QImage> levels_;  ///< each half as large as the one before
};

/// Light and shadow in the colours of a palette from dark to light.
MapImage ReliefImage(const Grid& grid, const ReliefLight& light, MapPalette palette = MapPalette::Ivory);
/// Heights in the colours of a palette; `range` has the heights of its ends.
MapImage HeightImage(const Grid& grid, const HeightRange& range, MapPalette palette);

struct ContourStyle {
    QColor Line = QColor(90, 62, 40);
    QColor Halo = QColor(255, 255, 255);  ///< behind the numbers
    bool Numbers = true;                  ///< levels written into lines that are long enough
};
/// Lines of equal height that touch `clip`. Every fifth level, by its number among round ones, is drawn stronger.
/// `levels` are those of the lines.
void PaintContours(QPainter& painter, const MapTransform& transform, const QRectF& clip,
                   const std::vector<ContourLine>& lines, const std::vector<double>& levels, const ContourStyle& style,
                   double unit);

/// Room that the numbers of axes need around a frame of that map.
QMarginsF AxesMargins(const QFontMetricsF& metrics, const GridGeometry& shape, double unit);
/// A frame with ticks at round numbers outside its left and lower edge, and their numbers.
void PaintAxes(QPainter& painter, const MapTransform& transform, const QRectF& frame, const QColor& ink, double unit);

/// A bar of a round length of at most `most` (painter's units), its right end at `rightEnd`, with its length in map
/// units above it. Returns the rectangle that it takes.
QRectF PaintScaleBar(QPainter& painter, const MapTransform& transform, QPointF rightEnd, double most, const QColor& ink,
                     double unit);

/// A standing bar of colours with numbers at round heights right of it. `bar` is without the numbers.
void PaintColourBar(QPainter& painter, const QRectF& bar, const HeightRange& range, MapPalette palette,
                    const QColor& ink, double unit);
/// Width of the numbers beside such a bar, with the gap before them.
double ColourBarNumbersWidth(const QFontMetricsF& metrics, const QRectF& bar, const HeightRange& range, double unit);

/// The light of a relief that is to be read as a form: from above left, the shade not black.
inline constexpr ReliefLight kMapLight{.Softness = 0.45};

/// What is drawn of a grid.
enum class MapView { Relief, Image, Contours };
struct MapPicture {
    MapView Kind = MapView::Relief;
    ReliefLight Light = kMapLight;
    MapPalette Palette = MapPalette::Viridis;  ///< of the image; a relief is ivory
    std::vector<double> Levels{};              ///< of contours; none: about a dozen round ones
    bool Axes = true;
    bool ScaleBar = false;
    bool ColourBar = false;  ///< beside an image
    QColor Ink = QColor(40, 40, 40);
    double Unit = 1;
};
/// A whole map with what belongs to it, as large as it fits into `area`. Returns where the grid's limits lie.
QRectF PaintMap(QPainter& painter, const QRectF& area, const Grid& grid, const MapPicture& picture);

}  // namespace crownlab
