#pragma once

#include <cstdint>
#include <functional>
#include <vector>

#include "formats/lattice_text.h"

namespace crownlab {

/// Takes the vertex numbers of a triangle in their order.
using TriangleSink = std::function<void(int a, int b, int c)>;

/// Two triangles for each cell of a grid of `cols` by `rows` nodes, vertices numbered row after row from 0.
void CellTriangles(int cols, int rows, const TriangleSink& take);

/// The triangles of a surface with blank nodes, cell by cell: up to four by which of the cell's corners are there, then
/// those that stitch a hole of one node at the cell's first corner. `vertex` holds a number a node, -1 for a blank one.
void SurfaceTriangles(int cols, int rows, const std::vector<std::int16_t>& vertex, const TriangleSink& take);

}  // namespace crownlab
