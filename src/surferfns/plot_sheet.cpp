#include "surferfns/plot_sheet.h"

#include "surfer/session.h"

namespace crownlab {
namespace {

const char* MapMember(int type) {
    switch (type) {
        case kPlotRelief: return "AddReliefMap";
        case kPlotContour: return "AddContourMap";
        case kPlotImage: return "AddImageMap";
        case kPlotSurface: return "AddSurface";
        default: return nullptr;
    }
}

LateBound AddMap(const PlotPage& page, const PlotRequest& request) {
    const char* const member = MapMember(request.Type);
    if (member == nullptr) return {};
    return page.Shapes.CallForObject(member, {{"GridFilename", request.GridPath}});
}

void LightMap(const LateBound& overlay, int type, const SurfaceView& view) {
    if (type == kPlotSurface) SetSurfaceView(overlay, view);
    if (type != kPlotRelief) return;
    overlay.Set("HLightAngle", view.Azimuth);
    overlay.Set("VLightAngle", view.Zenith);
}

/// A map has four axes, a surface a fifth that stands up.
void HideAxes(const LateBound& frame, int type) {
    const int axes = type == kPlotSurface ? 5 : 4;
    for (int i = 1; i <= axes; ++i) {
        const LateBound axis = frame.Object("Axes", {i});
        axis.Set("ShowLabels", false);
        axis.Set("MajorTickType", 1);
        axis.Object("AxisLine").Set("Style", "Invisible");
    }
}

void AddScaleBar(const LateBound& frame, double cycle) {
    constexpr int cycles = 8;
    const LateBound bar = frame.Object("ScaleBars").CallForObject("Add");
    bar.Set("CycleSpacing", cycle);
    bar.Set("LabelIncrement", cycle);
    bar.Set("NumCycles", cycles);
}

/// Off and on again: the scale takes up the map as it is now.
void RenewColourScale(const LateBound& overlay) {
    overlay.Set("ShowColorScale", false);
    overlay.Set("ShowColorScale", true);
}

void PlotMap(Session& session, WindowTable& windows, const SheetOptions& options, const PlotRequest& request) {
    const PlotPage page = ActivePlotPage(session, windows);
    const LateBound frame = AddMap(page, request);
    const LateBound overlay = frame.Object("Overlays", {1});
    LightMap(overlay, request.Type, options.View);
    const SheetPlace place = PlaceOfSlot(options.Layout, request.Slot);
    PlaceMap(frame, options.Layout, place);
    if (!options.Axes) HideAxes(frame, request.Type);
    if (options.ScaleBar) AddScaleBar(frame, options.ScaleBarCycle);
    if (request.Type == kPlotContour) RenewColourScale(overlay);
    if (!options.Label || request.BaseName.empty()) return;
    LabelMap(page, frame, options.Layout, place, request.BaseName + ".grd");
}

}  // namespace

void PlotOnSheet(Session& session, WindowTable& windows, const SheetOptions& options, const PlotRequest& request) {
    if (session.IsSix()) PlotReliefRow(session.SurferApp, request.GridPath, request.BaseName, request.Slot);
    if (session.IsEight()) PlotMap(session, windows, options, request);
}

}  // namespace crownlab
