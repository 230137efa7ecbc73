#include "mapengine/grid_derivatives.h"
#include "mapengine/grid_file.h"
#include "mapengine/members.h"

namespace crownlab {
namespace {

enum class Operation { Curvature = 3, Slope = 4, Aspect = 5 };

/// The operations of "Surfer.APP": a kind in the second place, and the kind's own operation in the third (along a
/// direction) or the fifth (of the terrain).
constexpr int kSixDirectional = 0;
constexpr int kSixTerrain = 1;
constexpr int kSixCurvature = 2;
constexpr int kSixSlope = 0;
constexpr int kSixAspect = 1;

[[noreturn]] void FailUnknown(const CallArguments& arguments, std::string_view name) {
    arguments.Fail(name, std::to_string(arguments.Whole(name)) + " stands for no operation");
}

CallArguments ReadArguments(const EngineCall& call) {
    if (call.IsSix()) {
        return {call.Member,
                {"InGrid", "Kind", "Directional", "Param1", "Terrain", "", "", "", "OutGrid", "OutFmt"},
                call.Given};
    }
    return {call.Member, {"InGrid", "Operation", "Param1", "OutGrid", "OutFmt"}, call.Given};
}

Operation ReadOperationOfSix(const CallArguments& arguments) {
    switch (arguments.Whole("Kind")) {
        case kSixDirectional:
            if (arguments.Whole("Directional") != kSixCurvature) FailUnknown(arguments, "Directional");
            return Operation::Curvature;
        case kSixTerrain:
            switch (arguments.Whole("Terrain")) {
                case kSixSlope: return Operation::Slope;
                case kSixAspect: return Operation::Aspect;
                default: FailUnknown(arguments, "Terrain");
            }
        default: FailUnknown(arguments, "Kind");
    }
}

Operation ReadOperation(const EngineCall& call, const CallArguments& arguments) {
    if (call.IsSix()) return ReadOperationOfSix(arguments);
    const auto operation = static_cast<Operation>(arguments.Whole("Operation"));
    switch (operation) {
        case Operation::Curvature:
        case Operation::Slope:
        case Operation::Aspect: return operation;
    }
    FailUnknown(arguments, "Operation");
}

Grid Calculate(const Grid& grid, Operation operation, double parameter, Progress& progress) {
    switch (operation) {
        case Operation::Curvature: return CurvatureGrid(grid, parameter, progress);
        case Operation::Slope: return SlopeGrid(grid, progress);
        case Operation::Aspect: break;
    }
    return AspectGrid(grid, parameter, progress);
}

}  // namespace

Value CallGridCalculus(EngineCall& call) {
    const CallArguments arguments = ReadArguments(call);
    const std::string input = arguments.Text("InGrid");
    const Operation operation = ReadOperation(call, arguments);
    // A curvature without its direction would be one that nobody asked for.
    const double parameter =
        operation == Operation::Curvature ? arguments.Number("Param1") : arguments.Number("Param1", 0);
    const std::string output = arguments.Text("OutGrid");
    const GridFormat format = OutputFormat(call.Version, arguments);
    WriteGrid(call.Files, output, Calculate(ReadGrid(input), operation, parameter, call.Done), format);
    return true;
}

}  // namespace crownlab
