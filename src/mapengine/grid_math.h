#pragma once

#include <string>
#include <string_view>

#include "mapengine/grid.h"
#include "mapengine/progress.h"

namespace crownlab {

/// A formula over the heights A and B of two grids at the same node.
///
/// Strongest first: brackets and functions, ^ (right to left), sign, * and /, + and - (left to right); a sign may
/// follow an operator. Functions: min, max (of one or more), abs, sqrt, exp, ln, log10, sin, cos, tan, asin, acos,
/// atan (radians). Without regard to letter case. Every operation is rounded by itself, in that order.
struct GridFormula {
    std::string Text;   ///< what stands behind "C=", in small letters; blanks in place of "C="
    bool HasA = false;  ///< whether A occurs in it
    bool HasB = false;
};

/// Takes apart "C=…" or "C =…". AutomationFailed, with a sentence that names the formula, where it doesn't parse.
GridFormula ParseGridFormula(std::string_view function);

/// Puts the formula's value in place of each height of `a`. A node is blank where a grid that occurs in the formula is
/// blank, or where the value isn't finite. `b`, of the same shape, is needed only if B occurs. On all cores.
void ApplyGridFormula(const GridFormula& formula, Grid& a, const Grid* b, Progress& progress);

}  // namespace crownlab
