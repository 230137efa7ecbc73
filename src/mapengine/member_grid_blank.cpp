#include "mapengine/blanking.h"
#include "mapengine/grid_file.h"
#include "mapengine/members.h"

namespace crownlab {

Value CallGridBlank(EngineCall& call) {
    const CallArguments arguments(call.Member, {"InGrid", "BlankFile", "OutGrid", "OutFmt"}, call.Given);
    const std::string input = arguments.Text("InGrid");
    const std::string boundaryFile = arguments.Text("BlankFile");
    const std::string output = arguments.Text("OutGrid");
    const GridFormat format = OutputFormat(call.Version, arguments);
    Grid grid = ReadGrid(input);
    for (const Boundary& boundary : ReadBoundaries(boundaryFile)) BlankByBoundary(grid, boundary, call.Done);
    WriteGrid(call.Files, output, grid, format);
    return true;
}

}  // namespace crownlab
