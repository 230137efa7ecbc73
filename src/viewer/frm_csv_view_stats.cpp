#include <numeric>

#include "basis/number_text.h"
#include "basis/result_file.h"
#include "basis/rounding.h"
#include "shell/frm_save_file.h"
#include "shell/shell_state.h"
#include "viewer/frm_csv_view.h"
#include "viewer/frm_csv_view_handlers.h"
#include "viewer/height_runs.h"
#include "viewer/sort_list.h"
#include "viewer/surface_area.h"
#include "viewer/teeth.h"

namespace crownlab {
namespace {

std::string RoundedText(double value, int decimals) { return GeneralText(RoundDecimals(value, decimals)); }

/// Columns of the table of all teeth, and the level that is no surface.
struct TableOptions {
    bool MaxHt = false;
    bool SA = false;
    bool Vol = false;
    bool SAVolRat = false;
    double ZeroLevel = 0;
};

TableOptions TableOptionsOf(const FrmCSVView& form) {
    TableOptions options{.MaxHt = form.chkCSMaxHt.Checked,
                         .SA = form.chkCSSA.Checked,
                         .Vol = form.chkCSVol.Checked,
                         .SAVolRat = form.chkCSSAVolRat.Checked};
    if (form.optCMinAbs.Selected) options.ZeroLevel = form.txtCMinAbs.Number();
    if (form.optCMinProp.Selected) options.ZeroLevel = form.txtCMinProp.Number();
    return options;
}

void WriteHeader(ResultFile& file, const TableOptions& options) {
    const auto item = [&file](bool written, const char* name) {
        if (!written) return;
        file.Item(name);
        file.Comma();
    };
    item(true, "ToothNo");
    item(options.MaxHt, "MaxHt");
    item(options.SA, "TotalSA");
    item(options.Vol, "TotalVol");
    item(options.SAVolRat, "TotalSAVolRat");
    file.EndLine();
}

/// Makes the list of each checked column; the others keep what an earlier run left.
void SizeTable(ToothTable& table, const TableOptions& options, int teeth) {
    const auto size = [teeth](bool checked, std::vector<double>& list) {
        if (!checked) return;
        if (teeth < 1) throw Failure(FailureKind::SubscriptOutOfRange, "table of all teeth");
        list.assign(static_cast<std::size_t>(teeth), 0);
    };
    size(options.MaxHt, table.MaxHt);
    size(options.SA, table.SA);
    size(options.Vol, table.Vol);
    size(options.SAVolRat, table.SAVolRat);
}

/// Works out a tooth, writes its line and keeps its numbers.
void WriteTooth(ResultFile& file, int number, const Tooth& tooth, const TableOptions& options, ToothTable& table) {
    const auto item = [&file, number](bool written, double value, std::vector<double>& list) {
        if (!written) return;
        list.at(static_cast<std::size_t>(number - 1)) = value;
        file.Item(value);
        file.Comma();
    };
    const ToothMeasures measured = MeasureTooth(tooth.Grid, options.ZeroLevel);
    const double area = options.SA ? Finite(measured.SurfaceArea, "SA") : 0;
    const double volume = options.Vol ? Finite(measured.Volume, "Vol") : 0;
    const double ratio = options.SAVolRat ? Divide(area, volume, "Vol") : 0;
    file.Item(number);
    file.Comma();
    item(options.MaxHt, tooth.ZMax, table.MaxHt);
    item(options.SA, area, table.SA);
    item(options.Vol, volume, table.Vol);
    item(options.SAVolRat, ratio, table.SAVolRat);
    file.EndLine();
}

void WriteTable(FrmCSVView& form, const std::string& path) {
    ViewerState& state = form.State;
    ResultFile file(*form.App.Files, path);
    const TableOptions options = TableOptionsOf(form);
    WriteHeader(file, options);
    if (state.Teeth.empty()) throw Failure(FailureKind::SubscriptOutOfRange, "MultiGrid");
    SizeTable(state.Table, options, state.NumTeeth);
    for (int t = 1; t <= state.NumTeeth; ++t) WriteTooth(file, t, ToothAt(state.Teeth, t), options, state.Table);
    file.Commit();
}

/// The list that the teeth are sorted by; nullptr for "by LaPlac", which has none.
const std::vector<double>* SortKey(const FrmCSVView& form) {
    const ToothTable& table = form.State.Table;
    if (form.optCSMaxHtSort.Selected) return &table.MaxHt;
    if (form.optCSSASort.Selected) return &table.SA;
    if (form.optCSVolSort.Selected) return &table.Vol;
    if (form.optCSSAVolRatSort.Selected) return &table.SAVolRat;
    return nullptr;
}

/// The ratio needs both of its parts.
void ClearRatioIfPartMissing(FrmCSVView& form) {
    if (!form.chkCSSA.Checked || !form.chkCSVol.Checked) form.chkCSSAVolRat.Checked = false;
}

}  // namespace

void cmdCalcStats_Click(FrmCSVView& form) {
    form.MousePointer = kPointerHourglass;
    const Tooth& tooth = ToothAt(form.State.Teeth, form.txtCurrTooth.Number());
    const ToothMeasures measured = MeasureTooth(tooth.Grid, 0);
    form.txtSA.Text = RoundedText(Finite(measured.SurfaceArea, "SA"), 2);
    form.txtVol.Text = RoundedText(Finite(measured.Volume, "Vol"), 2);
    form.txtSAVolRat.Text = RoundedText(Divide(measured.SurfaceArea, measured.Volume, "Vol"), 5);
    form.MousePointer = kPointerNormal;
}

void cmdCalcStatsAll_Click(FrmCSVView& form) {
    if (!AskForSavePath(form.App, form.Shell, "testcalc.csv")) return;
    form.MousePointer = kPointerHourglass;
    WriteTable(form, form.Shell.SavePath);
    if (form.chkCSSort.Checked) cmdCSSort_Click(form);
    form.MousePointer = kPointerNormal;
}

void cmdCSSort_Click(FrmCSVView& form) {
    const std::vector<double>* const key = SortKey(form);
    if (key == nullptr) return;
    ViewerState& state = form.State;
    const auto teeth = static_cast<std::size_t>(state.NumTeeth);
    if (key->empty() || key->size() < teeth) throw Failure(FailureKind::SubscriptOutOfRange, "sort key");
    std::vector<double> keys = *key;
    std::vector<double> order(teeth);
    std::iota(order.begin(), order.end(), 1.0);
    SortListPaired(keys, order, 0, state.NumTeeth - 1);
    if (!form.chkCSShowSorted.Checked) return;
    ReorderTeeth(order, state.Teeth, state.Table);
    state.CurrTooth = 1;
    CopyMultiCSVtoCSV(form);
    cmdViewCSV_Click(form);
}

void cmdShannonInfo_Click(FrmCSVView& form) {
    form.MousePointer = kPointerHourglass;
    ViewerState& state = form.State;
    const double index = HeightRunIndex(state.WorkGrid, state.WorkZMin, state.StepX, state.ProcGrid);
    form.lblShannonInfo.Caption = RoundedText(index, 4);
    form.MousePointer = kPointerNormal;
}

void chkCSSA_Click(FrmCSVView& form) { ClearRatioIfPartMissing(form); }
void chkCSVol_Click(FrmCSVView& form) { ClearRatioIfPartMissing(form); }

void RegisterStatistics(FrmCSVView& form) {
    form.On("cmdCalcStats_Click", cmdCalcStats_Click);
    form.On("cmdCalcStatsAll_Click", cmdCalcStatsAll_Click);
    form.On("cmdCSSort_Click", cmdCSSort_Click);
    form.On("cmdShannonInfo_Click", cmdShannonInfo_Click);
    form.On("chkCSSA_Click", chkCSSA_Click);
    form.On("chkCSVol_Click", chkCSVol_Click);
}

}  // namespace crownlab
