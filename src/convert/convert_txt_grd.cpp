#include "basis/paths.h"
#include "convert/conversion_run.h"
#include "convert/frm_conversion.h"
#include "convert/grid_data_call.h"
#include "convert/grid_lattice.h"
#include "convert/mould_copy.h"
#include "convert/routes.h"
#include "shell/shell_state.h"

namespace crownlab {
namespace {

GridLattice LatticeOfPoints(const FrmConversion& form, const PointExtents& extents, double most) {
    if (form.optMaxNoRows.Selected) return LatticeByLongerSide(extents, most);
    return LatticeByIntervals(extents, form.txtXInt.Number(), form.txtYInt.Number());
}

void GridFile(FrmConversion& form, BatchFile& file, double most) {
    const bool mould = form.chkMould.Checked;
    const std::string points = mould ? file.Stem + "temp.txt" : file.InputPath;
    if (mould) WriteMouldCopy(*form.App.Files, file.InputPath, points);
    file.OutputPath = file.Stem + form.OutputAddition + ".grd";
    const GridLattice lattice = LatticeOfPoints(form, ReadPointExtents(points), most);
    GridScatteredPoints(*form.Shell.Surfer, form.SurferApp, points, lattice,
                        {.InverseDistance = form.optInvDist.Selected, .Kriging = form.optKrig.Selected},
                        file.OutputPath);
    if (mould) RemoveFile(points);
}

}  // namespace

void ConvertTXT_GRD(FrmConversion& form) {
    PrepareProgram(form);
    TakeNoFiles(form);
    const double most = form.optMaxNoRows.Selected ? form.txtMaxNoRows.Number() : 0;
    for (int index = 1; index <= form.NoFiles; ++index) GridFile(form, StartFile(form, index), most);
    EndGridding(form);
}

}  // namespace crownlab
