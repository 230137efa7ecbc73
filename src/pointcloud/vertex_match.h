#pragma once

#include <cstdint>
#include <functional>
#include <vector>

#include "formats/point_text.h"

namespace crownlab {

/// Half the side of the box in which a vertex counts as being a point.
inline constexpr double kMatchTolerance = 0.0005;

/// Which point goes with which vertex; numbers from 1, 0 for none.
struct VertexMatch {
    std::vector<std::int32_t> PointVertex;  ///< one a point
    std::vector<std::int32_t> VertexPoint;  ///< one a vertex; of several points the last one
};

/// Finds for each point a vertex with all coordinates strictly within `tolerance`: from the vertex that matched last
/// (at first the first one) to the end, then from the first one to there; the first one found counts. `shown` is
/// told the number of each point, from 1, when it is done.
///
/// Cost: where points follow the vertices a step each; else a look into the cells of space around the point.
VertexMatch MatchVertices(const PointCloud& points, const PointCloud& vertices, double tolerance,
                          const std::function<void(std::size_t)>& shown);

}  // namespace crownlab
