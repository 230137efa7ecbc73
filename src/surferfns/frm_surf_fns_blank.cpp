#include "basis/paths.h"
#include "basis/result_file.h"
#include "surfer/digitise_area.h"
#include "surfer/grid_calls.h"
#include "surfer/grid_shape.h"
#include "surfer/session.h"
#include "surferfns/frm_surf_fns.h"
#include "surferfns/node_layout.h"

namespace crownlab {
namespace {

constexpr const char* kOutlineSuffix = "blnpts.bln";

/// Digitises one area or several; nothing if the person cancelled.
std::optional<std::string> DigitiseOutline(FrmSurfFns& form, int place) {
    const BatchFile& file = FileAt(form, place);
    const MapOfGrid map{file.FileDir, file.FileBase};
    const bool inside = form.optBlankInside.Selected;
    return form.optBlankMultiInside.Selected ? DigitiseAreas(form.App, map)
                                             : DigitiseArea(form.App, map, inside ? 1 : 0);
}

/// The outline of the grid that this one was made from, under this grid's own name if it has another.
void TakeExistingOutline(FrmSurfFns& form, const BatchFile& file) {
    if (!(form.txtBlankDelChar.Number() > 0)) return;
    const std::string existing = OutlineOfGrid(file.Stem, form.txtBlankDelChar.Number());
    WriteWholeFile(*form.App.Files, file.Stem + kOutlineSuffix, ReadFileText(existing).View());
}

/// The outline that is there already; nothing after a message.
std::optional<std::string> ExistingOutline(FrmSurfFns& form, int place) {
    const BatchFile& file = FileAt(form, place);
    const std::string existing = OutlineOfGrid(file.Stem, form.txtBlankDelChar.Number());
    if (form.txtBlankDelChar.Number() > 0 && !IsFile(existing)) {
        Refuse(form, "Check that blanking file (file no. " + std::to_string(place) + ") is in correct directory.");
        cmdClearFilenames_Click(form);
        return std::nullopt;
    }
    TakeExistingOutline(form, file);
    return file.Stem + kOutlineSuffix;
}

/// Grids the heights round the bubbles anew, so that these are filled, and blanks the whole by the tooth's outline.
void FillAndBlank(FrmSurfFns& form, BatchFile& file) {
    Session& session = SessionOf(form);
    const GridShape shape = ReadGridShape(session, form.App, file.OutputPath, form.Label1.Caption, ShapeOf::Plan);
    const std::string text = file.Stem + "temp.dat";
    const std::string filled = file.Stem + "temp.grd";
    ConvertGridByName(session, file.OutputPath, text);
    GridPoints(session, text, shape, GriddingMethod::Kriging, filled, "Z > 1E38");
    TakeExistingOutline(form, file);
    file.OutputPath = file.Stem + "ub.grd";
    BlankGrid(session, filled, file.Stem + kOutlineSuffix, file.OutputPath);
    RemoveFile(text);
    RemoveFile(filled);
}

/// False after a message.
bool RegridBubbles(FrmSurfFns& form, int place) {
    if (!IsFile(OutlineOfGrid(FileAt(form, place).Stem, form.txtBlankDelChar.Number()))) {
        Refuse(form, "Check that blanking file is in correct directory.");
        return false;
    }
    FillAndBlank(form, FileAt(form, place));
    return true;
}

/// False if the person cancelled or a message ended the tool.
bool BlankFile(FrmSurfFns& form, int place) {
    const bool existing = form.chkBlankUseBlnFile.Checked;
    const std::optional<std::string> outline = existing ? ExistingOutline(form, place) : DigitiseOutline(form, place);
    if (!outline) {
        form.MousePointer = kPointerNormal;
        return false;
    }
    std::string suffix = !existing && form.optBlankMultiInside.Selected ? "u" : "b";
    BatchFile& file = FileAt(form, place);
    file.OutputPath = file.Stem + suffix + ".grd";
    BlankGrid(SessionOf(form), file.InputPath, *outline, file.OutputPath);
    if (form.optBlankMultiInside.Selected && form.chkMultiBlankRegrid.Checked) {
        // Only bubbles that were digitised just now have left the grid that is filled here.
        file.OutputPath = file.Stem + "u.grd";
        if (!RegridBubbles(form, place)) return false;
        suffix = "ub";
    }
    if (!form.chkPlotSurfer.Checked) return true;
    const BatchFile& done = FileAt(form, place);
    PlotSurfer(form, done.OutputPath, done.FileBase + suffix, ChosenPlotType(form), place);
    return true;
}

}  // namespace

void cmdBlank_Click(FrmSurfFns& form) {
    StartTool(form);
    for (int i = 1; i <= form.FileCount; ++i) {
        if (!BlankFile(form, i)) return;
    }
    EndTool(form);
}

void RegisterBlank(FrmSurfFns& form) { form.On("cmdBlank_Click", cmdBlank_Click); }

}  // namespace crownlab
