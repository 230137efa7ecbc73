#pragma once

#include "formats/point_text.h"

namespace crownlab::bench {

/// A crown-like surface of `points` points at 35,000 a square unit, in random order: a search square of
/// half-side 0.01 holds about 14 points, one of 0.02 about 56. Coordinates have six decimals.
PointCloud CrownCloud(std::size_t points);

}  // namespace crownlab::bench
