#include <utility>

#include "basis/paths.h"
#include "forms/desk.h"
#include "viewer/frm_csv_view.h"
#include "viewer/frm_csv_view_handlers.h"
#include "viewer/grey_raster.h"
#include "viewer/surface_file.h"
#include "viewer/surface_wrl.h"
#include "viewer/teeth.h"
#include "viewer/tooth_file_name.h"
#include "viewer/turn_grid.h"

namespace crownlab {
namespace {

/// Takes the name of the next output of a tooth, whose folder is made if it is missing.
const std::string& TakeToothFileName(ViewerState& state, const Tooth& tooth, const char* extension) {
    MakeFolder(ToothFolder(state.Names.Dir));
    state.Names.OutputFileName = ToothFileName(state.Names.Dir, tooth.Params) + extension;
    return state.Names.OutputFileName;
}

Tooth& CurrentTooth(FrmCSVView& form) { return ToothAt(form.State.Teeth, form.txtCurrTooth.Number()); }

void WriteToothCsv(FrmCSVView& form, const Tooth& tooth) {
    if (IsEmptyTooth(tooth)) return;
    WriteSurfaceFile(*form.App.Files, TakeToothFileName(form.State, tooth, ".csv"), tooth.Grid);
}

/// Columns become rows; what the display shows is then upright again after a mirroring.
void TransposeCells(FrmCSVView& form) {
    ViewerState& state = form.State;
    state.CellGrid = Transposed(state.CellGrid);
    std::swap(state.NumX, state.NumY);
}

void Cortona1_SceneLoaded(FrmCSVView& form) { ++form.Cortona1.FitCount; }

}  // namespace

void cmdMirrorHoriz_Click(FrmCSVView& form) {
    form.State.CellGrid = MirroredColumns(form.State.CellGrid);
    cmdViewCSV_Click(form);
}

void cmdMirrorVert_Click(FrmCSVView& form) {
    form.State.CellGrid = MirroredRows(form.State.CellGrid);
    cmdViewCSV_Click(form);
}

void cmdRotateACW_Click(FrmCSVView& form) {
    TransposeCells(form);
    cmdMirrorHoriz_Click(form);
}

void cmdRotateCW_Click(FrmCSVView& form) {
    TransposeCells(form);
    cmdMirrorVert_Click(form);
}

void cmdRotate180_Click(FrmCSVView& form) {
    cmdRotateCW_Click(form);
    cmdRotateCW_Click(form);
}

void cmdOutputSingleCSV_Click(FrmCSVView& form) {
    form.MousePointer = kPointerHourglass;
    WriteToothCsv(form, CurrentTooth(form));
    form.MousePointer = kPointerNormal;
}

void cmdOutputMultiCSV_Click(FrmCSVView& form) {
    form.MousePointer = kPointerHourglass;
    ViewerState& state = form.State;
    if (state.Teeth.empty()) throw Failure(FailureKind::SubscriptOutOfRange, "MultiGrid");
    for (int t = 1; t <= state.NumTeeth; ++t) WriteToothCsv(form, ToothAt(state.Teeth, t));
    form.MousePointer = kPointerNormal;
}

void cmdOutputSingleTIF_Click(FrmCSVView& form) {
    form.MousePointer = kPointerHourglass;
    const Tooth& tooth = CurrentTooth(form);
    if (!IsEmptyTooth(tooth)) {
        const GreyOptions options{.ZMin = tooth.ZMin, .ZMax = tooth.ZMax, .Threshold = {}, .EmptyRangeFails = true};
        const Raster raster = DrawGrey(tooth.Grid, options);
        SaveBitmap(*form.App.Files, raster, TakeToothFileName(form.State, tooth, ".bmp"));
    }
    form.MousePointer = kPointerNormal;
}

void cmdOutputSingleWRL_Click(FrmCSVView& form) {
    form.MousePointer = kPointerHourglass;
    ViewerState& state = form.State;
    const Tooth& tooth = CurrentTooth(form);
    if (!IsEmptyTooth(tooth)) {
        const std::string path = TakeToothFileName(state, tooth, ".wrl");
        WriteSurfaceWrl(*form.App.Files, path, tooth.Grid,
                        {.StepX = state.StepX, .StepY = state.StepY, .ZLow = tooth.ZMin});
        form.App.Screen->OpenFile(path);
    }
    form.MousePointer = kPointerNormal;
}

void cmdCopyWRL_Click(FrmCSVView& form) {
    ViewerState& state = form.State;
    const std::string path = JoinPath(state.Names.Dir, "temp.wrl");
    WriteSurfaceWrl(*form.App.Files, path, state.CellGrid,
                    {.StepX = state.StepX, .StepY = state.StepY, .ZLow = state.Data.ZMin});
    form.Cortona1.SceneFile = path;
    ++form.Cortona1.LoadCount;
    state.VrmlActive = true;
}

void RegisterOutputs(FrmCSVView& form) {
    form.On("cmdMirrorHoriz_Click", cmdMirrorHoriz_Click);
    form.On("cmdMirrorVert_Click", cmdMirrorVert_Click);
    form.On("cmdRotateCW_Click", cmdRotateCW_Click);
    form.On("cmdRotateACW_Click", cmdRotateACW_Click);
    form.On("cmdRotate180_Click", cmdRotate180_Click);
    form.On("cmdOutputSingleCSV_Click", cmdOutputSingleCSV_Click);
    form.On("cmdOutputMultiCSV_Click", cmdOutputMultiCSV_Click);
    form.On("cmdOutputSingleTIF_Click", cmdOutputSingleTIF_Click);
    form.On("cmdOutputSingleWRL_Click", cmdOutputSingleWRL_Click);
    form.On("Cortona1_SceneLoaded", Cortona1_SceneLoaded);
    form.On("cmdCopyWRL_Click", cmdCopyWRL_Click);
}

}  // namespace crownlab
