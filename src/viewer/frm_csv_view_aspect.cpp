#include <algorithm>
#include <utility>

#include "basis/memory_limit.h"
#include "basis/rounding.h"
#include "forms/desk.h"
#include "viewer/aspect_slope.h"
#include "viewer/frm_csv_view.h"
#include "viewer/frm_csv_view_handlers.h"
#include "viewer/picture.h"
#include "viewer/render.h"

namespace crownlab {
namespace {

/// The one cell of the pass at which other events are served.
constexpr int kYieldColumn = 30;
constexpr int kYieldRow = 50;

AspectSlopeOptions OptionsOf(const FrmCSVView& form) {
    return {.StepX = form.State.StepX,
            .UseMinSlope = form.chkUseMinSlope.Checked,
            .MinSlope = form.chkUseMinSlope.Checked ? form.txtMinSlope.Number() : 0};
}

/// Makes both result grids in the size of the working copy.
void SizeResults(ViewerState& state) {
    state.WorkGrid.RequireCells("WorkGrid");
    RequireMemory(2 * state.WorkGrid.Size() * sizeof(double), "SlopeGrid");
    for (SurfaceGrid* const grid : {&state.SlopeGrid, &state.AspectGrid}) {
        grid->NumX = state.WorkGrid.NumX;
        grid->NumY = state.WorkGrid.NumY;
        grid->Places = state.WorkGrid.Places;
        grid->Z.resize(state.WorkGrid.Size());
    }
}

void RequireSameSize(const SurfaceGrid& slope, const SurfaceGrid& other) {
    const bool alike = slope.NumX == other.NumX && slope.NumY == other.NumY;
    if (!alike) throw Failure(FailureKind::SubscriptOutOfRange, "SlopeGrid");
}

/// Other handlers may have made all grids anew: the cells up to (numX, numY) have to be there still.
void RequireGrids(const ViewerState& state, int numX, int numY) {
    state.WorkGrid.Require(numX, numY, "WorkGrid");
    state.SlopeGrid.Require(numX, numY, "SlopeGrid");
    state.AspectGrid.Require(numX, numY, "AspectGrid");
    RequireSameSize(state.SlopeGrid, state.WorkGrid);
}

void CalcRows(FrmCSVView& form, const AspectSlopeOptions& options, int firstRow, int lastRow, int numX) {
    ViewerState& state = form.State;
    for (int row = firstRow; row <= lastRow; ++row) {
        AspectSlopeCells(state.WorkGrid, options, row, 1, numX, state.SlopeGrid, state.AspectGrid);
    }
}

Rendering RenderByKind(FrmCSVView& form, const ValueRange& range) {
    const ViewerState& state = form.State;
    if (state.ProcessKind == "Aspect") {
        constexpr double drawnCategories = 8;
        return form.txtAspectNoCat.Number() == drawnCategories ? RenderAspect(state.ProcGrid)
                                                               : RenderBlack(state.ProcGrid);
    }
    if (state.ProcessKind == "Slope") {
        return RenderSlope(
            state.ProcGrid,
            {.Max = range.Max, .UseMinSlope = form.chkUseMinSlope.Checked, .MinSlope = form.txtMinSlope.Number()});
    }
    if (state.ProcessKind == "ShadedRelief") {
        RequireSameSize(state.SlopeGrid, state.ProcGrid);
        return RenderShadedRelief(state.SlopeGrid, state.AspectGrid,
                                  {.Horiz = form.txtSRHoriz.Number(),
                                   .Vert = form.txtSRVert.Number(),
                                   .b = form.txtSRb.Number(),
                                   .w = form.txtSRw.Number()});
    }
    if (state.ProcessKind == "Contour") return RenderContour(state.ProcGrid, range);
    return RenderBlack(state.ProcGrid);
}

/// The end of the image's name; shaded relief keeps that of the last run.
void UpdateImageSuffix(FrmCSVView& form) {
    const std::string minSlope = form.chkUseMinSlope.Checked ? "_" + form.txtMinSlope.Text : "";
    if (form.optProcAspect.Selected) form.State.ImageSuffix = "-asp" + form.txtAspectNoCat.Text + minSlope;
    if (form.optProcSlope.Selected) form.State.ImageSuffix = "-sl" + form.txtSlopeNoCat.Text + minSlope;
}

void SaveOrientationImage(FrmCSVView& form) {
    if (!form.State.OrientationRun || !form.chkAspectSlopeSaveImage.Checked) return;
    UpdateImageSuffix(form);
    SaveBitmap(*form.App.Files, *form.picBoxU.Image, form.State.Names.Stem + form.State.ImageSuffix + ".bmp");
}

/// A scroll bar takes the value that was typed, limited to its range; the text stays as typed.
void FollowText(ScrollBar& bar, const TextBox& box) {
    const double typed = std::clamp(box.Number(), -1e9, 1e9);
    bar.Value = std::clamp(static_cast<int>(RoundHalfEven(typed)), bar.Min, bar.Max);
}

void FollowBar(TextBox& box, const ScrollBar& bar) { box.Text = std::to_string(bar.Value); }

}  // namespace

void AspectSlopeCalc(FrmCSVView& form) {
    ViewerState& state = form.State;
    SizeResults(state);
    const AspectSlopeOptions options = OptionsOf(form);
    const int numX = state.WorkGrid.NumX;
    const int numY = state.WorkGrid.NumY;
    if (numX < kYieldColumn || numY < kYieldRow) {
        CalcRows(form, options, 1, numY, numX);
    } else {
        CalcRows(form, options, 1, kYieldRow - 1, numX);
        AspectSlopeCells(state.WorkGrid, options, kYieldRow, 1, kYieldColumn, state.SlopeGrid, state.AspectGrid);
        form.App.Screen->Yield();
        RequireGrids(state, numX, numY);
        AspectSlopeCells(state.WorkGrid, options, kYieldRow, kYieldColumn + 1, numX, state.SlopeGrid, state.AspectGrid);
        CalcRows(form, options, kYieldRow + 1, numY, numX);
    }
    state.ProcGrid = state.ProcessKind == "Slope" ? state.SlopeGrid : state.AspectGrid;
    RenderProcGrid(form);
}

void RenderProcGrid(FrmCSVView& form) {
    ViewerState& state = form.State;
    state.ProcGrid.RequireCells("ProcGrid");
    const ValueRange range = RangeOf(state.ProcGrid);
    state.ProcZMin = range.Min;
    state.ProcZMax = range.Max;
    Rendering rendering = RenderByKind(form, range);
    state.RenderValue = std::move(rendering.Values);
    ShowRaster(form, std::move(rendering.Picture), form.picBoxP, state.ProcGrid.NumX, state.ProcGrid.NumY,
               kWorkLongSide);
    SaveOrientationImage(form);
    state.BoxP = ScaleOf(form.picBoxP, range.Min, range.Max);
}

void cmdProcAspectSlope_Click(FrmCSVView& form) {
    ViewerState& state = form.State;
    form.MousePointer = kPointerHourglass;
    state.ProcessKind = form.optProcSlope.Selected ? "Slope" : form.optProcShadRel.Selected ? "ShadedRelief" : "Aspect";
    state.OrientationRun = true;
    AspectSlopeCalc(form);
    state.OrientationRun = false;
    form.MousePointer = kPointerNormal;
}

void TakeScrollBarValues(FrmCSVView& form) {
    FollowText(form.vscSRHoriz, form.txtSRHoriz);
    FollowText(form.vscSRVert, form.txtSRVert);
    FollowText(form.vscSRb, form.txtSRb);
    FollowText(form.vscSRw, form.txtSRw);
}

void RegisterAspectSlope(FrmCSVView& form) {
    form.On("cmdProcAspectSlope_Click", cmdProcAspectSlope_Click);
    form.On(
        "vscSRHoriz_Change", +[](FrmCSVView& f) { FollowBar(f.txtSRHoriz, f.vscSRHoriz); });
    form.On(
        "vscSRVert_Change", +[](FrmCSVView& f) { FollowBar(f.txtSRVert, f.vscSRVert); });
    form.On(
        "vscSRb_Change", +[](FrmCSVView& f) { FollowBar(f.txtSRb, f.vscSRb); });
    form.On(
        "vscSRw_Change", +[](FrmCSVView& f) { FollowBar(f.txtSRw, f.vscSRw); });
    form.On(
        "txtSRHoriz_Change", +[](FrmCSVView& f) { FollowText(f.vscSRHoriz, f.txtSRHoriz); });
    form.On(
        "txtSRVert_Change", +[](FrmCSVView& f) { FollowText(f.vscSRVert, f.txtSRVert); });
    form.On(
        "txtSRb_Change", +[](FrmCSVView& f) { FollowText(f.vscSRb, f.txtSRb); });
}

}  // namespace crownlab
