#include "viewer/multi_grid.h"

#include <cmath>

#include "basis/rounding.h"

namespace crownlab {
namespace {

void TakeStepY(double before, double y, double& step) {
    if (RoundDecimals(y - before, 6) < step && y == before) step = RoundDecimals(y - before, 10);
}

void TakeStepX(double difference, const std::string& direction, double& step) {
    const double size = std::fabs(RoundDecimals(difference, 6));
    if (direction == "XUp" && difference > 0 && size < step) step = RoundDecimals(difference, 10);
    if (direction == "XDown" && difference < 0 && size < step) step = RoundDecimals(-difference, 10);
}

}  // namespace

SurfaceSteps FindToothSteps(const std::vector<SurfacePoint>& points, const std::string& direction) {
    SurfaceSteps steps;
    for (std::size_t i = 1; i < points.size(); ++i) {
        TakeStepY(points[i - 1].y, points[i].y, steps.Y);
        TakeStepX(points[i].x - points[i - 1].x, direction, steps.X);
    }
    return steps;
}

}  // namespace crownlab
