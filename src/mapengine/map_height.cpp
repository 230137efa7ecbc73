#include "mapengine/map_height.h"

#include <algorithm>

namespace crownlab {
namespace {

/// A place along one axis: the node before it and how far it lies towards the next.
struct Place {
    int Node = 0;
    double Share = 0;
};

Place PlaceOn(double low, double high, int nodes, double at) {
    const double steps = (at - low) / (high - low) * (nodes - 1);
    const int node = std::clamp(static_cast<int>(steps), 0, nodes - 2);
    return {node, std::clamp(steps - node, 0.0, 1.0)};
}

/// `low` and `high` mixed; blank if one that counts is.
double Between(double low, double high, double share) {
    if ((share < 1 && IsBlank(low)) || (share > 0 && IsBlank(high))) return kBlankHeight;
    if (share == 0) return low;
    return share == 1 ? high : low + share * (high - low);
}

}  // namespace

double MapHeight(const Grid& grid, double x, double y) {
    const GridGeometry& shape = grid.Shape;
    if (!(x >= shape.XMin && x <= shape.XMax && y >= shape.YMin && y <= shape.YMax)) return kBlankHeight;
    const Place across = PlaceOn(shape.XMin, shape.XMax, shape.Columns, x);
    const Place up = PlaceOn(shape.YMin, shape.YMax, shape.Rows, y);
    const auto onRow = [&](int row) {
        return Between(grid.At(across.Node, row), grid.At(across.Node + 1, row), across.Share);
    };
    return Between(onRow(up.Node), onRow(up.Node + 1), up.Share);
}

}  // namespace crownlab
