// Grids as points and as drawings.
#include "basis/paths.h"
#include "basis/result_file.h"
#include "convert/conversion_run.h"
#include "convert/frm_conversion.h"
#include "convert/grid_dxf.h"
#include "convert/grid_points.h"
#include "convert/grid_text_call.h"
#include "convert/routes.h"
#include "formats/unblanked_points.h"
#include "shell/shell_state.h"

namespace crownlab {
namespace {

constexpr const char* kWorkingCopy = "temp.dat";

/// Runs `convert` over the files of the batch.
template <typename Convert>
void OverBatch(FrmConversion& form, const Convert& convert) {
    PrepareProgram(form);
    TakeNoFiles(form);
    for (int index = 1; index <= form.NoFiles; ++index) convert(StartFile(form, index));
}

void ToText(FrmConversion& form, const BatchFile& file, const std::string& text) {
    GridToText(*form.Shell.Surfer, form.SurferApp, file.InputPath, text);
}

}  // namespace

void ConvertGRD_DAT(FrmConversion& form) {
    OverBatch(form, [&form](BatchFile& file) {
        file.OutputPath = file.Stem + (form.chkRenameExt.Checked ? form.txtRenameExt.Text : ".dat");
        ToText(form, file, file.OutputPath);
        if (form.chkRemoveBPts.Checked) {
            RemoveBlankPoints(*form.App.Files, file.OutputPath, file.FileDir + kWorkingCopy);
        }
    });
}

void ConvertGRD_XYZ(FrmConversion& form) {
    OverBatch(form, [&form](BatchFile& file) {
        file.OutputPath = file.Stem + ".xyz";
        const std::string copy = file.FileDir + kWorkingCopy;
        ToText(form, file, file.OutputPath);
        WriteWholeFile(*form.App.Files, copy, ReadFileText(file.OutputPath).View());
        WriteShiftedPoints(*form.App.Files, copy, file.OutputPath);
        RemoveFile(copy);
    });
}

void ConvertGRD_DXF(FrmConversion& form) {
    OverBatch(form, [&form](BatchFile& file) {
        const std::string text = file.Stem + ".dat";
        file.OutputPath = file.Stem + ".dxf";
        ToText(form, file, text);
        WriteGridDxf(*form.App.Files, file.OutputPath, file.FileBase, ReadLattice(text));
    });
}

}  // namespace crownlab
