#pragma once

#include <array>
#include <cstdint>
#include <vector>

#include "mapengine/data_points.h"

namespace crownlab {

/// Numbers of a triangle's corners in the list of points, counter-clockwise.
using CornerNumbers = std::array<std::uint32_t, 3>;

/// Delaunay triangulation of the places of points, by exact tests; of cocircular points either diagonal, but always the
/// same one. No triangles where all points lie on a line.
struct Triangulation {
    std::vector<CornerNumbers> Triangles;
    std::vector<std::array<std::uint32_t, 2>> Hull;  ///< edges of the hull, one after the other
};
Triangulation Triangulate(const DataPoints& points);

}  // namespace crownlab
