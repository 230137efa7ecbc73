#include "viewer/frm_csv_view.h"
#include "viewer/frm_csv_view_handlers.h"
namespace crownlab {
void RegisterReading(FrmCSVView&) {}
void RegisterDisplay(FrmCSVView&) {}
void RegisterAspectSlope(FrmCSVView&) {}
void RegisterClump(FrmCSVView&) {}
void RegisterProcessing(FrmCSVView&) {}
void RegisterStatistics(FrmCSVView&) {}
void RegisterMultiTooth(FrmCSVView&) {}
void RegisterModelFiles(FrmCSVView&) {}
void RegisterOutputs(FrmCSVView&) {}
void RegisterBatch(FrmCSVView&) {}
void cmdReadCSV_Click(FrmCSVView&) {}
void TakeScrollBarValues(FrmCSVView&) {}
void UpdateClumpName(FrmCSVView&) {}
}
