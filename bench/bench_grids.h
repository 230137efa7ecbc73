#pragma once

#include "mapengine/grid.h"

namespace crownlab::bench {

/// Smooth, crown-like heights of `side` by `side` nodes between -1 and 1, with a ring of blank nodes around an oval
/// in the middle if `blanked`.
Grid SmoothGrid(int side, bool blanked);

/// A plane that cuts the heights above in their middle.
Grid PlaneGrid(int side);

}  // namespace crownlab::bench
