// Models straight from points, without the mapping program.
#include "convert/conversion_run.h"
#include "convert/frm_conversion.h"
#include "convert/path_parts.h"
#include "convert/point_lattice.h"
#include "convert/points_wrl.h"
#include "convert/routes.h"

namespace crownlab {
namespace {

bool IsNoSurfaceName(const std::string& name) { return name.empty() || name == "*.dat" || name == "*.csv"; }

/// Reads the surface file that is chosen. False after a message.
bool ReadChosenSurface(FrmConversion& form, BatchFile& file, PointLattice& lattice) {
    if (IsNoSurfaceName(form.Text1.Text)) {
        TellAndStop(form, "Choose text filename", "Filename");
        return false;
    }
    file = SingleFile(form.File1.Path, form.Text1.Text);
    LatticeReading reading = ReadPointLattice(file.InputPath);
    if (!reading.Message.empty()) {
        TellAndStop(form, reading.Message.c_str(), "");
        return false;
    }
    lattice = std::move(reading.Lattice);
    return true;
}

}  // namespace

void ConvertCSV_WRL(FrmConversion& form) {
    BatchFile file;
    PointLattice lattice;
    if (!ReadChosenSurface(form, file, lattice)) return;
    WriteSurfaceFileWrl(*form.App.Files, file.Stem + ".wrl", lattice, file.InputPath);
}

void ConvertCSV_TIF(FrmConversion& form) {
    BatchFile file;
    PointLattice lattice;
    // There has never been a writer of this format: what can be read is read, and what can't be is told.
    ReadChosenSurface(form, file, lattice);
}

void ConvertTIFF_WRL(FrmConversion& form) {
    if (IsNoTextName(form.Text1.Text)) return TellAndStop(form, "Choose text filename", "Filename");
    const BatchFile file = SingleFile(form.File1.Path, form.Text1.Text);
    WriteImageWrl(*form.App.Files, file.Stem + ".wrl", ReadHeightsInFileOrder(file.InputPath),
                  file.FileBase + file.Ext);
    form.MousePointer = kPointerNormal;
}

}  // namespace crownlab
