#include "desktop/plot_surface_painter.h"

#include <QPainter>
#include <QPolygonF>
#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>
#include <vector>

#include "desktop/map_painter.h"
#include "desktop/plot_surface_view.h"
#include "mapengine/plot_document.h"

namespace crownlab {
namespace {

/// Light that comes from all around; the lamp gives the rest, and reaches round into the shade as that of a relief.
constexpr double kAmbient = 0.2;
constexpr double kSoftness = kMapLight.Softness;

const QColor kMeshColour(0, 0, 0, 70);

/// Three numbers along x, y and z.
struct Direction {
    double X;
    double Y;
    double Z;
};

Direction TowardsLight(const MapLayer& layer) {
    const double azimuth = layer.LightAzimuth * std::numbers::pi / 180;
    const double height = layer.LightZenith * std::numbers::pi / 180;
    return {std::cos(height) * std::cos(azimuth), std::cos(height) * std::sin(azimuth), std::sin(height)};
}

/// Every n-th of `count` nodes and the last one, so that there are no more than about `most` cells.
std::vector<int> Lines(int count, int step) {
    std::vector<int> lines;
    for (int i = 0; i < count - 1; i += step) lines.push_back(i);
    lines.push_back(count - 1);
    return lines;
}

QRgb Shaded(const MapColour& colour, double light) {
    const auto part = [light](int channel) { return static_cast<int>(std::lround(channel * light)); };
    return qRgb(part(colour.Red), part(colour.Green), part(colour.Blue));
}

/// The nodes that are drawn, projected, and what the colour of a cell is reckoned from.
class Mesh {
public:
    Mesh(const PlotMap& map, const SurfaceView& view, const PaletteTable& colours, const SurfaceDetail& detail)
        : map_(map),
          grid_(*map.Nodes),
          colours_(colours),
          light_(TowardsLight(map.Layer)),
          meshPen_(kMeshColour, detail.MeshWidth) {
        const int longer = std::max(grid_.Shape.Columns, grid_.Shape.Rows) - 1;
        const int step = std::max(1, (longer + detail.MostCells - 1) / std::max(1, detail.MostCells));
        columns_ = Lines(grid_.Shape.Columns, step);
        rows_ = Lines(grid_.Shape.Rows, step);
        const int cells = (longer + step - 1) / step;
        if (detail.MeshLines > 0) meshStep_ = std::max(1, (cells + detail.MeshLines - 1) / detail.MeshLines);
        for (const int column : columns_) x_.push_back(Share(grid_.Shape.X(column), map.Shape.XMin, map.Shape.XMax));
        for (const int row : rows_) y_.push_back(Share(grid_.Shape.Y(row), map.Shape.YMin, map.Shape.YMax));
        Project(view);
    }

    const std::vector<double>& XShares() const { return x_; }
    const std::vector<double>& YShares() const { return y_; }

    void DrawCell(QPainter& painter, int column, int row) const {
        std::array<QPointF, 4> corners;
        int number = 0;
        int blankCorner = -1;
        for (int i = 0; i < 4; ++i) {
            const std::size_t node = Node(column + kRound[i].Column, row + kRound[i].Row);
            if (IsBlank(heights_[node])) {
                blankCorner = i;
            } else {
                corners[static_cast<std::size_t>(number++)] = places_[node];
            }
        }
        if (number < 3) return;
        painter.setPen(Qt::NoPen);
        painter.setBrush(QColor::fromRgb(CellColour(column, row, number == 3 ? blankCorner : -1)));
        painter.drawConvexPolygon(corners.data(), number);
        DrawMesh(painter, column, row);
    }

private:
    struct Corner {
        int Column;
        int Row;
    };
    /// Corners of a cell, counter-clockwise from its lower left one.
    static constexpr std::array<Corner, 4> kRound{{{0, 0}, {1, 0}, {1, 1}, {0, 1}}};

    static double Share(double at, double low, double high) { return (at - low) / (high - low); }

    std::size_t Node(int column, int row) const {
        return static_cast<std::size_t>(row) * columns_.size() + static_cast<std::size_t>(column);
    }

