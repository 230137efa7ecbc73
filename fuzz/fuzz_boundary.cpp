// A boundary file, and a small grid blanked by each of its rings: nodes are blanked or left, and both flags together
// leave none but those on an edge, or blank none twice.

#include <cstdint>
#include <cstdlib>
#include <string_view>

#include "basis/failure.h"
#include "mapengine/blanking.h"

namespace {
using namespace crownlab;

Grid FlatGrid() {
    Grid grid(GridGeometry{.Columns = 13, .Rows = 9, .XMin = -1, .XMax = 11, .YMin = 0, .YMax = 4});
    for (double& z : grid.Z) z = 1;
    return grid;
}

void BlankBothWays(Boundary boundary) {
    Progress progress;
    Grid inside = FlatGrid(), outside = FlatGrid();
    boundary.BlanksInside = true;
    BlankByBoundary(inside, boundary, progress);
    boundary.BlanksInside = false;
    BlankByBoundary(outside, boundary, progress);
    for (std::size_t i = 0; i < inside.Z.size(); ++i) {
        if (inside.Z[i] != 1 && inside.Z[i] != kBlankHeight) std::abort();
        if (outside.Z[i] != 1 && outside.Z[i] != kBlankHeight) std::abort();
        if (IsBlank(inside.Z[i]) && IsBlank(outside.Z[i])) std::abort();
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    try {
        const std::string_view text(reinterpret_cast<const char*>(data), size);
        for (const Boundary& boundary : ParseBoundaries(text, "a.bln")) BlankBothWays(boundary);
    } catch (const Failure& failure) {
        if (failure.Kind() != FailureKind::AutomationFailed) std::abort();
    }
    return 0;
}
