#include "mapengine/plot_document.h"

#include <algorithm>
#include <cmath>
#include <cstddef>

namespace crownlab {
namespace {

/// More nodes than a page can show; a sheet of fifty maps stays within a few hundred megabytes.
constexpr std::size_t kMostNodes = 1'000'000;

/// Every n-th node from the first one.
int CountThinned(int nodes, int step) { return (nodes - 1) / step + 1; }

/// The grid, or as many of its rows and columns as `kMostNodes` allows.
std::shared_ptr<const Grid> NodesToDraw(const Grid& grid) {
    const GridGeometry& shape = grid.Shape;
    if (shape.Nodes() <= kMostNodes) return std::make_shared<const Grid>(grid);
    const double excess = static_cast<double>(shape.Nodes()) / static_cast<double>(kMostNodes);
    const int step = static_cast<int>(std::ceil(std::sqrt(excess)));
    // A side that is short itself keeps all its nodes.
    const int stepX = std::min(step, shape.Columns - 1);
    const int stepY = std::min(step, shape.Rows - 1);
    GridGeometry thin{.Columns = CountThinned(shape.Columns, stepX), .Rows = CountThinned(shape.Rows, stepY)};
    thin.XMin = shape.XMin;
    thin.YMin = shape.YMin;
    thin.XMax = shape.X((thin.Columns - 1) * stepX);
    thin.YMax = shape.Y((thin.Rows - 1) * stepY);
    auto nodes = std::make_shared<Grid>(thin);
    for (int row = 0; row < thin.Rows; ++row) {
        for (int column = 0; column < thin.Columns; ++column) {
            nodes->At(column, row) = grid.At(column * stepX, row * stepY);
        }
    }
    return nodes;
}

/// A round length of about a tenth of `side`: 1, 2 or 5 times a power of ten.
double RoundLength(double side) {
    const double tenth = side / 10;
    const double power = std::pow(10.0, std::floor(std::log10(tenth)));
    if (!(power > 0) || !std::isfinite(power)) return tenth;
    const double leading = tenth / power;
    return power * (leading < 2 ? 1 : leading < 5 ? 2 : 5);
}

void ScaleSurface(PlotMap& map) {
    constexpr double heightOnPage = kMapSide / 4;
    map.Layer.XMapPerPU = std::max(map.Shape.XMax - map.Shape.XMin, map.Shape.YMax - map.Shape.YMin) / kMapSide;
    const double range = map.Heights.High - map.Heights.Low;
    map.Layer.ZMapPerPU = range > 0 && std::isfinite(range) ? range / heightOnPage : map.Layer.XMapPerPU;
}

}  // namespace

PlotMap MakeMap(MapKind kind, const std::string& path, const Grid& grid) {
    PlotMap map;
    map.Kind = kind;
    map.GridFilename = path;
    map.Shape = grid.Shape;
    map.Heights = Heights(grid);
    map.Nodes = NodesToDraw(grid);
    const double width = grid.Shape.XMax - grid.Shape.XMin;
    const double height = grid.Shape.YMax - grid.Shape.YMin;
    map.XLength = width >= height ? kMapSide : kMapSide * (width / height);
    map.YLength = height >= width ? kMapSide : kMapSide * (height / width);
    map.Left = kPageWidth / 2 - map.XLength / 2;
    map.Top = kPageHeight / 2 + map.YLength / 2;
    // Labels stand below and to the left; above and to the right there are only ticks.
    map.Axes[1].ShowLabels = false;
    map.Axes[3].ShowLabels = false;
    ScaleSurface(map);
    return map;
}

ScaleBar MakeScaleBar(const PlotMap& map) {
    const double length = RoundLength(map.Shape.XMax - map.Shape.XMin);
    return {.CycleSpacing = length, .LabelIncrement = length, .NumCycles = 4};
}

}  // namespace crownlab
