#include "mapengine/grid_axis.h"

#include <algorithm>

namespace crownlab {

int GridAxis::IntervalOf(double at) const {
    const int last = Nodes() - 2;
    const double share = (at - Min()) / (Max() - Min()) * (Nodes() - 1);
    int interval = share > 0 ? static_cast<int>(std::min(share, static_cast<double>(last))) : 0;
    // The division rounds; the positions themselves decide.
    while (interval > 0 && at < Position(interval)) --interval;
    while (interval < last && at >= Position(interval + 1)) ++interval;
    return interval;
}

}  // namespace crownlab
