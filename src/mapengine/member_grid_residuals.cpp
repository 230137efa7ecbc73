#include <utility>

#include "mapengine/engine_session.h"
#include "mapengine/grid_file.h"
#include "mapengine/grid_residuals.h"
#include "mapengine/input_file.h"
#include "mapengine/members.h"

namespace crownlab {
namespace {

/// The largest column that a data file may put its residuals into, so that a mistyped number can't fill the memory.
constexpr int kMostColumns = 1000;

int ReadColumn(const EngineCall& call, const CallArguments& arguments, std::string_view name, int otherwise) {
    if (!arguments.Has(name)) return otherwise;
    // "Surfer.APP" counts columns from 0.
    const int first = call.IsSix() ? 0 : 1;
    const int column = arguments.Whole(name);
    if (column < first || column - first >= kMostColumns) {
        arguments.Fail(name, std::to_string(column) + " is no column of a data file");
    }
    return column - first + 1;
}

}  // namespace

Value CallGridResiduals(EngineCall& call) {
    const CallArguments arguments(call.Member, {"InGrid", "DataFile", "XCol", "yCol", "zCol", "ResidCol"}, call.Given);
    const std::string input = arguments.Text("InGrid");
    const std::string dataFile = arguments.Text("DataFile");
    ResidualColumns columns;
    columns.X = ReadColumn(call, arguments, "XCol", columns.X);
    columns.Y = ReadColumn(call, arguments, "yCol", columns.Y);
    columns.Z = ReadColumn(call, arguments, "zCol", columns.Z);
    columns.Residual = ReadColumn(call, arguments, "ResidCol", columns.Residual);
    const Grid grid = ReadGrid(input);
    const FileText data = ReadInputFile(dataFile);
    Worksheet sheet = Residuals(grid, data.View(), dataFile, columns);
    call.Afterwards.emplace_back(
        [sheet = std::move(sheet)](EngineSession& session) mutable { session.OpenWorksheet(std::move(sheet)); });
    return true;
}

}  // namespace crownlab
