#include "formats/unblanked_points.h"
#include "surfer/grid_calls.h"
#include "surfer/grid_shape.h"
#include "surfer/session.h"
#include "surferfns/frm_surf_fns.h"
#include "surferfns/node_layout.h"

namespace crownlab {
namespace {

void FixFile(FrmSurfFns& form, int place) {
    BatchFile& file = FileAt(form, place);
    Session& session = SessionOf(form);
    const GridShape grid = ReadGridShape(session, form.App, file.InputPath, form.Label1.Caption, ShapeOf::Plan);
    const std::string nodes = file.FileDir + "temp.dat";
    const std::string unblanked = file.FileDir + "temp2.dat";
    ConvertGridByPosition(session, file.InputPath, nodes);
    WriteUnblankedPoints(*form.App.Files, nodes, unblanked);
    file.OutputPath = file.Stem + "fixres.grd";
    GridPoints(session, unblanked, RoundedToThousandths(grid), GriddingMethod::Triangulation, file.OutputPath);
    PlotSurfer(form, file.OutputPath, file.FileBase, ChosenPlotType(form), place);
}

}  // namespace

void cmdFixResolution_Click(FrmSurfFns& form) {
    StartTool(form);
    for (int i = 1; i <= form.FileCount; ++i) FixFile(form, i);
    EndToolAsChosen(form);
}

void RegisterFixResolution(FrmSurfFns& form) { form.On("cmdFixResolution_Click", cmdFixResolution_Click); }

}  // namespace crownlab
