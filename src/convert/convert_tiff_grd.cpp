#include <algorithm>
#include <initializer_list>

#include "basis/number_text.h"
#include "basis/paths.h"
#include "basis/result_file.h"
#include "basis/rounding.h"
#include "convert/conversion_run.h"
#include "convert/frm_conversion.h"
#include "convert/grid_data_call.h"
#include "convert/path_parts.h"
#include "convert/routes.h"
#include "convert/tiff_text.h"
#include "shell/shell_state.h"

namespace crownlab {
namespace {

constexpr double kHighestValue = 255;

bool AllFilled(std::initializer_list<const TextBox*> boxes) {
    return std::all_of(boxes.begin(), boxes.end(), [](const TextBox* box) { return !box->Text.empty(); });
}

/// The image as a whole has these sizes.
bool ScaleByField(FrmConversion& form, TiffShape shape, TiffScale& scale) {
    if (!AllFilled({&form.X_Field, &form.Y_Field, &form.Z_Field})) {
        TellAndStop(form, "Input all fields of view", "Input fields of view");
        return false;
    }
    scale = {.XInterval = form.X_Field.Number() / static_cast<double>(shape.Columns),
             .YInterval = form.Y_Field.Number() / static_cast<double>(shape.Rows),
             .ZInterval = form.Z_Field.Number() / kHighestValue};
    return true;
}

/// Each place of the image has these sizes; the size of the whole is shown.
bool ScaleByVoxel(FrmConversion& form, TiffShape shape, TiffScale& scale) {
    if (!AllFilled({&form.X_Input_Int, &form.Y_Input_Int, &form.Z_Input_Height})) {
        TellAndStop(form, "Input voxel sizes and z height", "Input voxel sizes");
        return false;
    }
    scale = {.XInterval = form.X_Input_Int.Number(),
             .YInterval = form.Y_Input_Int.Number(),
             .ZInterval = form.Z_Input_Height.Number() / kHighestValue};
    form.X_Field.Text = GeneralText(Finite(static_cast<double>(shape.Columns) * scale.XInterval, "X_Field"));
    form.Y_Field.Text = GeneralText(Finite(static_cast<double>(shape.Rows) * scale.YInterval, "Y_Field"));
    return true;
}

/// What the sizes are told by; false after a message.
bool TakeScale(FrmConversion& form, TiffShape shape, TiffScale& scale) {
    if (form.optInFOV.Selected) return ScaleByField(form, shape, scale);
    if (form.optInVox.Selected) return ScaleByVoxel(form, shape, scale);
    TellAndStop(form, "Choose data type (field of view or voxel size)", "Choose data type");
    return false;
}

/// The points of the lattice, y rising, as the working file has them. False after a message; no file is left then.
bool WriteWorkingFile(FrmConversion& form, const BatchFile& file, const std::string& path, GridLattice& lattice) {
    const FileText text = ReadFileText(file.InputPath);
    const TiffShape shape = ShapeOfTiffText(text.View(), file.InputPath);
    ResultFile working(*form.App.Files, path);
    TiffScale scale;
    if (!TakeScale(form, shape, scale)) return false;
    WriteTiffPoints(working, ReadTiffValues(text.View(), file.InputPath, shape), shape, scale);
    working.Commit();
    lattice = {.NumCols = static_cast<double>(shape.Columns),
               .NumRows = static_cast<double>(shape.Rows),
               .XMax = form.X_Field.Number() - scale.XInterval,
               .YMax = form.Y_Field.Number() - scale.YInterval};
    return true;
}

}  // namespace

void ConvertTIFF_GRD(FrmConversion& form) {
    form.MousePointer = kPointerHourglass;
    PrepareProgram(form);
    if (IsNoTextName(form.Text1.Text)) return TellAndStop(form, "Choose text filename", "Filename");
    const BatchFile file = SingleFile(form.File1.Path, form.Text1.Text);
    const std::string working = file.Stem + ".csv";
    GridLattice lattice;
    if (!WriteWorkingFile(form, file, working, lattice)) return;
    GridLatticePoints(*form.Shell.Surfer, form.SurferApp, working, lattice, file.Stem + ".grd");
    form.MousePointer = kPointerNormal;
}

}  // namespace crownlab
