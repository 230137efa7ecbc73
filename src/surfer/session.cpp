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

LateBound AttachSurfer(Session& session, WindowTable& windows) {
    return session.Objects->Attach(SurferClassName(session, windows));
}

LateBound PrepareSurfer(Session& session, WindowTable& windows, bool startNew) {
    const std::string className = SurferClassName(session, windows);
    LateBound program = startNew ? session.Objects->Create(className) : session.Objects->Attach(className);
    if (session.IsEight()) {
        program.Set("Visible", true);
        if (startNew) program.Object("Documents").Call("Add", {1});
    }
    return program;
}

void StartSurfer(Session& session, WindowTable& windows) {
    const LateBound program = session.Objects->Create(SurferClassName(session, windows));
    if (!session.IsEight()) return;
    program.Set("Visible", true);
    program.Object("Documents").Call("Add", {1});
}

}  // namespace crownlab
