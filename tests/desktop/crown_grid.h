#pragma once

#include <cmath>

#include "mapengine/grid.h"

namespace crownlab {

/// A molar as a grid: four cusps over a basin, millimetres, blank outside the crown. x and y differ.
inline Grid CrownGrid(int columns, int rows) {
    Grid grid({.Columns = columns, .Rows = rows, .XMin = 0, .XMax = 12, .YMin = 2, .YMax = 11});
    for (int row = 0; row < rows; ++row) {
        for (int column = 0; column < columns; ++column) {
            const double x = (grid.Shape.X(column) - 6) / 5.6, y = (grid.Shape.Y(row) - 6.5) / 4.2;
            const double out = std::pow(std::pow(std::abs(x), 3) + std::pow(std::abs(y), 3), 1 / 3.0);
            if (out > 1) continue;
            const auto cusp = [x, y](double atX, double atY, double height) {
                return height * std::exp(-7 * (std::pow(x - atX, 2) + std::pow(y - atY, 2)));
            };
            const double wall = 2.6 * (1 - std::pow(out, 6));
            const double fissures = 0.12 * std::cos(9 * x) * std::cos(8 * y);
            grid.At(column, row) = 0.4 + wall + fissures + cusp(-0.45, 0.45, 2.1) + cusp(0.4, 0.42, 1.7) +
                                   cusp(-0.42, -0.42, 1.5) + cusp(0.45, -0.45, 1.9);
        }
    }
    return grid;
}

}  // namespace crownlab
