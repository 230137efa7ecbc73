#pragma once

#include "mapengine/height_colours.h"

class QPainter;

namespace crownlab {

struct PlotMap;
class SurfaceView;

/// How fine a surface is drawn.
struct SurfaceDetail {
    /// Cells along the longer side; of a finer grid every n-th row and column is drawn, and the last ones.
    int MostCells = 400;
    /// Lines of the mesh along the longer side, 0 for none.
    int MeshLines = 40;
    double MeshWidth = 1;  ///< in the painter's units
};

/// Draws the surface of the grid of a map of kind Surface as shaded quads, the far ones first, with lines of a mesh on
/// them. Its colour is that of the height, darker where it is turned from the light (Lambert's cosine law, the light
/// softened as that of a relief, and a share of light from all around). Cells with one blank corner are a triangle,
/// with more than that nothing.
void DrawSurface(QPainter& painter, const PlotMap& map, const SurfaceView& view, const PaletteTable& colours,
                 const SurfaceDetail& detail);

}  // namespace crownlab
