#include "viewer/frm_csv_view.h"
#include "viewer/frm_csv_view_handlers.h"
namespace crownlab {
void RegisterStatistics(FrmCSVView&) {}
void RegisterMultiTooth(FrmCSVView&) {}
void RegisterModelFiles(FrmCSVView&) {}
void RegisterOutputs(FrmCSVView&) {}
void cmdCopyWRL_Click(FrmCSVView&) {}
}  // namespace crownlab
