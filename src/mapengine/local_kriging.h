#pragma once

#include "mapengine/neighbour_tree.h"

namespace crownlab {

/// Height by ordinary kriging of its neighbours, one to 64 of them and none at the place itself; the variogram
/// is the distance. The same bits on every processor.
double LocalKriging(const Neighbours& found);

/// The same height by LU of the whole system: for neighbours so close together that the short way fails.
double LocalKrigingByLu(const Neighbours& found);

}  // namespace crownlab
