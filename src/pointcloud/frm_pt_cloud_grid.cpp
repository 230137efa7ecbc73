#include "basis/failure.h"
#include "basis/number_text.h"
#include "forms/desk.h"
#include "forms/window_table.h"
#include "pointcloud/frm_pt_cloud.h"
#include "shell/shell_state.h"
#include "surfer/digitise_area.h"
#include "surfer/grid_calls.h"
#include "surfer/grid_shape.h"
#include "surfer/plot_driver.h"
#include "surfer/session.h"

namespace crownlab {
namespace {

Session& SessionOf(FrmPtCloud& form) { return *form.Shell.Surfer; }

/// The file at that place of the batch, from 0, looked up anew after every box.
BatchFile& FileAt(FrmPtCloud& form, std::size_t index) {
    if (index < form.Batch.size()) return form.Batch[index];
    throw Failure(FailureKind::SubscriptOutOfRange, "file no. " + std::to_string(index + 1));
}

MapOfGrid MapOf(const BatchFile& file) { return {file.FileDir, file.FileBase}; }

/// Both tools work on the grids that have the names of the chosen files.
void StartGridTool(FrmPtCloud& form) {
    form.MousePointer = kPointerHourglass;
    Session& session = SessionOf(form);
    session.SurferApp = PrepareSurfer(session, *form.App.Windows, form.chkStartSurfer.Checked);
    AddIfNoFiles(form);
    form.GridInPath.clear();
    for (const BatchFile& file : form.Batch) form.GridInPath.push_back(file.Stem + ".grd");
    form.GridOutPath.assign(form.Batch.size(), {});
}

/// False if the box was cancelled.
bool BlankFile(FrmPtCloud& form, std::size_t index) {
    const int sense = form.optBlankInside.Selected ? 1 : 0;
    const auto outline = DigitiseArea(form.App, MapOf(FileAt(form, index)), sense);
    if (!outline) return false;
    form.GridOutPath.at(index) = FileAt(form, index).Stem + "b.grd";
    BlankGrid(SessionOf(form), form.GridInPath.at(index), *outline, form.GridOutPath.at(index));
    return true;
}

/// What one extraction is to do, as far as the person decides it.
struct ExtractPlan {
    std::optional<DigitisedBox> Box;
    double Step = -1;
    std::string Suffix;
};

/// The digitised corners go into the plan. False if the box was cancelled or they aren't in order.
bool TakeCorners(FrmPtCloud& form, std::size_t index, ExtractPlan& plan) {
    plan.Box = DigitiseBox(form.App, MapOf(FileAt(form, index)));
    if (!plan.Box) return false;
    if (CornersInOrder(plan.Box->LowerLeft, plan.Box->UpperRight)) return true;
    form.MousePointer = kPointerNormal;
    Tell(form, "Points invalid - redigitise points.");
    return false;
}

GridPart RangeOf(const ExtractPlan& plan, const GridShape& grid) {
    if (!plan.Box) return {-1, -1, -1, -1};
    return RangeBetween(grid, plan.Box->LowerLeft, plan.Box->UpperRight);
}

/// The map that the options of the batch functions' window ask for; those of this window have no effect.
LateBound AddMap(const PlotPage& page, WindowTable& windows, const std::string& gridPath, double centre) {
    const bool relief = windows.Get<OptionButton>("frmSurfFns", "optRelief").Selected;
    if (!relief && !windows.Get<OptionButton>("frmSurfFns", "optContour").Selected) return {};
    LateBound frame =
        page.Shapes.CallForObject(relief ? "AddReliefMap" : "AddContourMap", {{"GridFilename", gridPath}});
    frame.Object("Overlays", {1});
    if (relief) frame.Set("Left", centre - frame.GetNumber("XLength") / 2);
    return frame;
}

/// A map of the grid, ten page units from that of the file before it, with its name. Version 8 only.
void PlotSurfer(FrmPtCloud& form, const std::string& gridPath, const std::string& label, std::size_t index,
                const std::string& suffix) {
    constexpr double apart = 10;
    constexpr double labelY = 14.63;
    if (!SessionOf(form).IsEight()) return;
    WindowTable& windows = *form.App.Windows;
    const PlotPage page = ActivePlotPage(SessionOf(form), windows);
    const double centre = apart * static_cast<double>(index + 1) + kMapCentreX;
    const LateBound frame = AddMap(page, windows, gridPath, centre);
    if (!windows.Get<CheckBox>("frmSurfFns", "chkLabelSurfer").Checked || label.empty()) return;
    const LateBound font = page.Document.Object("DefaultFont");
    font.Set("HAlign", 2);
    font.Set("VAlign", 4);
    page.Shapes.Call(
        "AddText", {{"X", centre}, {"Y", labelY - frame.GetNumber("YLength") / 2}, {"Text", label + suffix + ".grd"}});
}

/// False if the person stopped it or the corners did.
bool ExtractFile(FrmPtCloud& form, std::size_t index) {
    ExtractPlan plan;
    if (form.chkRedArea.Checked) {
        if (!TakeCorners(form, index, plan)) return false;
        plan.Suffix = "e";
    }
    const std::string gridIn = form.GridInPath.at(index);
    const GridShape grid =
        ReadGridShape(SessionOf(form), form.App, gridIn, form.Label1.Caption, ShapeOf::PlanAndHeights);
    if (form.chkRedRow.Checked) {
        plan.Step = form.txtRedRow.Number();
        plan.Suffix += "r" + GeneralText(plan.Step);
    }
    const BatchFile file = FileAt(form, index);
    const std::string gridOut = form.GridOutPath.at(index) = file.Stem + plan.Suffix + ".grd";
    ExtractGrid(SessionOf(form), gridIn, RangeOf(plan, grid), plan.Step, gridOut);
    if (form.chkPlotSurfer.Checked) PlotSurfer(form, gridOut, file.FileBase, index, plan.Suffix);
    return true;
}

/// Runs a tool over the batch, up to a file at which it is stopped.
void RunOverBatch(FrmPtCloud& form, bool (*runFile)(FrmPtCloud&, std::size_t)) {
    StartGridTool(form);
    const std::size_t count = form.Batch.size();
    for (std::size_t i = 0; i < count; ++i) {
        if (runFile(form, i)) continue;
        form.MousePointer = kPointerNormal;
        return;
    }
    cmdClearFilenames_Click(form);
    form.MousePointer = kPointerNormal;
}

}  // namespace

void cmdBlank_Click(FrmPtCloud& form) { RunOverBatch(form, BlankFile); }

void cmdExtract_Click(FrmPtCloud& form) {
    if (!form.chkRedArea.Checked && !form.chkRedRow.Checked) return;
    RunOverBatch(form, ExtractFile);
}

void RegisterGridTools(FrmPtCloud& form) {
    form.On("cmdBlank_Click", cmdBlank_Click);
    form.On("cmdExtract_Click", cmdExtract_Click);
}

}  // namespace crownlab
