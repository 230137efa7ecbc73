#pragma once

#include "mapengine/grid.h"

namespace crownlab::bench {

/// Smooth, crown-like heights on `side` by `side` nodes over 0 to 10 by 0 to 8, with all the digits they have.
Grid SmoothGrid(int side);

}  // namespace crownlab::bench
