#include <algorithm>
#include <array>
#include <filesystem>
#include <system_error>

#include "basis/failure.h"
#include "basis/field_reader.h"
#include "basis/paths.h"
#include "basis/result_file.h"
#include "pointcloud/cloud.h"
#include "pointcloud/frm_pt_cloud.h"

namespace crownlab {
namespace {

/// Offsets of a probe tip as the boxes show them.
struct TipOffsets {
    const char* Tip;
    const char* X;
    const char* Y;
    const char* Z;
};
constexpr std::array<TipOffsets, 3> kKnownTips{{
    {"t0", "0.000", "0.000", "0.000"},
    {"t5", "-0.007", "0.007", "-0.025"},
    {"t8", "0.018", "0.019", "-0.023"},
}};

/// Copies the lines of all files, as they stand, to `path`.
void JoinLines(FileTable& files, const FileBatch& batch, const std::string& path) {
    ResultFile output(files, path);
    for (const BatchFile& file : batch) {
        const FileText text = ReadFileText(file.InputPath);
        FieldReader reader(text.View(), file.InputPath);
        while (!reader.AtEnd()) output.Line(reader.ReadLine());
    }
    output.Commit();
}

void WriteJoined(FrmPtCloud& form, BatchFile& first, const std::string& working) {
    if (form.chkReZero.Checked) {
        PointCloud cloud = ReadPointText(working);
        ReZero(cloud);
        first.OutputPath = first.Stem + "_jndr" + first.Ext;
        WritePointText(*form.App.Files, first.OutputPath, cloud);
    } else {
        first.OutputPath = first.Stem + "_jnd" + first.Ext;
        WriteWholeFile(*form.App.Files, first.OutputPath, ReadFileText(working).View());
    }
}

}  // namespace

void cmdJoinFiles_Click(FrmPtCloud& form) {
    form.MousePointer = kPointerHourglass;
    if (form.Batch.size() < 2) return;
    BatchFile& first = form.Batch.front();
    const std::string joinTemp = first.Stem + "_temp" + first.Ext;
    const bool isInput = std::any_of(form.Batch.begin(), form.Batch.end(),
                                     [&](const BatchFile& file) { return file.InputPath == joinTemp; });
    if (isInput) throw Failure(FailureKind::InvalidCall, joinTemp + " is both input and working file");
    JoinLines(*form.App.Files, form.Batch, joinTemp);
    // A failure to read the joined cloud leaves it, so that the line named in the message can be looked at.
    WriteJoined(form, first, joinTemp);
    std::error_code gone;
    std::filesystem::remove(joinTemp, gone);
    cmdClearFilenames_Click(form);
    form.MousePointer = kPointerNormal;
}

void cmdTipCal_Click(FrmPtCloud& form) {
    form.MousePointer = kPointerHourglass;
    const CloudPoint offset{form.txtTipCalX.Number(), form.txtTipCalY.Number(), form.txtTipCalZ.Number()};
    if (offset == CloudPoint{}) return;
    AddIfNoFiles(form);
    for (BatchFile& file : form.Batch) {
        PointCloud cloud = ReadPointText(file.InputPath);
        form.txtNoPts.Text = std::to_string(cloud.size());
        Shift(cloud, offset);
        file.OutputPath = file.Stem + "tipcal" + file.Ext;
        WritePointText(*form.App.Files, file.OutputPath, cloud);
    }
    cmdClearFilenames_Click(form);
    form.MousePointer = kPointerNormal;
}

void cmbTipNo_Click(FrmPtCloud& form) {
    const std::string tip = form.cmbTipNo.Text();
    for (const TipOffsets& known : kKnownTips) {
        if (tip != known.Tip) continue;
        form.txtTipCalX.Text = known.X;
        form.txtTipCalY.Text = known.Y;
        form.txtTipCalZ.Text = known.Z;
    }
}

void RegisterJoin(FrmPtCloud& form) {
    form.On("cmdJoinFiles_Click", cmdJoinFiles_Click);
    form.On("cmdTipCal_Click", cmdTipCal_Click);
    form.On("cmbTipNo_Click", cmbTipNo_Click);
}

}  // namespace crownlab
