#include "pointcloud/frm_pt_cloud.h"
namespace crownlab {
void RegisterPointsToWrl(FrmPtCloud&) {}
void RegisterThickness(FrmPtCloud&) {}
}
