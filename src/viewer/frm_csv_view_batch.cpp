#include <string>
#include <vector>

#include "basis/paths.h"
#include "forms/acts.h"
#include "forms/desk.h"
#include "viewer/frm_csv_view.h"
#include "viewer/frm_csv_view_handlers.h"

namespace crownlab {
namespace {

void RunOn(FrmCSVView& form, BatchKind kind) {
    switch (kind) {
        case BatchKind::Clump: return cmdProcClump_Click(form);
        case BatchKind::AspectSlope: return cmdProcAspectSlope_Click(form);
        case BatchKind::Contour: return cmdProcContour_Click(form);
    }
}

/// The first file of a batch and a file of its own both find the flag clear, however the last batch ended.
struct BatchFlag {
    ViewerState& State;
    explicit BatchFlag(ViewerState& state) : State(state) { State.BatchRunning = false; }
    BatchFlag(const BatchFlag&) = delete;
    BatchFlag& operator=(const BatchFlag&) = delete;
    ~BatchFlag() { State.BatchRunning = false; }
};

void RunBatch(FrmCSVView& form, BatchKind kind) {
    form.MousePointer = kPointerHourglass;
    ProcessAllFiles(form, kind);
    form.MousePointer = kPointerNormal;
}

}  // namespace

void ProcessAllFiles(FrmCSVView& form, BatchKind kind) {
    const std::string folder = form.File1.Path;
    const std::vector<std::string> names = ListFiles(folder, "*.dat");
    const BatchFlag flag(form.State);
    for (const std::string& name : names) {
        form.Text1.Text = name;
        cmdReadCSV_Click(form);
        RunOn(form, kind);
        form.State.BatchRunning = true;
        form.App.Screen->Redraw();
    }
}

void RegisterBatch(FrmCSVView& form) {
    form.On(
        "cmdProcClumpAllFiles_Click", +[](FrmCSVView& f) { RunBatch(f, BatchKind::Clump); });
    form.On(
        "cmdProcAspectSlopeAllFiles_Click", +[](FrmCSVView& f) { RunBatch(f, BatchKind::AspectSlope); });
    form.On(
        "cmdProcContourAllFiles_Click", +[](FrmCSVView& f) { RunBatch(f, BatchKind::Contour); });
}

}  // namespace crownlab
