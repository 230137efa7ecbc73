#pragma once

#include <cmath>

#include "basis/dispatch.h"

namespace crownlab {

/// The circle constant to full 64-bit precision. Tools that are told another number keep their own.
inline constexpr double kFullPi = 3.14159265358979323846;

/// Arctangent of `x` in radians, within one unit in the last place of the true value; ArcTangent(1) is
/// the 64-bit float nearest to a quarter of pi.
///
/// The C library's own function picks one of several code paths by the processor and they may differ
/// in the last place. This one is a fixed sequence of plain operations, so its bits are the same on
/// every machine, and compilers vectorise it. Argument reduction at tan(pi/8) and tan(3 pi/8) by
/// selection instead of branches, then a rational approximation in x² (S. L. Moshier, "Methods and
/// Programs for Mathematical Functions", 1989).
CROWNLAB_INLINE double ArcTangent(double x) {
    constexpr double tan3PiBy8 = 2.41421356237309504880;
    constexpr double moreBits = 6.123233995736765886130e-17;  // what pi/2 loses as a 64-bit float

    const double a = std::fabs(x);
    const bool steep = a > tan3PiBy8;
    const bool middle = !steep & (a > 0.66);
    const double numerator = steep ? -1.0 : (middle ? a - 1.0 : a);
    const double denominator = steep ? a : (middle ? a + 1.0 : 1.0);
    const double offset = steep ? kFullPi / 2 : (middle ? kFullPi / 4 : 0.0);
    const double correction = steep ? moreBits : (middle ? 0.5 * moreBits : 0.0);

    const double t = numerator / denominator;
    const double z = t * t;
    const double p =
        ((((-8.750608600031904122785e-1 * z - 1.615753718733365076637e1) * z - 7.500855792314704667340e1) * z -
          1.228866684490136173410e2) *
             z -
         6.485021904942025371773e1);
    const double q =
        (((((z + 2.485846490142306297962e1) * z + 1.650270098316988542046e2) * z + 4.328810604912902668951e2) * z +
          4.853903996359136964868e2) *
             z +
         1.945506571482613964425e2);
    const double value = offset + ((t * (z * p / q) + t) + correction);
    return std::copysign(value, x);
}

}  // namespace crownlab
