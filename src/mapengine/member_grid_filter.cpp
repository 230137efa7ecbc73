#include <algorithm>
#include <cmath>
#include <cstdint>

#include "mapengine/filter_weights.h"
#include "mapengine/grid_file.h"
#include "mapengine/grid_filter.h"
#include "mapengine/members.h"

namespace crownlab {
namespace {

/// The window's size n, which both NumRow and NumCol have to say.
int ReadSize(const CallArguments& arguments) {
    const int rows = arguments.Whole("NumRow");
    const int columns = arguments.Whole("NumCol");
    for (const auto& [name, size] : {std::pair{"NumRow", rows}, std::pair{"NumCol", columns}}) {
        if (size < 1 || size % 2 == 0) arguments.Fail(name, std::to_string(size) + " is not an odd number from 1 on");
    }
    if (rows != columns) {
        arguments.Fail("NumRow", std::to_string(rows) + " is not NumCol, which is " + std::to_string(columns));
    }
    return rows;
}

FilterWeights ReadUserFilter(const CallArguments& arguments) {
    const int size = ReadSize(arguments);
    const NumberMatrix& matrix = arguments.Matrix("UserFilter");
    const auto count = static_cast<std::uint64_t>(size) * static_cast<std::uint64_t>(size);
    if (matrix.Rows != size || matrix.Columns != size || matrix.Values.size() != count) {
        arguments.Fail("UserFilter", "has " + std::to_string(matrix.Rows) + " rows and " +
                                         std::to_string(matrix.Columns) + " columns, not " + std::to_string(size) +
                                         " of each");
    }
    if (!std::all_of(matrix.Values.begin(), matrix.Values.end(), [](double w) { return std::isfinite(w); })) {
        arguments.Fail("UserFilter", "has a weight that is not a finite number");
    }
    const int reach = (size - 1) / 2;
    return {.ColumnReach = reach, .RowReach = reach, .Values = matrix.Values};
}

FilterWeights ReadWeights(const CallArguments& arguments, const GridGeometry& shape) {
    const int filter = arguments.Whole("Filter");
    if (filter == filter_number::kUserMatrix) return ReadUserFilter(arguments);
    if (HasChosenSize(filter)) {
        return SizedFilter(filter, ReadSize(arguments), arguments.Number("Param1", 1), shape);
    }
    return FixedFilter(filter);
}

}  // namespace

Value CallGridFilter(EngineCall& call) {
    const CallArguments arguments(call.Member,
                                  {"InGrid", "Filter", "", "", "NumPasses", "", "", "NumRow", "NumCol", "Param1", "",
                                   "UserFilter", "OutGrid", "OutFmt"},
                                  call.Given);
    const std::string input = arguments.Text("InGrid");
    const std::string output = arguments.Text("OutGrid");
    const int passes = arguments.Whole("NumPasses", 1);
    if (passes < 0) arguments.Fail("NumPasses", std::to_string(passes) + " is no number of passes");
    const GridFormat format = OutputFormat(call.Version, arguments);
    Grid grid = ReadGrid(input);
    const FilterWeights weights = ReadWeights(arguments, grid.Shape);
    WriteGrid(call.Files, output, FilterGrid(std::move(grid), weights, passes, call.Done), format);
    return true;
}

}  // namespace crownlab
