// A look at a file of points before it is converted.
#include "basis/number_text.h"
#include "basis/paths.h"
#include "basis/rounding.h"
#include "convert/conversion_run.h"
#include "convert/frm_conversion.h"
#include "formats/point_extents.h"
#include "forms/desk.h"

namespace crownlab {
namespace {

void ShowExtents(FrmConversion& form, const PointExtents& extents) {
    form.txtNoPts.Text = std::to_string(extents.Count);
    form.txtRXMin.Text = GeneralText(extents.XMin);
    form.txtRXMax.Text = GeneralText(extents.XMax);
    form.txtRYMin.Text = GeneralText(extents.YMin);
    form.txtRYMax.Text = GeneralText(extents.YMax);
}

/// How many nodes a grid of the intervals would have, about; nothing where one of them is 0 or less.
void ShowNodeCount(FrmConversion& form, const PointExtents& extents) {
    const double xInterval = form.txtXInt.Number();
    const double yInterval = form.txtYInt.Number();
    if (!(xInterval > 0 && yInterval > 0)) return;
    const double nodes = (extents.XMax - extents.XMin) / xInterval * ((extents.YMax - extents.YMin) / yInterval);
    form.txtNoOutputPts.Text = std::to_string(ToInt32(RoundHalfEven(nodes), "txtNoOutputPts"));
}

}  // namespace

void cmdExamineFile_Click(FrmConversion& form) {
    form.MousePointer = kPointerHourglass;
    std::string path;
    if (form.NoFiles == 0) {
        // The hourglass stays until the next press: this button has never put it back here.
        if (IsNoTextName(form.Text1.Text)) return Tell(form, "Choose text filename", "Filename");
        path = JoinPath(form.File1.Path, form.Text1.Text);
    } else {
        path = FileOfBatch(form, 1).InputPath;
    }
    const PointExtents extents = ReadPointExtents(path);
    ShowExtents(form, extents);
    ShowNodeCount(form, extents);
    form.MousePointer = kPointerNormal;
}

void RegisterExamine(FrmConversion& form) { form.On("cmdExamineFile_Click", cmdExamineFile_Click); }

}  // namespace crownlab
