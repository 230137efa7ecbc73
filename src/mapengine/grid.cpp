#include "mapengine/grid.h"

#include <algorithm>
#include <cmath>
#include <string>

#include "basis/failure.h"
#include "basis/memory_limit.h"
#include "basis/number_text.h"

namespace crownlab {
namespace {

void RequireRising(double low, double high, const char* axis) {
    if (std::isfinite(low) && std::isfinite(high) && low < high && std::isfinite(high - low)) return;
    throw Failure(FailureKind::AutomationFailed,
                  std::string(axis) + " limits " + GeneralText(low) + " to " + GeneralText(high) + " don't rise");
}

}  // namespace

double GridGeometry::Tolerance() const { return 1e-9 * std::max(XMax - XMin, YMax - YMin); }

void RequireGeometry(const GridGeometry& shape) {
    if (shape.Columns < 2 || shape.Rows < 2) {
        throw Failure(FailureKind::AutomationFailed, "a grid of " + std::to_string(shape.Columns) + " columns and " +
                                                         std::to_string(shape.Rows) +
                                                         " rows; there have to be two of each at least");
    }
    RequireRising(shape.XMin, shape.XMax, "x");
    RequireRising(shape.YMin, shape.YMax, "y");
}

Grid::Grid(const GridGeometry& shape) : Shape(shape) {
    RequireGeometry(shape);
    RequireMemory(shape.Nodes() * sizeof(double), "a grid");
    Z.assign(shape.Nodes(), kBlankHeight);
}

HeightRange Heights(const Grid& grid) {
    HeightRange range;
    bool any = false;
    for (const double z : grid.Z) {
        if (IsBlank(z)) continue;
        range.Low = any ? std::min(range.Low, z) : z;
        range.High = any ? std::max(range.High, z) : z;
        any = true;
    }
    return range;
}

}  // namespace crownlab
