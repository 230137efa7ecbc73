#include "viewer/surface_area.h"

#include <cmath>

namespace crownlab {
namespace {

/// Area over half a unit square: the height is p at the right angle, q and r at the two other corners.
double HalfSquareArea(double p, double q, double r) {
    return 0.5 * std::sqrt(1 + (q - p) * (q - p) + (r - p) * (r - p));
}

}  // namespace

double CellArea(double a, double b, double c, double d) {
    const double cutAlongBD = HalfSquareArea(a, b, d) + HalfSquareArea(c, b, d);
    const double cutAlongAC = HalfSquareArea(b, a, c) + HalfSquareArea(d, a, c);
    return (cutAlongBD + cutAlongAC) / 2;
}

ToothMeasures MeasureTooth(const SurfaceGrid& grid, double zeroLevel) {
    ToothMeasures sum;
    for (int row = 1; row <= grid.NumY; ++row) {
        for (int column = 1; column <= grid.NumX; ++column) {
            const double a = grid.z(column, row);
            if (column != grid.NumX && row != grid.NumY) {
                const double b = grid.z(column, row + 1);
                const double c = grid.z(column + 1, row + 1);
                const double d = grid.z(column + 1, row);
                if (a == zeroLevel && b == zeroLevel && c == zeroLevel && d == zeroLevel) continue;
                sum.SurfaceArea += CellArea(a, b, c, d);
            }
            sum.Volume += a;
        }
    }
    return sum;
}

}  // namespace crownlab
