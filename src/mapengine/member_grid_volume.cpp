#include <algorithm>
#include <memory>
#include <optional>
#include <utility>

#include "mapengine/engine_session.h"
#include "mapengine/grid_file.h"
#include "mapengine/grid_volume.h"
#include "mapengine/members.h"
#include "mapengine/volume_report.h"

namespace crownlab {
namespace {

/// What a call measures, and where its figures go.
struct VolumeRequest {
    std::string Upper;
    std::optional<std::string> LowerGrid;  ///< or else the constant
    double LowerConstant = 0;
    NumberArray Results;  ///< nullptr where none was given
    bool ShowReport = false;
};

/// A grid's name or a constant, which may have been sent as text.
void ReadLower(const CallArguments& arguments, VolumeRequest& request) {
    if (arguments.IsNumber("Lower")) {
        request.LowerConstant = arguments.Number("Lower");
    } else {
        request.LowerGrid = arguments.Text("Lower");
    }
}

VolumeRequest ReadRequest(const EngineCall& call) {
    VolumeRequest request;
    if (call.IsSix()) {
        const CallArguments arguments(call.Member, {"Upper", "", "Lower", "LowerConstant"}, call.Given);
        request.Upper = arguments.Text("Upper");
        request.LowerConstant = arguments.Number("LowerConstant", 0);
        if (arguments.Has("Lower")) ReadLower(arguments, request);
        return request;
    }
    const CallArguments arguments(call.Member, {"Upper", "Lower", "pResults", "ShowReport"}, call.Given);
    request.Upper = arguments.Text("Upper");
    ReadLower(arguments, request);
    request.ShowReport = arguments.Flag("ShowReport", false);
    if (arguments.Has("pResults")) {
        request.Results = arguments.Array("pResults");
        if (request.Results->size() < kVolumeFigures) {
            arguments.Fail("pResults", "has " + std::to_string(request.Results->size()) + " elements; " +
                                           std::to_string(kVolumeFigures) + " are needed");
        }
    }
    return request;
}

}  // namespace

Value CallGridVolume(EngineCall& call) {
    const VolumeRequest request = ReadRequest(call);
    const Grid upper = ReadGrid(request.Upper);
    std::optional<Grid> lower;
    if (request.LowerGrid) lower = ReadGrid(*request.LowerGrid);
    const Grid* const lowerGrid = lower ? &*lower : nullptr;
    const GridVolumes volumes =
        MeasureVolume(upper, {.Heights = lowerGrid, .Constant = request.LowerConstant}, call.Done);
    if (call.IsSix() || request.ShowReport) {
        const ReportedSurface below{
            .Path = request.LowerGrid.value_or(""), .Heights = lowerGrid, .Constant = request.LowerConstant};
        Worksheet report = VolumeReport({.Path = request.Upper, .Heights = &upper, .Constant = 0}, below, volumes);
        call.Afterwards.emplace_back([six = call.IsSix(), report = std::move(report)](EngineSession& session) {
            if (six) {
                session.OpenWorksheet(report);
            } else {
                session.OpenReport(report);
            }
        });
    }
    if (request.Results) std::ranges::copy(VolumeFigures(volumes), request.Results->begin());
    return true;
}

}  // namespace crownlab
