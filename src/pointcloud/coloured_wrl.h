#pragma once

#include <optional>
#include <string>

#include "pointcloud/colour_scale.h"
#include "pointcloud/vertex_match.h"
#include "pointcloud/wrl_polygons.h"

namespace crownlab {

class FileTable;

/// What goes into a coloured model besides the model read.
struct ColouredModel {
    const WrlPolygons& Model;
    const PointCloud& Points;
    const VertexMatch& Match;       ///< between Points and the model's vertices
    const ColourScale* Scale;       ///< colours of the points; none: the model keeps its own colours
    bool PointsAsVertices = false;  ///< list Points instead of the model's vertices
};

/// Writes the model with those faces whose corners all have a point. Lines of the model that start "color" give way to
/// the colours of the points, lines behind the faces that start "solid" become FALSE.
///
/// SubscriptOutOfRange for a face corner that is no vertex; then no file is left. Also what ResultFile throws.
void WriteColouredWrl(FileTable& files, const std::string& path, const ColouredModel& model);

}  // namespace crownlab
