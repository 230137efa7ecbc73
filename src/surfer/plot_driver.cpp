#include "surfer/plot_driver.h"

#include <cmath>

#include "basis/paths.h"
#include "basis/rounding.h"
#include "surfer/session.h"

namespace crownlab {
namespace {

/// The map frame of a request; an unset object for a type that has none.
LateBound AddMap(const LateBound& program, const PlotPage& page, const PlotRequest& request) {
    switch (request.Type) {
        case kPlotRelief: return page.Shapes.CallForObject("AddReliefMap", {{"GridFilename", request.GridPath}});
        case kPlotContour: return page.Shapes.CallForObject("AddContourMap", {{"GridFilename", request.GridPath}});
        case kPlotImage:
            return page.Shapes.CallForObject(
                "AddSurface",
                {{"GridFilename", JoinPath(JoinPath(program.GetText("Path"), "Samples"), "demogrid.grd")}});
        case kPlotSurface: return page.Shapes.CallForObject("AddSurface", {{"GridFilename", request.GridPath}});
        default: return {};
    }
}

}  // namespace

void PlotReliefRow(const LateBound& program, const std::string& gridPath, const std::string& baseName, int slot) {
    constexpr int perRow = 10;
    constexpr int apart = 4;
    constexpr int rowApart = 7;
    constexpr double textY = 2.25;
    const int row = (slot - 1) / perRow;
    const std::string label = baseName + "txt";
    const Argument none{Absent{}};
    program.Call("ReliefMap", {gridPath, none, none, none, none, none, none, none, baseName});
    program.Call("DrawText", {4, 6, baseName, label});
    program.Call("Select", {label});
    program.Call("TransformSel", {4, textY});
    program.Call("Select", {baseName, label});
    program.Call("TransformSel", {apart * (slot - perRow * row), -rowApart * row});
    program.Call("Deselect");
}

PlotPage ActivePlotPage(Session& session, WindowTable& windows) {
    const LateBound program = AttachSurfer(session, windows);
    const LateBound documents = program.Object("Documents");
    const std::string name = program.Object("ActiveDocument").GetText("Name");
    PlotPage page;
    page.Document = documents.Object("Item", {{"Index", name}});
    page.Shapes = page.Document.Object("Shapes");
    return page;
}

SheetPlace PlaceOfSlot(const SheetLayout& layout, int slot) {
    const double row = std::floor(Divide(slot - 1, layout.PerRow, "maps in a row"));
    return {.Column = slot - layout.PerRow * row, .Row = row};
}

void PlaceMap(const LateBound& frame, const SheetLayout& layout, const SheetPlace& place) {
    frame.Set("Left", layout.SpacingX * place.Column + kMapCentreX - frame.GetNumber("XLength") / 2);
    frame.Set("Top", frame.GetNumber("Top") - layout.SpacingY * place.Row);
}

void LabelMap(const PlotPage& page, const LateBound& frame, const SheetLayout& layout, const SheetPlace& place,
              const std::string& text) {
    const LateBound font = page.Document.Object("DefaultFont");
    font.Set("HAlign", 1);
    font.Set("VAlign", 4);
    const double x = layout.SpacingX * place.Column + kLabelX - frame.GetNumber("XLength") / 2;
    const double y = kLabelY - frame.GetNumber("YLength") / 2 - layout.SpacingY * place.Row;
    page.Shapes.Call("AddText", {{"X", x}, {"Y", y}, {"Text", text}});
}

void SetSurfaceView(const LateBound& surface, const SurfaceView& view) {
    surface.Set("zMapPerPU", surface.GetNumber("xMapPerPU"));
    surface.Set("LightAzimuth", view.Azimuth);
    surface.Set("LightZenith", view.Zenith);
    surface.Set("ViewProjection", view.Projection);
    surface.Set("ViewRotation", view.Rotation);
    surface.Set("ViewTilt", view.Tilt);
}

void PlotSurfer(Session& session, WindowTable& windows, const LateBound& program, const PlotRequest& request) {
    if (session.IsSix()) PlotReliefRow(program, request.GridPath, request.BaseName, request.Slot);
    if (!session.IsEight()) return;
    const PlotPage page = ActivePlotPage(session, windows);
    const LateBound frame = AddMap(program, page, request);
    const LateBound overlay = frame.Object("Overlays", {1});
    if (request.Type == kPlotSurface) SetSurfaceView(overlay, {});
    const SheetLayout layout;
    const SheetPlace place = PlaceOfSlot(layout, request.Slot);
    PlaceMap(frame, layout, place);
    if (!request.Label || request.BaseName.empty()) return;
    LabelMap(page, frame, layout, place, request.BaseName + request.NameAddition + ".grd");
}

}  // namespace crownlab
