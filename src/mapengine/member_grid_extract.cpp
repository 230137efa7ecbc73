#include <algorithm>

#include "mapengine/grid_file.h"
#include "mapengine/grid_transform.h"
#include "mapengine/members.h"

namespace crownlab {
namespace {

/// What a tool sends where it wants the whole grid, or no step.
constexpr int kNotChosen = -1;

/// The range that three arguments tell, counted from 1, as far as it lies on `count` rows or columns: a box drawn
/// across the edge of a map keeps what it has of the grid. Both ends -1, or absent: all of them.
NodeRange RangeOf(const CallArguments& arguments, const char* first, const char* last, const char* step, int count) {
    const int low = arguments.Whole(first, kNotChosen);
    const int high = arguments.Whole(last, kNotChosen);
    const bool whole = low == kNotChosen && high == kNotChosen;
    NodeRange range{.First = 0, .Last = count - 1, .Step = arguments.Whole(step, kNotChosen)};
    if (range.Step == kNotChosen) range.Step = 1;
    if (range.Step < 1) arguments.Fail(step, "is not a step of 1 or more");
    if (!whole) {
        range.First = std::max(low, 1) - 1;
        range.Last = std::min(arguments.Has(last) ? high : count, count) - 1;
    }
    return range;
}

Positions PositionsOf(EngineVersion version) {
    if (version == EngineVersion::Six) {
        return {"InGrid", "r1", "c1", "r2", "c2", "rFreq", "cFreq", "OutGrid", "OutFmt"};
    }
    return {"InGrid", "r1", "r2", "rFreq", "c1", "c2", "cFreq", "OutGrid", "OutFmt"};
}

}  // namespace

Value CallGridExtract(EngineCall& call) {
    const CallArguments arguments(call.Member, PositionsOf(call.Version), call.Given);
    const std::string input = arguments.Text("InGrid");
    const std::string output = arguments.Text("OutGrid");
    const GridFormat format = OutputFormat(call.Version, arguments);
    const Grid grid = ReadGrid(input);
    const NodeRange rows = RangeOf(arguments, "r1", "r2", "rFreq", grid.Shape.Rows);
    const NodeRange columns = RangeOf(arguments, "c1", "c2", "cFreq", grid.Shape.Columns);
    WriteGrid(call.Files, output, ExtractNodes(grid, columns, rows), format);
    return true;
}

}  // namespace crownlab
