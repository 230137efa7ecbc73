#pragma once

#include <cstdint>
#include <vector>

#include "mapengine/grid.h"

namespace crownlab {

/// The sun over a relief.
struct ReliefLight {
    double AzimuthDegrees = 135;  ///< where it stands, counter-clockwise from +x: upper left
    double AltitudeDegrees = 45;  ///< above the plane
    /// How far the light reaches round into the shade, as from a wide sky: 0 leaves all that is turned away black, 1
    /// only what faces away from the sun.
    double Softness = 0;
    double HeightFactor = 1;  ///< heights are multiplied by this before; 1 is the true form
};

/// How bright each node of a grid is: 1 (turned away from the light) to 255 (straight into it), 0 where the node is
/// blank. One a node, in the grid's order.
///
/// A matt surface: the cosine c between the surface's normal and the light (J. H. Lambert, Photometria, 1760), with
/// softness s as (c + s) / (1 + s). Slopes
/// are central differences, one-sided beside a blank or an edge, level where both neighbours are missing. Works on all
/// cores.
std::vector<std::uint8_t> ShadeRelief(const Grid& grid, const ReliefLight& light);

}  // namespace crownlab
