#include "mapengine/grid_file.h"
#include "mapengine/members.h"

namespace crownlab {

Value CallGridConvert(EngineCall& call) {
    const CallArguments arguments(call.Member, {"InGrid", "OutGrid", "OutFmt"}, call.Given);
    const std::string input = arguments.Text("InGrid");
    const std::string output = arguments.Text("OutGrid");
    const GridFormat format = OutputFormat(call.Version, arguments);
    WriteGrid(call.Files, output, ReadGrid(input), format);
    return true;
}

}  // namespace crownlab
