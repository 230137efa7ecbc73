#include "basis/paths.h"
#include "basis/text.h"
#include "forms/desk.h"
#include "shell/frm_save_file.h"
#include "shell/shell_state.h"
#include "viewer/frm_csv_view.h"
#include "viewer/frm_csv_view_handlers.h"
#include "viewer/surface_file.h"

namespace crownlab {
namespace {

constexpr int kModeDefault = 1;
constexpr int kModeMinimum = 2;

}  // namespace

void TakeGridSizeMode(FrmCSVView& form) {
    if (form.optDefaultGridSize.Selected) form.State.GridSizeMode = kModeDefault;
    if (form.optMinGridSize.Selected || form.optMinGridSize1.Selected) form.State.GridSizeMode = kModeMinimum;
    // "Other" leaves the mode of the last read.
}

void BuildSurface(ViewerState& state, CellRule rule) {
    const SurfaceSteps steps{.X = state.StepX, .Y = state.StepY};
    state.Limits = LimitsForMode(state.GridSizeMode, state.Data, steps, state.Limits);
    if (state.GridSizeMode == 0) throw Failure(FailureKind::SubscriptOutOfRange, "CellGrid");
    const GridSize size = SizeOfGrid(state.Limits, steps);
    state.NumX = size.NumX;
    state.NumY = size.NumY;
    state.CellGrid = BuildCells(state.PointList, state.Limits, steps, size, rule);
}

bool NoFileChosen(FrmCSVView& form) {
    const std::string& name = form.Text1.Text;
    if (name != "*.dat" && name != "*.csv" && !name.empty()) return false;
    form.MousePointer = kPointerNormal;
    Tell(form, "Choose csv filename", "Filename");
    return true;
}

void TakeSurfaceNames(FrmCSVView& form) {
    constexpr std::size_t extensionLength = 4;  // a dot and three letters
    SurfaceNames& names = form.State.Names;
    names.Dir = WithSeparator(form.File1.Path);
    names.BaseName = LessLast(form.Text1.Text, extensionLength, "file name \"" + form.Text1.Text + "\"");
    names.Stem = names.Dir + names.BaseName;
    names.FileName = names.Dir + form.Text1.Text;
    names.OutputFileName = names.Stem + "T.csv";
}

void cmdReadCSV_Click(FrmCSVView& form) {
    form.MousePointer = kPointerHourglass;
    if (NoFileChosen(form)) return;
    TakeSurfaceNames(form);
    ViewerState& state = form.State;
    state.PointList = ReadPointText(state.Names.FileName);
    state.Data = FindSurfaceExtents(state.PointList, form.chkOrigModelFile.Checked, state.ZOrigin);
    const SurfaceSteps steps = FindSteps(state.PointList);
    state.StepX = steps.X;
    state.StepY = steps.Y;
    if (state.StepX == kNoStep || state.StepY == kNoStep) Tell(form, "Error");
    TakeGridSizeMode(form);
    BuildSurface(state, CellRule::Rounded);
    cmdViewCSV_Click(form);
    cmdICopy_Click(form);
    form.MousePointer = kPointerNormal;
}

void cmdOutputCSV_Click(FrmCSVView& form) {
    form.MousePointer = kPointerNormal;
    if (!AskForSavePath(form.App, form.Shell)) return;
    form.MousePointer = kPointerHourglass;
    form.State.Names.OutputFileName = form.Shell.SavePath;
    WriteSurfaceFile(*form.App.Files, form.State.Names.OutputFileName, form.State.CellGrid);
    form.MousePointer = kPointerNormal;
}

void RegisterReading(FrmCSVView& form) {
    form.On("cmdReadCSV_Click", cmdReadCSV_Click);
    form.On("cmdOutputCSV_Click", cmdOutputCSV_Click);
}

}  // namespace crownlab
