#include <array>
#include <charconv>
#include <limits>

#include "basis/number_text.h"
#include "basis/result_file.h"
#include "basis/rounding.h"
#include "basis/text.h"
#include "pointcloud/cloud.h"
#include "pointcloud/frm_pt_cloud.h"
#include "pointcloud/undercuts.h"

namespace crownlab {
namespace {

constexpr double kDefaultIncrement = 0.25;
/// The default threshold in radii.
constexpr double kThresholdRadii = 4;

/// A number in the format "0.000".
std::string ThreeDecimals(double value) {
    std::array<char, std::numeric_limits<double>::max_exponent10 + 10> text;
    const auto written = std::to_chars(text.data(), text.data() + text.size(), value, std::chars_format::fixed, 3);
    return {text.data(), written.ptr};
}

/// The last three characters of a box, or all there are.
std::string LastThree(const TextBox& box) {
    constexpr std::size_t count = 3;
    return box.Text.size() <= count ? box.Text : box.Text.substr(box.Text.size() - count);
}

/// Size of the bins; with the default settings the radius, which the box then shows.
double TakeBinSize(FrmPtCloud& form) {
    if (form.chkDefaultSet.Checked) {
        form.txtBinSize.Text = GeneralText(form.txtSearchRadius.Number());
        return form.txtSearchRadius.Number();
    }
    return form.txtBinSize.Number();
}

UndercutOptions TakeOptions(FrmPtCloud& form) {
    const bool defaults = form.chkDefaultSet.Checked;
    UndercutOptions options;
    options.PrimaryRadius = form.txtSearchRadius.Number();
    options.RadiusIncrement = defaults ? kDefaultIncrement : form.txtSearchRadiusInc.Number();
    options.FindNeighbour = form.chkFindNeigh.Checked;
    options.ByThreshold = defaults || form.optThresh.Selected;
    options.Threshold = defaults ? RoundDecimals(kThresholdRadii * options.PrimaryRadius, 3) : form.txtThresh.Number();
    options.Proportion = form.txtProp.Number();
    return options;
}

/// What the default settings write into their boxes during a run.
void ShowDefaults(FrmPtCloud& form, const UndercutOptions& options) {
    if (form.chkDefaultSet.Checked) form.txtThresh.Text = ThreeDecimals(options.Threshold);
}

/// Names of the outputs; they follow the options even where the default settings ran another method.
void NameOutputs(const FrmPtCloud& form, BatchFile& file) {
    const std::string method = form.optProp.Selected     ? "-ucp" + LastThree(form.txtProp)
                               : form.optThresh.Selected ? "-uct" + LastThree(form.txtThresh)
                                                         : std::string();
    const std::string start =
        file.Stem + method + "_" + LastThree(form.txtSearchRadius) + (form.chkMould.Checked ? "m" : "");
    file.OutputPath = start + file.Ext;
    file.RejectPath = start + "_rej" + file.Ext;
}

void WritePoints(FileTable& files, const std::string& path, const BinGrid& grid, const UndercutResult& result,
                 bool rejected) {
    ResultFile file(files, path);
    for (std::size_t i = 0; i < grid.X.size(); ++i) {
        if ((result.Rejected[i] != 0) == rejected) WritePointLine(file, {grid.X[i], grid.Y[i], grid.Z[i]});
    }
    file.Commit();
}

void CleanFile(FrmPtCloud& form, BatchFile& file) {
    PointCloud cloud = ReadPointText(file.InputPath);
    form.txtNoPts.Text = std::to_string(cloud.size());
    if (form.chkMould.Checked) MouldFlip(cloud);
    StartProgress(form, cloud.size());
    const CloudExtents extents = FindCloudExtents(cloud);
    const double binSize = TakeBinSize(form);
    const BinGrid grid = FillBins(cloud, extents, binSize, form.txtBinSize.Number(), kUndercutBins);
    const std::size_t total = cloud.size();
    cloud = {};
    const UndercutOptions options = TakeOptions(form);
    const UndercutResult result = FindUndercuts(grid, options, [&](std::size_t done) {
        ShowProgress(form, done, total);
        if (done == 2) ShowDefaults(form, options);  // the first point has been decided
    });
    ShowDefaults(form, options);
    if (result.Retried && form.chkDefaultSet.Checked) form.txtSearchRadiusInc.Text = GeneralText(kDefaultIncrement);
    NameOutputs(form, file);
    WritePoints(*form.App.Files, file.OutputPath, grid, result, false);
    if (form.chkWriteRej.Checked) WritePoints(*form.App.Files, file.RejectPath, grid, result, true);
}

}  // namespace

void cmdRemoveUndercuts_Click(FrmPtCloud& form) {
    form.MousePointer = kPointerHourglass;
    form.pbarPtsPrcd.Value = 0;
    form.pbarPtsPrcd.Visible = true;
    AddIfNoFiles(form);
    for (BatchFile& file : form.Batch) CleanFile(form, file);
    cmdClearFilenames_Click(form);
    form.pbarPtsPrcd.Visible = false;
    form.MousePointer = kPointerNormal;
}

void chkDefaultSet_Click(FrmPtCloud& form) { form.Frame8.Enabled = !form.chkDefaultSet.Checked; }

void RegisterUndercuts(FrmPtCloud& form) {
    form.On("cmdRemoveUndercuts_Click", cmdRemoveUndercuts_Click);
    form.On("chkDefaultSet_Click", chkDefaultSet_Click);
}

}  // namespace crownlab
