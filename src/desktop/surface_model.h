#pragma once

#include "desktop/vrml_scene.h"
#include "mapengine/grid.h"
#include "mapengine/height_colours.h"

namespace crownlab {

/// Nodes along the longer side of a surface in space; grids with more are thinned to this, so that it turns smoothly.
inline constexpr int kMostSurfaceNodes = 400;

/// The surface of a grid as a scene: a mesh in the colours of its heights, on a frame at its lowest height with round
/// numbers along x and y. Triangles stand where three nodes of a cell have heights. The longer side is 10 units,
/// heights in the same scale times `heightFactor`; it is looked at from the front above. The caller holds the only
/// reference, see ReleaseModel.
SoSeparator* MakeSurfaceModel(const Grid& grid, MapPalette palette, double heightFactor);

}  // namespace crownlab
