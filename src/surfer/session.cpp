#include "surfer/session.h"

#include "forms/window_table.h"

namespace crownlab {

std::string SurferClassName(Session& session, WindowTable& windows) {
    if (windows.Get<MenuItem>("frmStartup", "mnuSurf6").Checked) {
        session.SurferVersion = "SurferV6";
        return "Surfer.APP";
    }
    if (windows.Get<MenuItem>("frmStartup", "mnuSurf8").Checked) {
        session.SurferVersion = "SurferV8";
        return "Surfer.Application";
    }
    return {};
}

}  // namespace crownlab
