#include "basis/result_file.h"
#include "forms/desk.h"
#include "pointcloud/blanking_outline.h"
#include "pointcloud/cloud.h"
#include "pointcloud/frm_pt_cloud.h"

namespace crownlab {
namespace {

void WriteFilledCloud(FrmPtCloud& form, BatchFile& file, const PointCloud& cloud, const PointCloud& fill) {
    file.OutputPath = file.Stem + "p" + file.Ext;
    ResultFile output(*form.App.Files, file.OutputPath);
    for (const CloudPoint& point : cloud) WritePointLine(output, point);
    for (const CloudPoint& point : fill) WritePointLine(output, point);
    output.Commit();
}

/// Makes the outline of one file. False if a message ended the run.
bool OutlineFile(FrmPtCloud& form, BatchFile& file) {
    PointCloud cloud = ReadPointText(file.InputPath);
    if (form.chkMould.Checked) MouldFlip(cloud);
    const CloudExtents extents = FindCloudExtents(cloud);
    const double sizeInBox = form.txtBlnBinSize.Number();
    const BinGrid grid = FillBins(cloud, extents, sizeInBox, sizeInBox, kOutlineBins);
    const OutlineWalk walk = WalkAround(grid);
    if (walk.Error != WalkError::None) {
        form.MousePointer = kPointerNormal;
        Tell(form, WalkErrorText(walk.Error));
        return false;
    }
    const std::vector<OutlineVertex> vertices = PlaceVertices(grid, walk.Bins);
    WriteOutline(*form.App.Files, file.Stem + "pblnpts.bln", KeepVertices(vertices, grid.Plan().BinSize));
    if (form.chkBlankedAreaPts.Checked) WriteFilledCloud(form, file, cloud, FillPoints(grid, walk.Bins, extents.ZMin));
    return true;
}

}  // namespace

void cmdCreateBlankingFile_Click(FrmPtCloud& form) {
    form.MousePointer = kPointerHourglass;
    AddIfNoFiles(form);
    for (BatchFile& file : form.Batch) {
        if (!OutlineFile(form, file)) return;
    }
    cmdClearFilenames_Click(form);
    form.MousePointer = kPointerNormal;
}

void RegisterOutline(FrmPtCloud& form) { form.On("cmdCreateBlankingFile_Click", cmdCreateBlankingFile_Click); }

}  // namespace crownlab
