#include "basis/result_file.h"
#include "pointcloud/enamel_thickness.h"
#include "pointcloud/frm_pt_cloud.h"

namespace crownlab {
namespace {

void WriteSearch(ResultFile& file, const ThicknessSearch& search) {
    WriteNumberLine(file, {static_cast<double>(search.Point + 1), search.At.x, search.At.y, search.At.z, search.FaceX,
                           search.FaceY, search.FaceZ, search.Nearest, static_cast<double>(search.ShellReach)});
}

void WriteDistances(FileTable& files, const std::string& path, const PointCloud& points,
                    const std::vector<double>& distances) {
    ResultFile file(files, path);
    for (std::size_t j = 0; j < points.size(); ++j) {
        WriteNumberLine(file, {points[j].x, points[j].y, points[j].z, distances[j]});
    }
    file.Commit();
}

/// Distances between the two files of the batch; the work file that tells how far each search went stays.
void MeasureThickness(FrmPtCloud& form) {
    const PointCloud cloudA = ReadPointText(form.Batch[0].InputPath);
    form.txtNoPts.Text = std::to_string(cloudA.size());
    StartProgress(form, cloudA.size());
    const PointCloud cloudB = ReadPointText(form.Batch[1].InputPath);

    FileTable& files = *form.App.Files;
    BatchFile& first = form.Batch[0];
    first.OutputPath = first.Stem + "_dist" + first.Ext;
    ResultFile work(files, first.Stem + "_temp" + first.Ext);
    std::size_t done = 0;
    const std::vector<double> distances =
        EnamelThickness(cloudA, cloudB, form.txtBinSizeE.Number(), [&](const ThicknessSearch& search) {
            ShowProgress(form, ++done, cloudA.size());
            WriteSearch(work, search);
        });
    WriteDistances(files, first.OutputPath, cloudA, distances);
    work.Commit();
}

}  // namespace

void cmdEnamThickCalc_Click(FrmPtCloud& form) {
    constexpr std::size_t filesNeeded = 2;
    form.MousePointer = kPointerHourglass;
    form.pbarPtsPrcd.Value = 0;
    form.pbarPtsPrcd.Visible = true;
    if (form.Batch.size() != filesNeeded) {
        // The bar stays until the next run of a tool.
        form.MousePointer = kPointerNormal;
        return;
    }
    MeasureThickness(form);
    cmdClearFilenames_Click(form);
    form.pbarPtsPrcd.Visible = false;
    form.MousePointer = kPointerNormal;
}

void RegisterThickness(FrmPtCloud& form) { form.On("cmdEnamThickCalc_Click", cmdEnamThickCalc_Click); }

}  // namespace crownlab
