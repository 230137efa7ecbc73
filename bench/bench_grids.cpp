#include "bench_grids.h"

#include <cmath>

namespace crownlab::bench {
namespace {

GridGeometry ShapeOf(int side) { return {.Columns = side, .Rows = side, .XMin = 0, .XMax = 12, .YMin = 0, .YMax = 9}; }

}  // namespace

Grid SmoothGrid(int side, bool blanked) {
    Grid grid(ShapeOf(side));
    for (int row = 0; row < side; ++row) {
        const double y = grid.Shape.Y(row);
        for (int column = 0; column < side; ++column) {
            const double x = grid.Shape.X(column);
            const double dx = (x - 6) / 6;
            const double dy = (y - 4.5) / 4.5;
            if (blanked && dx * dx + dy * dy > 0.95) continue;
            grid.At(column, row) = std::sin(x) * std::cos(1.3 * y);
        }
    }
    return grid;
}

Grid PlaneGrid(int side) {
    Grid grid(ShapeOf(side));
    for (int row = 0; row < side; ++row) {
        for (int column = 0; column < side; ++column) grid.At(column, row) = 0.1 * grid.Shape.X(column) - 0.6;
    }
    return grid;
}

}  // namespace crownlab::bench
