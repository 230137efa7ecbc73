#include <algorithm>

#include "forms/desk.h"
#include "viewer/contour.h"
#include "viewer/frm_csv_view.h"
#include "viewer/frm_csv_view_handlers.h"
#include "viewer/kernel.h"

namespace crownlab {
namespace {

/// Number of bands or steps a band; false, with a message, unless it is above 1.
bool TakeContourValue(FrmCSVView& form, const TextBox& box, double& value) {
    value = box.Number();
    if (value > 1) return true;
    form.MousePointer = kPointerNormal;
    Tell(form, "Value must be >1");
    return false;
}

std::string ContourImagePath(const FrmCSVView& form) {
    const std::string suffix =
        form.optContourScaleZ.Selected ? "-con" + form.txtContourScaleZ.Text : "-cor" + form.txtContourScaleR.Text;
    return form.State.Names.Stem + suffix + ".bmp";
}

double MinCuspValue(const FrmCSVView& form) {
    if (form.optCMinProp.Selected) return form.txtCMinProp.Number() * form.State.WorkZMax;
    return form.optCMinAbs.Selected ? form.txtCMinAbs.Number() : 0;
}

double CuspDifference(const FrmCSVView& form) {
    const ViewerState& state = form.State;
    if (form.optCDiffProp.Selected) return form.txtCDiffProp.Number() * (state.WorkZMax - state.WorkZMin);
    return form.optCDiffAbs.Selected ? form.txtCDiffAbs.Number() : 0;
}

/// Half width of the window chosen: 1, 2 or 3 cells.
int KernelReach(const FrmCSVView& form) {
    const int size = static_cast<int>(form.cmbKernelSize.Text().empty() ? 3 : form.cmbKernelSize.Text().front() - '0');
    return (size - 1) / 2;
}

/// Looks for a local maximum on one side of the rings around a cell and keeps none. A cell off the grid
/// isn't skipped. The other sides of a ring only serve other events.
void WalkRings(FrmCSVView& form, int column, int row) {
    constexpr int rings = 5;
    double localMaximum = -1000000000;
    for (int r = 1; r <= rings; ++r) {
        for (int dy = 0; dy <= r; ++dy) {
            const SurfaceGrid& work = form.State.WorkGrid;
            work.Require(column + 1, row + dy, "WorkGrid");
            localMaximum = std::max(localMaximum, work.z(column + 1, row + dy));
        }
        form.App.Screen->Yield();
    }
}

}  // namespace

bool ProcessContour(FrmCSVView& form) {
    ViewerState& state = form.State;
    state.WorkGrid.RequireCells("WorkGrid");
    double value = 0;
    if (form.optContourScaleZ.Selected) {
        if (!TakeContourValue(form, form.txtContourScaleZ, value)) return false;
        state.ProcGrid = ContourBySteps(state.WorkGrid, state.StepX, state.WorkZMin, value);
    } else {
        if (!TakeContourValue(form, form.txtContourScaleR, value)) return false;
        state.ProcGrid = ContourByRange(state.WorkGrid, state.WorkZMin, state.WorkZMax, value);
    }
    state.ProcessKind = "Contour";
    RenderProcGrid(form);
    if (form.chkContourSaveImage.Checked) SaveBitmap(*form.App.Files, *form.picBoxU.Image, ContourImagePath(form));
    return true;
}

void cmdProcContour_Click(FrmCSVView& form) {
    form.MousePointer = kPointerHourglass;
    ProcessContour(form);
    form.MousePointer = kPointerNormal;
}

void cmdILaPlacian_Click(FrmCSVView& form) {
    ViewerState& state = form.State;
    form.MousePointer = kPointerHourglass;
    state.WorkGrid.RequireCells("WorkGrid");
    state.ProcGrid = ApplyKernel(state.WorkGrid, LaplacianKernel());
    for (double& z : state.ProcGrid.Z) z = std::max(0.0, -z);
    RenderProcGrid(form);
    form.MousePointer = kPointerNormal;
}

void cmdIProc2_Click(FrmCSVView& form) {
    ViewerState& state = form.State;
    form.MousePointer = kPointerHourglass;
    state.WorkGrid.RequireCells("WorkGrid");
    state.ProcGrid = DetectCusps(state.WorkGrid, {.k = KernelReach(form),
                                                  .MinCuspValue = MinCuspValue(form),
                                                  .CuspDifference = CuspDifference(form),
                                                  .WorkZMin = state.WorkZMin,
                                                  .WorkZMax = state.WorkZMax});
    RenderProcGrid(form);
    form.MousePointer = kPointerNormal;
}

void cmdIProc3_Click(FrmCSVView& form) {
    ViewerState& state = form.State;
    form.MousePointer = kPointerHourglass;
    state.WorkGrid.RequireCells("WorkGrid");
    state.ProcGrid = SurfaceGrid(state.WorkGrid, 0);
    const double minCuspValue = MinCuspValue(form);
    const int numX = state.WorkGrid.NumX;
    const int numY = state.WorkGrid.NumY;
    for (int row = 1; row <= numY; ++row) {
        for (int column = 1; column <= numX; ++column) {
            state.WorkGrid.Require(column, row, "WorkGrid");
            if (state.WorkGrid.z(column, row) >= minCuspValue) WalkRings(form, column, row);
        }
    }
    form.MousePointer = kPointerNormal;
}

void cmdImageOutput_Click(FrmCSVView& form) {
    if (!form.picBoxW.Image) throw Failure(FailureKind::SubscriptOutOfRange, "picBoxW");
    SaveBitmap(*form.App.Files, *form.picBoxW.Image, form.State.Names.Stem + ".bmp");
}

void cmdImageProcOutput_Click(FrmCSVView& form) {
    if (!form.picBoxP.Image) throw Failure(FailureKind::SubscriptOutOfRange, "picBoxP");
    SaveBitmap(*form.App.Files, *form.picBoxP.Image,
               form.State.Names.Stem + form.txtImageProcExportAddText.Text + ".bmp");
}

void RegisterProcessing(FrmCSVView& form) {
    form.On("cmdProcContour_Click", cmdProcContour_Click);
    form.On("cmdIProc2_Click", cmdIProc2_Click);
    form.On("cmdIProc3_Click", cmdIProc3_Click);
    form.On("cmdILaPlacian_Click", cmdILaPlacian_Click);
    form.On("cmdImageOutput_Click", cmdImageOutput_Click);
    form.On("cmdImageProcOutput_Click", cmdImageProcOutput_Click);
}

}  // namespace crownlab
