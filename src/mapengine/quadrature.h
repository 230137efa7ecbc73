#pragma once

#include <vector>

namespace crownlab {

/// Weights of the extended Simpson rule for `nodes` (2 at least) evenly spaced values, in units of the spacing:
/// 1/3, 4/3, 2/3, 4/3 ... 1/3. An interval left over at the end counts by the trapezoidal rule.
/// (M. Abramowitz, I. A. Stegun, "Handbook of Mathematical Functions", 1964, 25.4.6)
std::vector<double> SimpsonWeights(int nodes);

/// The same for the extended 3/8 rule: 3/8 times 1, 3, 3, 2, 3, 3 ... 1, with one or two intervals left over at the
/// end by trapezoids. (ibid., 25.4.13)
std::vector<double> ThreeEighthsWeights(int nodes);

}  // namespace crownlab
