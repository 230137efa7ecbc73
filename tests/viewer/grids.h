#pragma once

#include <initializer_list>
#include <memory>
#include <vector>

#include "viewer/surface_grid.h"

namespace crownlab {

/// A grid drawn as it is seen: the first row of `rows` is the highest y. Cell (I, J) lies at x = 10 I, y = 100 J,
/// so that x and y can't be taken for one another.
inline SurfaceGrid GridOfRows(std::initializer_list<std::initializer_list<double>> rows) {
    SurfaceGrid grid;
    grid.NumY = static_cast<int>(rows.size());
    grid.NumX = grid.NumY == 0 ? 0 : static_cast<int>(rows.begin()->size());
    const auto places = std::make_shared<std::vector<Place>>();
    for (int row = 1; row <= grid.NumY; ++row) {
        int column = 0;
        for (const double z : *(rows.end() - row)) {
            places->push_back({10.0 * ++column, 100.0 * row});
            grid.Z.push_back(z);
        }
    }
    grid.Places = places;
    return grid;
}

}  // namespace crownlab
