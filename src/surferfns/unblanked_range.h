#pragma once

#include <string>

#include "formats/extract_area.h"

namespace crownlab {

/// The part of a grid that holds all its nodes that aren't blank (z below 1E38), with a margin: from the first and the
/// last such column and row three nodes on, as far as the grid goes. `text` holds the grid's nodes. The whole grid
/// where all are blank. InputPastEnd, TypeMismatch and what reading a file throws.
GridPart UnblankedRange(const std::string& text, const GridShape& grid);

/// The step that leaves no more than `most` intervals along the longer side of a part. 16 bits; Overflow,
/// DivisionByZero.
double StepForMost(const GridPart& part, double most);

}  // namespace crownlab
