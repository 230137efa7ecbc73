#include "basis/result_file.h"
#include "surfer/session.h"
#include "surferfns/frm_surf_fns.h"
#include "surferfns/surface_areas.h"

namespace crownlab {

void cmdSAVol_Click(FrmSurfFns& form) {
    StartTool(form);
    const Session& session = SessionOf(form);
    for (int i = 1; i <= form.FileCount; ++i) {
        const BatchFile& file = FileAt(form, i);
        if (session.IsSix()) return Refuse(form, "This function is not available in Surfer v6.");
        if (!session.IsEight()) continue;
        const SurfaceAreas areas = MeasureAreas(session.SurferApp, file.InputPath);
        const std::string table = FileAt(form, 1).FileDir + "00SAallresults.csv";
        WriteAreas(*form.App.Files, table, file.FileBase, areas, i == 1);
    }
    EndTool(form);
}

void RegisterArea(FrmSurfFns& form) { form.On("cmdSAVol_Click", cmdSAVol_Click); }

}  // namespace crownlab
