#pragma once

namespace crownlab {

/// What lies on one side of zero, of a height that is linear over a triangle: the share of the triangle's planar
/// area, and the integral of the height's size as a multiple of that area.
struct TriangleSide {
    double Area = 0;
    double Volume = 0;
};

struct CutTriangle {
    TriangleSide Above;  ///< strictly above zero
    TriangleSide Below;  ///< strictly below zero
};

/// Cuts a triangle with heights a, b, c at its corners along zero.
CutTriangle CutAtZero(double a, double b, double c);

}  // namespace crownlab
