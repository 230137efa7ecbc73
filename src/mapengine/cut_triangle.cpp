#include "mapengine/cut_triangle.h"

#include <algorithm>

namespace crownlab {
namespace {

/// A triangle whose corner `p` lies on one side and `m`, `n` on the other, all as distances from zero of 0 or more:
///
///          p
///         / \          `tip` is the triangle at p, `foot` the rest, which the diagonal from m to the cut on the
///       --+---+--      edge from n to p parts in two. Sums of terms of one sign only, so a thin side is exact too.
///       /      \     .
///      m--------n
void CutTip(double p, double m, double n, TriangleSide& tip, TriangleSide& foot) {
    const double toM = p / (p + m);  // share of the edge from p to m that belongs to the tip
    const double toN = p / (p + n);
    const double cutM = m / (p + m);
    const double cutN = n / (p + n);
    tip.Area = toM * toN;
    tip.Volume = tip.Area * p / 3;
    const double besideN = cutN;
    const double besideM = toN * cutM;
    foot.Area = besideN + besideM;
    foot.Volume = (besideN * (m + n) + besideM * m) / 3;
}

}  // namespace

CutTriangle CutAtZero(double a, double b, double c) {
    // Into rising order: then the corners of one side stand together.
    if (a > b) std::swap(a, b);
    if (b > c) std::swap(b, c);
    if (a > b) std::swap(a, b);
    CutTriangle cut;
    if (a >= 0) {
        if (c > 0) cut.Above = {.Area = 1, .Volume = (a + b + c) / 3};
    } else if (c <= 0) {
        cut.Below = {.Area = 1, .Volume = -(a + b + c) / 3};
    } else if (b <= 0) {
        CutTip(c, -a, -b, cut.Above, cut.Below);
    } else {
        CutTip(-a, b, c, cut.Below, cut.Above);
    }
    return cut;
}

}  // namespace crownlab
