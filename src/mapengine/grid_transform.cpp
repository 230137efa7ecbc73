#include "mapengine/grid_transform.h"

#include <algorithm>
#include <cmath>
#include <cstddef>

#include "basis/number_text.h"
#include "mapengine/engine_call.h"

namespace crownlab {
namespace {

/// A quarter counter-clockwise: the lower row becomes the right column.
///
///     y                   y
///     c d                 d b
///     a b  x      ->      c a  x
Grid QuarterTurn(const Grid& grid) {
    const GridGeometry& from = grid.Shape;
    GridGeometry shape = from;
    shape.Columns = from.Rows;
    shape.Rows = from.Columns;
    shape.XMax = from.XMin + (from.YMax - from.YMin);
    shape.YMax = from.YMin + (from.XMax - from.XMin);
    Grid turned(shape);
    // In tiles, so that neither grid is walked across its rows from one end to the other.
    constexpr int tile = 64;
    for (int firstRow = 0; firstRow < from.Rows; firstRow += tile) {
        const int lastRow = std::min(firstRow + tile, from.Rows);
        for (int column = 0; column < from.Columns; ++column) {
            for (int row = firstRow; row < lastRow; ++row)
                turned.At(from.Rows - 1 - row, column) = grid.At(column, row);
        }
    }
    return turned;
}

}  // namespace

void OffsetLimits(Grid& grid, double alongX, double alongY) {
    GridGeometry& shape = grid.Shape;
    shape.XMin += alongX;
    shape.XMax += alongX;
    shape.YMin += alongY;
    shape.YMax += alongY;
    RequireGeometry(shape);
}

Grid TurnGrid(Grid grid, double degrees) {
    const double rest = std::fmod(degrees, 360);
    if (std::fmod(rest, 90) != 0) FailCall("a grid can't be turned by " + GeneralText(degrees) + " degrees");
    const int quarters = (static_cast<int>(rest / 90) + 4) % 4;
    if (quarters % 2 == 1) grid = QuarterTurn(grid);
    // Half a turn, or half a turn more.
    if (quarters >= 2) std::reverse(grid.Z.begin(), grid.Z.end());
    return grid;
}

void ReverseColumns(Grid& grid) {
    const auto columns = static_cast<std::ptrdiff_t>(grid.Shape.Columns);
    for (auto row = grid.Z.begin(); row != grid.Z.end(); row += columns) std::reverse(row, row + columns);
}

void ReverseRows(Grid& grid) {
    const auto columns = static_cast<std::ptrdiff_t>(grid.Shape.Columns);
    for (int low = 0, high = grid.Shape.Rows - 1; low < high; ++low, --high) {
        const auto row = grid.Z.begin() + low * columns;
        std::swap_ranges(row, row + columns, grid.Z.begin() + high * columns);
    }
}

Grid ExtractNodes(const Grid& grid, const NodeRange& columns, const NodeRange& rows) {
    GridGeometry shape;
    shape.Columns = columns.Count();
    shape.Rows = rows.Count();
    if (shape.Columns < 2 || shape.Rows < 2) {
        FailCall("only " + std::to_string(shape.Columns) + " columns and " + std::to_string(shape.Rows) +
                 " rows are left; there have to be two of each at least");
    }
    const auto columnOf = [&](int column) { return columns.First + column * columns.Step; };
    const auto rowOf = [&](int row) { return rows.First + row * rows.Step; };
    shape.XMin = grid.Shape.X(columns.First);
    shape.XMax = grid.Shape.X(columnOf(shape.Columns - 1));
    shape.YMin = grid.Shape.Y(rows.First);
    shape.YMax = grid.Shape.Y(rowOf(shape.Rows - 1));
    Grid extracted(shape);
    for (int row = 0; row < shape.Rows; ++row) {
        for (int column = 0; column < shape.Columns; ++column) {
            extracted.At(column, row) = grid.At(columnOf(column), rowOf(row));
        }
    }
    return extracted;
}

}  // namespace crownlab
