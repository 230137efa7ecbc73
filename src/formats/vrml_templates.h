#pragma once

#include <array>
#include <string>
#include <string_view>

namespace crownlab {

class ResultFile;

/// Pieces of VRML 2.0 text that all models written here share.
namespace vrml {

struct Vector {
    std::string A;  ///< to the right (map x)
    std::string B;  ///< height
    std::string C;  ///< towards the viewer (map y)
};

/// "#VRML V2.0 utf8" and "# VRML of " with `subject`, then an empty line.
void WriteHeader(ResultFile& file, std::string_view subject);

/// The navigation node with its two types in this order.
void WriteNavigation(ResultFile& file, std::string_view first, std::string_view second);

/// White sky and ground.
void WriteBackground(ResultFile& file);

void WriteDirectionalLight(ResultFile& file, std::string_view direction, std::string_view intensity);

/// A viewpoint; `orientation` is axis and angle in radians.
void WriteViewpoint(ResultFile& file, std::string_view name, const Vector& position, std::string_view orientation);

/// "Transform {" with the same scale on all axes, up to the opened list of children.
void WriteTransformStart(ResultFile& file, std::string_view scale);

/// "Shape {" with the blue material of all models, up to the end of its appearance.
void WriteShapeStart(ResultFile& file);

/// "geometry ElevationGrid {" up to its opened list of heights, of which a line a row follows.
void WriteElevationGridStart(ResultFile& file, int xDimension, int zDimension, std::string_view xSpacing,
                             std::string_view zSpacing);
/// Closes the heights, the grid and its shape.
void WriteElevationGridEnd(ResultFile& file);

/// Closes the list of children and the transform: the end of every model.
void WriteTransformEnd(ResultFile& file);

/// A number as it stands in a model: rounded half to even at `decimals`, a zero before the point.
std::string Number(double value, int decimals);

}  // namespace vrml
}  // namespace crownlab
