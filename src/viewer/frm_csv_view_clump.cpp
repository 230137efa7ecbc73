#include <memory>
#include <utility>

#include "basis/number_text.h"
#include "basis/paths.h"
#include "basis/rounding.h"
#include "forms/desk.h"
#include "viewer/clump.h"
#include "viewer/clump_files.h"
#include "viewer/frm_csv_view.h"
#include "viewer/frm_csv_view_handlers.h"

namespace crownlab {
namespace {

/// The cell of a scan and the label of the table at which other events are served.
constexpr int kYieldColumn = 13;
constexpr int kYieldRow = 137;
constexpr int kYieldLabel = 406;
constexpr int kFirstLevel = 2;
constexpr int kFinalLevel = 7;

/// A stage of the count as it stands now; other handlers may have made all stages anew.
std::shared_ptr<const LabelGrid> LevelOf(const ViewerState& state, int level, int numX, int numY) {
    std::shared_ptr<const LabelGrid> grid = state.Stack.Level[static_cast<std::size_t>(level)];
    const bool fits =
        grid && grid->NumX >= numX && grid->NumY >= numY && state.Stack.Category.size() == grid->Labels.size();
    if (!fits) throw Failure(FailureKind::SubscriptOutOfRange, "ClumpStack");
    return grid;
}

/// Brings `ProcGrid` to hold the values to class. False if a message ended the run.
bool ComputeSource(FrmCSVView& form) {
    ViewerState& state = form.State;
    if (form.optClumpAspectSlope.Selected) {
        state.ProcessKind = "Aspect";
        AspectSlopeCalc(form);
        const ClassRule rule = OrientationRule(form.txtAspectNoCat.Number(), false);
        state.NumCategories = rule.NumCategories;
        state.HalfSector = rule.HalfSector;
        state.SectorWidth = rule.SectorWidth;
    } else if (form.optClumpContour.Selected) {
        if (!ProcessContour(form)) return false;
        const ClassRule rule = ContourRule(state.ProcZMin, state.ProcZMax, false);
        state.NumCategories = rule.NumCategories;
        state.HalfSector = rule.HalfSector;
        state.SectorWidth = rule.SectorWidth;
    }
    return true;
}

/// Levels 1 and 2.
void LabelCategories(FrmCSVView& form) {
    ViewerState& state = form.State;
    if (state.SectorWidth == 0) throw Failure(FailureKind::DivisionByZero, "SectorWidth");
    if (state.ProcGrid.NumX > state.Stack.NumX || state.ProcGrid.NumY > state.Stack.NumY) {
        throw Failure(FailureKind::SubscriptOutOfRange, "ClumpStack");
    }
    state.Stack.Level = {};
    state.Stack.Category = Categorise(state.ProcGrid, {.NumCategories = state.NumCategories,
                                                       .HalfSector = state.HalfSector,
                                                       .SectorWidth = state.SectorWidth,
                                                       .VoidHoriz = form.chkVoidHoriz.Checked});
    state.EquivTable = EmptyEquivTable();
    FirstLabelsResult first = FirstLabels(state.Stack.Category, state.ProcGrid);
    state.NumLabels = first.LastLabel;
    state.Stack.Level[kFirstLevel] = std::make_shared<const LabelGrid>(std::move(first.Labels));
    DisplayResultsIPicBox(form, kFirstLevel, 1);
}

void FindEquivInPass(FrmCSVView& form, Pass pass, int level) {
    ViewerState& state = form.State;
    const int numX = state.ProcGrid.NumX;
    const int numY = state.ProcGrid.NumY;
    const std::size_t end = state.ProcGrid.Size();
    std::shared_ptr<const LabelGrid> labels = LevelOf(state, level, numX, numY);
    std::vector<std::size_t> cells = CellsWithPairs(state.Stack.Category, *labels);
    std::size_t done = 0;
    if (numX >= kYieldColumn && numY >= kYieldRow) {
        done = ScanPosition(pass, numX, numY, kYieldColumn, kYieldRow);
        FindEquiv(state.Stack.Category, *labels, cells, pass, 0, done, state.EquivTable);
        form.App.Screen->Yield();
        const std::shared_ptr<const LabelGrid> before = std::exchange(labels, LevelOf(state, level, numX, numY));
        if (labels != before) cells = CellsWithPairs(state.Stack.Category, *labels);
    }
    FindEquiv(state.Stack.Category, *labels, cells, pass, done, end, state.EquivTable);
}

void ShortenTable(FrmCSVView& form) {
    ViewerState& state = form.State;
    const int numLabels = state.NumLabels;
    int from = numLabels;
    if (numLabels >= kYieldLabel) {
        ShortenEquivTable(state.EquivTable, numLabels, from, kYieldLabel + 1);
        form.App.Screen->Yield();
        from = kYieldLabel;
    }
    ShortenEquivTable(state.EquivTable, numLabels, from, 1);
}

void FixEquivInLevel(FrmCSVView& form, int level) {
    ViewerState& state = form.State;
    const int numX = state.ProcGrid.NumX;
    const int numY = state.ProcGrid.NumY;
    std::shared_ptr<const LabelGrid> labels = LevelOf(state, level, numX, numY);
    const std::size_t cells = labels->Labels.size();
    const auto fixed = std::make_shared<LabelGrid>(EmptyLabels(labels->NumX, labels->NumY, labels->Places));
    std::size_t done = 0;
    if (numX >= kYieldColumn && numY >= kYieldRow) {
        done = ScanPosition(Pass::One, numX, numY, kYieldColumn, kYieldRow);
        FixEquiv(*labels, state.EquivTable, 0, done, *fixed);
        form.App.Screen->Yield();
        labels = LevelOf(state, level, numX, numY);
        if (labels->NumX != fixed->NumX || labels->NumY != fixed->NumY) {
            throw Failure(FailureKind::SubscriptOutOfRange, "ClumpStack");
        }
    }
    FixEquiv(*labels, state.EquivTable, done, cells, *fixed);
    state.Stack.Level[static_cast<std::size_t>(level) + 1] = fixed;
}

/// The four passes. Slot p shows the labels after pass p.
void MergeLabels(FrmCSVView& form) {
    for (const Pass pass : {Pass::One, Pass::Two, Pass::Three, Pass::Four}) {
        const int number = static_cast<int>(pass);
        const int level = number + 1;
        FindEquivInPass(form, pass, level);
        ShortenTable(form);
        FixEquivInLevel(form, level);
        DisplayResultsIPicBox(form, level + 1, number);
        form.State.EquivTable = EmptyEquivTable();
    }
}

void CountClumps(FrmCSVView& form) {
    ViewerState& state = form.State;
    const std::shared_ptr<const LabelGrid> labels =
        LevelOf(state, kFinalLevel - 1, state.ProcGrid.NumX, state.ProcGrid.NumY);
    const int minClumpSize = ToInt16(form.txtMinClumpSize.Number(), "MinClumpSize");
    ClumpSelection selection = SelectClumps(*labels, state.NumLabels, minClumpSize);
    form.lblNoClumps.Caption = std::to_string(selection.ClumpSizes.size());
    state.Stack.Level[kFinalLevel] = std::make_shared<const LabelGrid>(ClumpNumbers(*labels, selection));
    state.Clump.ClumpSizes = std::move(selection.ClumpSizes);
    DisplayResultsIPicBox(form, kFinalLevel, 4);
}

/// Identifier of a run with the present options; empty for "Current view", which has none of its own.
std::string ClumpName(const FrmCSVView& form) {
    const std::string& minimum = form.txtMinClumpSize.Text;
    if (form.optClumpAspectSlope.Selected) {
        std::string name = "cl_asp" + form.txtAspectNoCat.Text + "_" + minimum;
        if (form.chkUseMinSlope.Checked) name += "_" + form.txtMinSlope.Text + (form.chkVoidHoriz.Checked ? "vh" : "");
        return name;
    }
    if (!form.optClumpContour.Selected) return {};
    if (form.optContourScaleZ.Selected) return "cl_con" + form.txtContourScaleZ.Text + "_" + minimum;
    return "cl_cor" + form.txtContourScaleR.Text + "_" + minimum;
}

void WriteFiles(FrmCSVView& form) {
    const ViewerState& state = form.State;
    const ClumpReport report{.Folder = WithSeparator(state.Names.Dir + state.Clump.ClumpInfo),
                             .BaseName = state.Names.BaseName,
                             .Result = &state.Clump,
                             .Sizes = SizesOf(state.Clump.ClumpSizes)};
    FileTable& files = *form.App.Files;
    if (!IsFolder(report.Folder)) MakeFolder(report.Folder);
    WriteClumpResults(files, report);
    WriteClumpCells(files, report, *LevelOf(state, kFinalLevel, state.ProcGrid.NumX, state.ProcGrid.NumY));
    if (form.chkClumpSingResFile.Checked) WriteClumpAllResults(files, report, state.BatchRunning);
    if (form.chkClumpSaveImage.Checked) SaveBitmap(files, *form.picBoxI4.Image, ClumpImagePath(report));
}

}  // namespace

void cmdProcClump_Click(FrmCSVView& form) {
    ViewerState& state = form.State;
    form.MousePointer = kPointerHourglass;
    state.ClumpRun = true;
    if (ComputeSource(form)) {
        LabelCategories(form);
        MergeLabels(form);
        CountClumps(form);
        if (const std::string name = ClumpName(form); !name.empty()) state.Clump.ClumpInfo = name;
        state.Clump.TotalCells = CountInnerCells(state.WorkGrid);
        state.Clump.PatchDiversity = PatchDiversity(state.Clump.ClumpSizes, state.Clump.TotalCells);
        form.lblPDClumped.Caption = GeneralText(RoundDecimals(state.Clump.PatchDiversity, 3));
        WriteFiles(form);
    }
    state.ClumpRun = false;
    form.MousePointer = kPointerNormal;
}

void UpdateClumpName(FrmCSVView& form) {
    if (const std::string name = ClumpName(form); !name.empty()) form.lblClumpNameID.Caption = name;
}

void RegisterClump(FrmCSVView& form) {
    form.On("cmdProcClump_Click", cmdProcClump_Click);
    for (const char* const option : {"optClumpAspectSlope", "optClumpContour", "optContourScaleR", "optContourScaleZ",
                                     "chkUseMinSlope", "chkVoidHoriz"}) {
        form.On(std::string(option) + "_Click", UpdateClumpName);
    }
    for (const char* const box :
         {"txtAspectNoCat", "txtContourScaleR", "txtContourScaleZ", "txtMinClumpSize", "txtMinSlope"}) {
        form.On(std::string(box) + "_Change", UpdateClumpName);
    }
}

}  // namespace crownlab
