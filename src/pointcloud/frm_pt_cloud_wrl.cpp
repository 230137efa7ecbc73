#include <utility>

#include "basis/result_file.h"
#include "pointcloud/coloured_wrl.h"
#include "pointcloud/frm_pt_cloud.h"

namespace crownlab {
namespace {

ValuedCloud ReadPoints(const FrmPtCloud& form, const std::string& path) {
    if (form.optXYZT.Selected) return ReadValuedPointText(path);
    return {.Points = ReadPointText(path), .Values = {}};
}

/// Colours the model in the second file of the batch by the points in the first.
void ConvertToWrl(FrmPtCloud& form) {
    BatchFile& first = form.Batch[0];
    const ValuedCloud cloud = ReadPoints(form, first.InputPath);
    const std::size_t total = cloud.Points.size();
    form.txtNoPts.Text = std::to_string(total);
    const bool coloured = form.optXYZT.Selected;
    const ColourScale scale = coloured ? MakeColourScale(cloud.Values) : ColourScale{};
    StartProgress(form, total);
    const WrlPolygons polygons = ReadWrlPolygons(form.Batch[1].InputPath);
    const VertexMatch match = MatchVertices(cloud.Points, polygons.Points, kMatchTolerance,
                                            [&](std::size_t done) { ShowProgress(form, done, total); });
    first.OutputPath = first.Stem + "_poly" + form.Batch[1].Ext;
    WriteColouredWrl(*form.App.Files, first.OutputPath,
                     {.Model = polygons,
                      .Points = cloud.Points,
                      .Match = match,
                      .Scale = coloured ? &scale : nullptr,
                      .PointsAsVertices = form.chkOnlyPolyPts.Checked});
}

}  // namespace

void cmdPointsToWrl_Click(FrmPtCloud& form) {
    constexpr std::size_t filesNeeded = 2;
    form.MousePointer = kPointerHourglass;
    form.pbarPtsPrcd.Value = 0;
    form.pbarPtsPrcd.Visible = true;
    // Too few files: pointer and bar stay as they are until the next run of a tool puts them right.
    if (form.Batch.size() < filesNeeded) return;
    ConvertToWrl(form);
    cmdClearFilenames_Click(form);
    form.pbarPtsPrcd.Visible = false;
    form.MousePointer = kPointerNormal;
}

void RegisterPointsToWrl(FrmPtCloud& form) { form.On("cmdPointsToWrl_Click", cmdPointsToWrl_Click); }

}  // namespace crownlab
