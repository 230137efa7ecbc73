#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "formats/point_text.h"

namespace crownlab {

/// A triangle by the numbers of its vertices, from 0, as they stand in the file.
struct PolyFace {
    std::int32_t A = 0;
    std::int32_t B = 0;
    std::int32_t C = 0;
    friend bool operator==(const PolyFace&, const PolyFace&) = default;
};

/// A VRML file of polygons, taken apart into its lists of points and faces and the lines around them.
struct WrlPolygons {
    std::vector<std::string> HeadLines;  ///< up to the one that starts "point", that one too
    PointCloud Points;
    std::vector<std::string> MidLines;  ///< behind the points' "]" up to the one that starts "coordIndex", that one too
    std::vector<PolyFace> Faces;
    std::vector<std::string> TailLines;  ///< all behind the faces' "]"
};

/// Reads such a file. Of a face of four corners the fourth is dropped; a face of more puts the reader out of step.
/// Blanks, tabs and empty lines between numbers are skipped, and the end of the file ends a list.
///
/// Throws SubscriptOutOfRange for more than 1000 lines in a group or 1,000,000 points or faces, and for an empty list;
/// TypeMismatch for what isn't a number; InputPastEnd inside a point or face; Overflow for a vertex number beyond
/// 32 bits; and what reading a file throws.
WrlPolygons ReadWrlPolygons(const std::string& path);

/// The same from a text; `name` is the file's name for messages.
WrlPolygons ParseWrlPolygons(std::string_view text, const std::string& name);

}  // namespace crownlab
