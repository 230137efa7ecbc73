#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "formats/boundary_file.h"

namespace crownlab {

/// One ring, or one line, of a boundary file.
struct Boundary {
    std::vector<PlanePoint> Points;  ///< in file order; a closed ring has its first point once more at the end
    bool BlanksInside = false;       ///< its flag isn't 0
};

/// The rings of a boundary file in its order: for each a line with the number of points and the flag (no flag: 0), then
/// that many points, a line each. Fields are separated by commas, blanks or tabs; what follows the two of a line is
/// disregarded, and so are empty lines. AutomationFailed, with a sentence that names file and line, for a field that
/// should be a number and isn't, a count that isn't whole, too few points, and a file without any ring.
std::vector<Boundary> ReadBoundaries(const std::string& path);

/// The same off the text of a file; sentences call it `name`.
std::vector<Boundary> ParseBoundaries(std::string_view text, const std::string& name);

}  // namespace crownlab
