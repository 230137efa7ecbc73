#include <algorithm>
#include <cmath>

#include "basis/field_reader.h"
#include "basis/memory_limit.h"
#include "basis/number_text.h"
#include "basis/paths.h"
#include "basis/rounding.h"
#include "forms/acts.h"
#include "forms/desk.h"
#include "viewer/frm_csv_view.h"
#include "viewer/frm_csv_view_handlers.h"
#include "viewer/multi_grid.h"
#include "viewer/multi_tooth_file.h"
#include "viewer/teeth.h"

namespace crownlab {
namespace {

constexpr double kAllZStart = 1e10;

/// Makes room for as many teeth as are allowed in memory, all empty; returns that number.
int SizeTeeth(FrmCSVView& form) {
    ViewerState& state = form.State;
    const int maxTeeth = ToInt16(form.txtMTAIF.Number(), "MaxTeeth");
    if (maxTeeth < 1) throw Failure(FailureKind::SubscriptOutOfRange, "MaxTeeth");
    RequireMemory(static_cast<std::uint64_t>(maxTeeth) * sizeof(Tooth), "MultiGrid");
    state.NumTeeth = 0;
    state.Teeth.assign(static_cast<std::size_t>(maxTeeth), Tooth{});
    return maxTeeth;
}

/// Splits a file of too many teeth, or says that it has to be split.
void RefuseOrSplit(FrmCSVView& form, std::string_view text, int maxTeeth) {
    std::string message = "More than" + std::to_string(maxTeeth) + " teeth in file; file must be split";
    if (form.chkSplitMTAIF.Checked) {
        SplitMultiToothFile(*form.App.Files, text, maxTeeth, form.State.Names.Stem);
        message = "File split - use split files for viewing.";
    }
    form.MousePointer = kPointerNormal;
    Tell(form, message);
}

/// Builds the cells of the points just read; there is a box for each tooth whose spacing isn't found.
void MultiGridFromPoints(FrmCSVView& form) {
    ViewerState& state = form.State;
    const SurfaceSteps steps = FindToothSteps(state.PointList, state.GridStepDirection);
    state.StepX = steps.X;
    state.StepY = steps.Y;
    if (steps.X == kNoStep || steps.Y == kNoStep) Tell(form, "Error");
    TakeGridSizeMode(form);
    BuildSurface(state, CellRule::Floored);
}

/// Keeps the surface in hand as tooth number t.
void KeepTooth(ViewerState& state, int t) {
    Tooth& tooth = ToothAt(state.Teeth, t);
    tooth.ZMin = state.Data.ZMin;
    tooth.ZMax = state.Data.ZMax;
    if (tooth.ZMin < state.AllZMin) state.AllZMin = tooth.ZMin;
    if (tooth.ZMax > state.AllZMax) state.AllZMax = tooth.ZMax;
    tooth.NumX = state.NumX;
    tooth.NumY = state.NumY;
    RequireToothSize(state.CellGrid);
    tooth.Grid = state.CellGrid;
}

void ReadTooth(FrmCSVView& form, FieldReader& reader, const SentinelScan& scan, int t) {
    ViewerState& state = form.State;
    ToothAt(state.Teeth, t).Params = ReadToothParams(reader);
    const std::int64_t points = scan.ToothPoints(t);
    if (points <= kTooFewPoints) {
        reader.ReadLine();
        return;
    }
    state.PointList = ReadToothPoints(reader, points);
    if (t < scan.NumTeeth()) reader.ReadLine();
    state.Data = FindSurfaceExtents(state.PointList, form.chkOrigModelFile.Checked, state.ZOrigin);
    MultiGridFromPoints(form);
    KeepTooth(state, t);
}

/// Reads all teeth, serving other events before each; false if Escape ended it. The file's text and its
/// scan are the caller's own, so that another read nested in a yield doesn't touch them.
bool ReadTeeth(FrmCSVView& form, std::string_view text, const SentinelScan& scan) {
    FieldReader reader(text, form.State.Names.FileName);
    form.State.AllZMin = kAllZStart;
    form.State.AllZMax = -kAllZStart;
    for (int t = 1; t <= scan.NumTeeth(); ++t) {
        form.App.Screen->Yield();
        if (form.State.CancelMulti) return false;
        ReadTooth(form, reader, scan, t);
        form.txtCurrTooth.Text = GeneralText(t);
    }
    return true;
}

void ShowTeethRead(FrmCSVView& form) {
    const int teeth = form.State.NumTeeth;
    form.lblNoTeeth.Caption = GeneralText(teeth);
    form.txtCurrTooth.Text.clear();
    form.txtViewTeethStart.Text = "1";
    form.txtViewTeethEnd.Text = GeneralText(teeth);
    SelectOption(form.optViewTeethAll);
    form.sldToothNo.Min = 1;
    form.sldToothNo.Max = teeth;
    form.sldToothNo.Value = 1;
    const double step = std::pow(10, RoundHalfEven(Log10(teeth)) - 1);
    form.sldToothNo.Step = std::max(1, static_cast<int>(step));
}

void ShowTooth(FrmCSVView& form, int t) {
    ViewerState& state = form.State;
    state.CurrTooth = t;
    form.txtCurrTooth.Text = GeneralText(t);
    const Tooth& tooth = ToothAt(state.Teeth, t);
    for (int i = 1; i <= 11; ++i) form.ParamBox(i).Text = GeneralText(tooth.Params[static_cast<std::size_t>(i - 1)]);
    if (IsEmptyTooth(tooth)) {
        ClearPicBox(form);
        return;
    }
    CopyMultiCSVtoCSV(form);
    cmdViewCSV_Click(form);
    // The pause is read and nothing waits on it: a film runs at drawing speed.
    static_cast<void>(form.txtPause.Number());
}

/// Shows the teeth from ViewFirst to ViewLast one after the other.
void RunFilm(FrmCSVView& form) {
    ViewerState& state = form.State;
    state.CancelMulti = false;
    const double teeth = state.NumTeeth;
    if (state.ViewLast < 1 || state.ViewFirst < 1 || state.ViewFirst > state.ViewLast) return;
    if (state.ViewFirst > teeth || state.ViewLast > teeth) return;
    form.MousePointer = kPointerHourglass;
    const int first = ToInt16(state.ViewFirst, "ViewFirst");
    const int last = ToInt16(state.ViewLast, "ViewLast");
    form.sldToothNo.Value = first;
    for (int t = first; t <= last; ++t) {
        form.App.Screen->Yield();
        if (state.CancelMulti) break;
        ShowTooth(form, t);
    }
    form.MousePointer = kPointerNormal;
}

void RunFilmOf(FrmCSVView& form, double tooth) {
    form.State.ViewFirst = tooth;
    form.State.ViewLast = tooth;
    RunFilm(form);
}

void CancelOnEscape(FrmCSVView& form, const std::string& key) {
    if (key == "Escape") form.State.CancelMulti = true;
}

}  // namespace

void cmdReadMultiCSV_Click(FrmCSVView& form) {
    ViewerState& state = form.State;
    form.MousePointer = kPointerHourglass;
    state.CancelMulti = false;
    form.chkOrigModelFile.Checked = true;
    if (NoFileChosen(form)) return;
    TakeSurfaceNames(form);
    const int maxTeeth = SizeTeeth(form);
    const std::string text = ReadWholeFile(state.Names.FileName);
    const SentinelScan scan = ScanSentinels(text, state.Names.FileName);
    if (scan.NumTeeth() > maxTeeth) {
        RefuseOrSplit(form, text, maxTeeth);
        return;
    }
    state.NumTeeth = scan.NumTeeth();
    if (ReadTeeth(form, text, scan)) {
        ShowTeethRead(form);
        RunFilmOf(form, form.sldToothNo.Value);
    }
    form.MousePointer = kPointerNormal;
}

void cmdViewMultiCSV_Click(FrmCSVView& form) {
    ViewerState& state = form.State;
    if (form.optViewTeethAll.Selected) {
        state.ViewFirst = 1;
        state.ViewLast = state.NumTeeth;
    } else if (form.optViewTeethSubset.Selected) {
        state.ViewFirst = form.txtViewTeethStart.Number();
        state.ViewLast = form.txtViewTeethEnd.Number();
    } else {
        state.ViewFirst = form.txtViewTeethOne.Number();
        state.ViewLast = state.ViewFirst;
    }
    RunFilm(form);
}

void cmdReadMultiCSV_KeyDown(FrmCSVView& form, const std::string& key) { CancelOnEscape(form, key); }
void cmdViewMultiCSV_KeyDown(FrmCSVView& form, const std::string& key) { CancelOnEscape(form, key); }

void sldToothNo_Change(FrmCSVView& form) {
    form.txtCurrTooth.Text = GeneralText(form.sldToothNo.Value);
    RunFilmOf(form, form.sldToothNo.Value);
}

void chkZScaleAllT_Click(FrmCSVView& form) { cmdViewCSV_Click(form); }

void CopyMultiCSVtoCSV(FrmCSVView& form) {
    ViewerState& state = form.State;
    const Tooth& tooth = ToothAt(state.Teeth, state.CurrTooth);
    tooth.Grid.RequireCells("MultiGrid");
    state.CellGrid = tooth.Grid;
    state.NumX = tooth.NumX;
    state.NumY = tooth.NumY;
    const bool oneScale = form.chkZScaleAllT.Checked;
    state.Data.ZMin = oneScale ? state.AllZMin : tooth.ZMin;
    state.Data.ZMax = oneScale ? state.AllZMax : tooth.ZMax;
}

void RegisterMultiTooth(FrmCSVView& form) {
    form.On("cmdReadMultiCSV_Click", cmdReadMultiCSV_Click);
    form.OnKey("cmdReadMultiCSV_KeyDown", cmdReadMultiCSV_KeyDown);
    form.On("cmdViewMultiCSV_Click", cmdViewMultiCSV_Click);
    form.OnKey("cmdViewMultiCSV_KeyDown", cmdViewMultiCSV_KeyDown);
    form.On("sldToothNo_Change", sldToothNo_Change);
    form.On("chkZScaleAllT_Click", chkZScaleAllT_Click);
}

}  // namespace crownlab