    void Project(const SurfaceView& view) {
        const double range = map_.Heights.High - map_.Heights.Low;
        for (std::size_t row = 0; row < rows_.size(); ++row) {
            for (std::size_t column = 0; column < columns_.size(); ++column) {
                const double z = grid_.At(columns_[column], rows_[row]);
                const double share = IsBlank(z) || !(range > 0) ? 0.5 : (z - map_.Heights.Low) / range;
                heights_.push_back(z);
                shares_.push_back(share);
                places_.push_back(view.Place(x_[column], y_[row], share));
            }
        }
    }

    /// The height of a corner in page units; a blank one lies in the plane of the three others.
    double CornerHeight(int column, int row, int corner, int blankCorner) const {
        if (corner != blankCorner) {
            const Corner& at = kRound[static_cast<std::size_t>(corner)];
            return heights_[Node(column + at.Column, row + at.Row)] / map_.Layer.ZMapPerPU;
        }
        return CornerHeight(column, row, (corner + 1) % 4, -1) + CornerHeight(column, row, (corner + 3) % 4, -1) -
               CornerHeight(column, row, (corner + 2) % 4, -1);
    }

    QRgb CellColour(int column, int row, int blankCorner) const {
        std::array<double, 4> z{};
        for (int i = 0; i < 4; ++i) z[static_cast<std::size_t>(i)] = CornerHeight(column, row, i, blankCorner);
        const auto at = [](const std::vector<double>& shares, int i) { return shares[static_cast<std::size_t>(i)]; };
        const double width = (at(x_, column + 1) - at(x_, column)) * map_.XLength;
        const double depth = (at(y_, row + 1) - at(y_, row)) * map_.YLength;
        const double east = (z[1] + z[2] - z[0] - z[3]) / (2 * width);
        const double north = (z[3] + z[2] - z[0] - z[1]) / (2 * depth);
        const double cosine =
            (light_.Z - east * light_.X - north * light_.Y) / std::sqrt(1 + east * east + north * north);
        // Where heights are too far apart for the arithmetic, the cell stands upright and in the dark.
        const double lit = std::isfinite(cosine) ? std::clamp((cosine + kSoftness) / (1 + kSoftness), 0.0, 1.0) : 0;
        const HeightRange shares{.Low = 0, .High = 1};
        return Shaded(HeightColour(colours_, shares, MeanShare(column, row)), kAmbient + (1 - kAmbient) * lit);
    }

    double MeanShare(int column, int row) const {
        double sum = 0;
        int number = 0;
        for (const Corner& corner : kRound) {
            const std::size_t node = Node(column + corner.Column, row + corner.Row);
            if (IsBlank(heights_[node])) continue;
            sum += shares_[node];
            ++number;
        }
        return sum / number;
    }

    bool IsOnMesh(int line, std::size_t lines) const {
        return line % meshStep_ == 0 || static_cast<std::size_t>(line) + 1 == lines;
    }

    void DrawMesh(QPainter& painter, int column, int row) const {
        if (meshStep_ == 0) return;
        painter.setPen(meshPen_);
        for (const int next : {row, row + 1}) {
            if (IsOnMesh(next, rows_.size())) DrawEdge(painter, Node(column, next), Node(column + 1, next));
        }
        for (const int next : {column, column + 1}) {
            if (IsOnMesh(next, columns_.size())) DrawEdge(painter, Node(next, row), Node(next, row + 1));
        }
    }

    void DrawEdge(QPainter& painter, std::size_t from, std::size_t to) const {
        if (!IsBlank(heights_[from]) && !IsBlank(heights_[to])) painter.drawLine(places_[from], places_[to]);
    }

    const PlotMap& map_;
    const Grid& grid_;
    const PaletteTable& colours_;
    Direction light_;
    QPen meshPen_;
    int meshStep_ = 0;
    std::vector<int> columns_;
    std::vector<int> rows_;
    std::vector<double> x_;
    std::vector<double> y_;
    std::vector<double> heights_;
    std::vector<double> shares_;
    std::vector<QPointF> places_;
};

}  // namespace

void DrawSurface(QPainter& painter, const PlotMap& map, const SurfaceView& view, const PaletteTable& colours,
                 const SurfaceDetail& detail) {
    const Mesh mesh(map, view, colours, detail);
    const std::vector<int> columns = FarToNear(mesh.XShares(), view.EyeX());
    const std::vector<int> rows = FarToNear(mesh.YShares(), view.EyeY());
    for (const int row : rows) {
        for (const int column : columns) mesh.DrawCell(painter, column, row);
    }
}

}  // namespace crownlab
