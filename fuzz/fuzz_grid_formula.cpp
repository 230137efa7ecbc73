// A formula over two grids: it is refused with a sentence, or gives heights and blanks, and a blank wherever a grid
// that occurs in it is blank.

#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <string_view>

#include "basis/failure.h"
#include "mapengine/grid_math.h"

namespace {
using namespace crownlab;

Grid SmallGrid(double first) {
    Grid grid(GridGeometry{.Columns = 3, .Rows = 2, .XMin = 0, .XMax = 1, .YMin = 0, .YMax = 1});
    grid.Z = {first, kBlankHeight, 1e-300, 0, 1e37, -first};
    return grid;
}

void Apply(const GridFormula& formula) {
    Progress progress;
    Grid a = SmallGrid(2.5);
    const Grid b = SmallGrid(-0.75);
    ApplyGridFormula(formula, a, &b, progress);
    for (const double z : a.Z) {
        if (!std::isfinite(z) || z > kBlankHeight) std::abort();
    }
    if ((formula.HasA || formula.HasB) && !IsBlank(a.Z[1])) std::abort();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view text(reinterpret_cast<const char*>(data), size);
    try {
        Apply(ParseGridFormula(text));
    } catch (const Failure& failure) {
        if (failure.Kind() != FailureKind::AutomationFailed || failure.Object().empty()) std::abort();
    }
    return 0;
}
