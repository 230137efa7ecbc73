#include "mapengine/filter_weights.h"
#include "mapengine/grid_file.h"
#include "mapengine/grid_filter.h"
#include "mapengine/members.h"

namespace crownlab {

Value CallGridMatrixSmooth(EngineCall& call) {
    const CallArguments arguments(
        call.Member, {"InGrid", "", "CentreWeight", "", "HalfRows", "HalfColumns", "OutGrid", "OutFmt"}, call.Given);
    const std::string input = arguments.Text("InGrid");
    const double centre = arguments.Number("CentreWeight");
    const int reach = arguments.Whole("HalfRows");
    const int columns = arguments.Whole("HalfColumns");
    if (reach < 0) arguments.Fail("HalfRows", std::to_string(reach) + " is no half-width");
    if (reach != columns) {
        arguments.Fail("HalfColumns", std::to_string(columns) + " is not HalfRows, which is " + std::to_string(reach));
    }
    const std::string output = arguments.Text("OutGrid");
    const GridFormat format = OutputFormat(call.Version, arguments);
    Grid grid = ReadGrid(input);
    const FilterWeights weights = CentreWeighted(reach, centre, grid.Shape);
    WriteGrid(call.Files, output, FilterGrid(std::move(grid), weights, 1, call.Done), format);
    return true;
}

}  // namespace crownlab
