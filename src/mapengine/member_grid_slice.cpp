#include "mapengine/grid_file.h"
#include "mapengine/members.h"
#include "mapengine/slice_file.h"

namespace crownlab {

Value CallGridSlice(EngineCall& call) {
    // The third place, of a boundary file to write, is never filled by a tool.
    const CallArguments arguments(call.Member, {"InGrid", "BlankFile", "", "OutDataFile"}, call.Given);
    const std::string input = arguments.Text("InGrid");
    const std::string lineFile = arguments.Text("BlankFile");
    const std::string output = arguments.Text("OutDataFile");
    const Grid grid = ReadGrid(input);
    WriteSlices(call.Files, output, grid, ReadBoundaries(lineFile), call.Done);
    return true;
}

}  // namespace crownlab
