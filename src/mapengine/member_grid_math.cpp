#include <optional>

#include "mapengine/grid_file.h"
#include "mapengine/grid_math.h"
#include "mapengine/members.h"

namespace crownlab {
namespace {

Positions PositionsOf(EngineVersion version) {
    if (version == EngineVersion::Six) return {"InGridA", "InGridB", "OutGridC", "OutFmt", "Function"};
    return {"Function", "InGridA", "InGridB", "OutGridC", "OutFmt"};
}

std::string ShapeText(const GridGeometry& shape) {
    return std::to_string(shape.Columns) + " by " + std::to_string(shape.Rows);
}

/// Grid B, if the call names one. It has to have A's shape.
std::optional<Grid> ReadGridB(const CallArguments& arguments, const GridGeometry& shapeOfA) {
    const std::optional<std::string> path = arguments.OptionalText("InGridB");
    if (!path) return std::nullopt;
    Grid grid = ReadGrid(*path);
    if (!grid.Shape.SameShape(shapeOfA)) {
        arguments.Fail("InGridB", "has " + ShapeText(grid.Shape) + " nodes, InGridA " + ShapeText(shapeOfA));
    }
    return grid;
}

}  // namespace

Value CallGridMath(EngineCall& call) {
    const CallArguments arguments(call.Member, PositionsOf(call.Version), call.Given);
    const std::string input = arguments.Text("InGridA");
    const std::string output = arguments.Text("OutGridC");
    const GridFormat format = OutputFormat(call.Version, arguments);
    const GridFormula formula = ParseGridFormula(arguments.Text("Function"));
    if (formula.HasB && !arguments.Has("InGridB")) arguments.Fail("InGridB", "is missing, and B occurs in the formula");
    Grid grid = ReadGrid(input);
    const std::optional<Grid> other = ReadGridB(arguments, grid.Shape);
    ApplyGridFormula(formula, grid, other ? &*other : nullptr, call.Done);
    WriteGrid(call.Files, output, grid, format);
    return true;
}

}  // namespace crownlab
