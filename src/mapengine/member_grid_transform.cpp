#include <utility>

#include "mapengine/grid_file.h"
#include "mapengine/grid_transform.h"
#include "mapengine/members.h"

namespace crownlab {
namespace {

enum class Transformation { Offset, Turn, ReverseColumns, ReverseRows };

/// What `Operation` stands for. "Surfer.APP" knows the two reversals only, under numbers of its own.
Transformation TransformationOf(const EngineCall& call, const CallArguments& arguments) {
    const int operation = arguments.Whole("Operation");
    if (operation == (call.IsSix() ? 3 : 4)) return Transformation::ReverseColumns;
    if (operation == (call.IsSix() ? 4 : 5)) return Transformation::ReverseRows;
    if (operation == 1 && !call.IsSix()) return Transformation::Offset;
    if (operation == 3 && !call.IsSix()) return Transformation::Turn;
    arguments.Fail("Operation", std::to_string(operation) + " stands for no transformation");
}

Grid Transformed(Grid grid, Transformation transformation, const CallArguments& arguments) {
    switch (transformation) {
        case Transformation::Offset:
            OffsetLimits(grid, arguments.Number("XOffset", 0), arguments.Number("YOffset", 0));
            break;
        case Transformation::Turn: return TurnGrid(std::move(grid), arguments.Number("Rotation"));
        case Transformation::ReverseColumns: ReverseColumns(grid); break;
        case Transformation::ReverseRows: ReverseRows(grid); break;
    }
    return grid;
}

}  // namespace

Value CallGridTransform(EngineCall& call) {
    const Positions positions{"InGrid", "Operation", "XOffset", "YOffset", "", "", "Rotation", "OutGrid", "OutFmt"};
    const CallArguments arguments(call.Member, positions, call.Given);
    const std::string input = arguments.Text("InGrid");
    const std::string output = arguments.Text("OutGrid");
    const GridFormat format = OutputFormat(call.Version, arguments);
    const Transformation transformation = TransformationOf(call, arguments);
    WriteGrid(call.Files, output, Transformed(ReadGrid(input), transformation, arguments), format);
    return true;
}

}  // namespace crownlab
