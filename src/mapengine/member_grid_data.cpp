#include <algorithm>
#include <array>
#include <limits>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

#include "basis/failure.h"
#include "basis/text.h"
#include "mapengine/data_file.h"
#include "mapengine/engine_session.h"
#include "mapengine/grid_file.h"
#include "mapengine/gridding_report.h"
#include "mapengine/members.h"
#include "mapengine/scattered_grid.h"

namespace crownlab {
namespace {

// Names of places that only calls by position have.
constexpr std::string_view kRowsBehind = "number of rows in place 11";
constexpr std::string_view kColumnsBehind = "number of columns in place 12";
constexpr std::string_view kFirstTerm = "regression argument in place 51";

constexpr std::array<std::string_view, 4> kRegression = {kFirstTerm, "RegrMaxXOrder", "RegrMaxYOrder",
                                                         "RegrMaxTotalOrder"};

/// Places from 1; those between the report and the regression arguments mean nothing here.
Positions PositionsOfGridData() {
    Positions positions = {"DataFile",  "XCol",         "yCol",      "zCol",    "XMin",
                           "XMax",      "YMin",         "YMax",      "NumCols", "NumRows",
                           kRowsBehind, kColumnsBehind, "Algorithm", "OutGrid", "ShowReport"};
    constexpr std::size_t beforeRegression = 50;
    positions.resize(beforeRegression);
    positions.insert(positions.end(), kRegression.begin(), kRegression.end());
    return positions;
}

/// One of the numbers under which a class knows a method.
struct MethodNumber {
    EngineVersion Version;
    int Number;
    GriddingMethod Method;
    std::string_view Name;
};

constexpr MethodNumber kMethods[] = {
    {EngineVersion::Eight, 1, GriddingMethod::InverseDistance, "inverse distance"},
    {EngineVersion::Eight, 2, GriddingMethod::Kriging, "kriging"},
    {EngineVersion::Eight, 6, GriddingMethod::Plane, "polynomial regression"},
    {EngineVersion::Eight, 7, GriddingMethod::Plane, "polynomial regression"},
    {EngineVersion::Eight, 9, GriddingMethod::Triangulation, "triangulation"},
    {EngineVersion::Six, 0, GriddingMethod::InverseDistance, "inverse distance"},
    {EngineVersion::Six, 1, GriddingMethod::Kriging, "kriging"},
    {EngineVersion::Six, 3, GriddingMethod::Plane, "polynomial regression"},
    {EngineVersion::Six, 6, GriddingMethod::Triangulation, "triangulation"},
};

/// Method 6 of "Surfer.Application" is a regression only by its arguments, and its report is four rows longer.
constexpr int kRegressionByArguments = 6;
constexpr int kPlaneRow = 166;
constexpr int kPlaneRowByArguments = 170;

int PlaneRow(int algorithm) { return algorithm == kRegressionByArguments ? kPlaneRowByArguments : kPlaneRow; }

bool HasRegression(const CallArguments& arguments) {
    return std::ranges::any_of(kRegression, [&](std::string_view name) { return arguments.Has(name); });
}

const MethodNumber& MethodOf(const EngineCall& call, const CallArguments& arguments) {
    const int algorithm = arguments.Whole("Algorithm");
    for (const MethodNumber& method : kMethods) {
        if (method.Version != call.Version || method.Number != algorithm) continue;
        if (!call.IsSix() && algorithm == kRegressionByArguments && !HasRegression(arguments)) {
            arguments.Fail("Algorithm", "6 needs the regression arguments");
        }
        return method;
    }
    arguments.Fail("Algorithm", std::to_string(algorithm) + " stands for no method");
}

/// Only planes are fitted.
void RequirePlaneOrders(const CallArguments& arguments) {
    for (const std::string_view name : kRegression) {
        if (arguments.Whole(name, 1) != 1) arguments.Fail(name, "is not 1: only planes are fitted");
    }
}

int ColumnFrom(const CallArguments& arguments, std::string_view name, int first, int otherwise) {
    const int column = arguments.Whole(name, otherwise + first - 1);
    if (column < first)
        arguments.Fail(name, "is " + std::to_string(column) + "; the first column is " + std::to_string(first));
    // No line has as many fields as there are numbers.
    return std::min(column, std::numeric_limits<int>::max() - 1) - first + 1;
}

DataColumns ColumnsFrom(const EngineCall& call, const CallArguments& arguments) {
    const int first = call.IsSix() ? 0 : 1;
    return {.X = ColumnFrom(arguments, "XCol", first, 1),
            .Y = ColumnFrom(arguments, "yCol", first, 2),
            .Z = ColumnFrom(arguments, "zCol", first, 3)};
}

std::optional<double> ExcludedAbove(const CallArguments& arguments) {
    const std::optional<std::string> filter = arguments.OptionalText("ExclusionFilter");
    if (!filter) return std::nullopt;
    const std::optional<double> above = ParseExclusionFilter(*filter);
    if (!above) arguments.Fail("ExclusionFilter", "is " + QuotedText(*filter) + R"(; only "Z > number" is understood)");
    return above;
}

/// A count at its place or, where that is absent, at the other one.
std::optional<int> CountFrom(const CallArguments& arguments, std::string_view name, std::string_view behind) {
    for (const std::string_view place : {name, behind}) {
        if (!arguments.Has(place)) continue;
        const int count = arguments.Whole(place);
        if (count < 2) arguments.Fail(place, "is " + std::to_string(count) + "; a grid has two at least");
        return count;
    }
    return std::nullopt;
}

WantedGeometry WantedFrom(const CallArguments& arguments) {
    return {.Columns = CountFrom(arguments, "NumCols", kColumnsBehind),
            .Rows = CountFrom(arguments, "NumRows", kRowsBehind),
            .XMin = arguments.OptionalNumber("XMin"),
            .XMax = arguments.OptionalNumber("XMax"),
            .YMin = arguments.OptionalNumber("YMin"),
            .YMax = arguments.OptionalNumber("YMax")};
}

/// Hands the plane over: "Surfer.APP" by the clipboard, "Surfer.Application" by a report.
void LeaveReport(EngineCall& call, Worksheet report, const ScatteredGrid& result) {
    if (!call.IsSix()) {
        call.Afterwards.emplace_back(
            [report = std::move(report)](EngineSession& session) { session.OpenReport(report); });
    } else if (result.Plane) {
        call.Afterwards.emplace_back(
            [line = PlaneLine(*result.Plane)](EngineSession& session) { session.SetClipboardText(line); });
    }
}

/// The grid of a file's points; what they don't allow is told with the file's name.
ScatteredGrid GridFacts(const EngineCall& call, const GriddingFacts& facts, GriddingMethod method,
                        const WantedGeometry& wanted) {
    try {
        if (facts.Used.empty()) FailCall("there is no point to grid");
        return GridPoints(method, facts.Used, GeometryFor(wanted, facts.Used), call.Done);
    } catch (const Failure& failure) {
        if (failure.Kind() != FailureKind::AutomationFailed) throw;
        FailCall(facts.DataFile + ": " + failure.Object());
    }
}

}  // namespace

Value CallGridData(EngineCall& call) {
    const CallArguments arguments(call.Member, PositionsOfGridData(), call.Given, {"ExclusionFilter", "OutFmt"});
    GriddingFacts facts;
    facts.DataFile = arguments.Text("DataFile");
    facts.OutGrid = arguments.Text("OutGrid");
    const MethodNumber& method = MethodOf(call, arguments);
    if (method.Method == GriddingMethod::Plane) RequirePlaneOrders(arguments);
    const DataColumns columns = ColumnsFrom(call, arguments);
    const std::optional<double> above = ExcludedAbove(arguments);
    const WantedGeometry wanted = WantedFrom(arguments);
    const bool showReport = arguments.Flag("ShowReport", call.IsSix());
    const GridFormat format =
        arguments.Has("OutFmt") ? FormatOfNumber(call.Version, arguments.Whole("OutFmt")) : DefaultFormat(call.Version);

    DataPoints points = ReadDataFile(facts.DataFile, columns);
    facts.Method = method.Name;
    facts.PointsRead = points.size();
    facts.Used = PointsToGrid(std::move(points), above);
    const ScatteredGrid result = GridFacts(call, facts, method.Method, wanted);
    WriteGrid(call.Files, facts.OutGrid, result.Heights, format);
    if (showReport) LeaveReport(call, GriddingReport(facts, result, PlaneRow(method.Number)), result);
    return true;
}

}  // namespace crownlab
