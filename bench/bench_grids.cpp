#include "bench_grids.h"

#include <cmath>

namespace crownlab::bench {

Grid SmoothGrid(int side) {
    Grid grid(GridGeometry{.Columns = side, .Rows = side, .XMin = 0, .XMax = 10, .YMin = 0, .YMax = 8});
    for (int row = 0; row < side; ++row) {
        for (int column = 0; column < side; ++column) {
            const double u = 0.4 * grid.Shape.X(column), v = 0.3 * grid.Shape.Y(row);
            grid.At(column, row) = 3 + std::sin(u) * std::cos(v) + 0.1 * std::sin(3 * (u + v));
        }
    }
    return grid;
}

}  // namespace crownlab::bench
