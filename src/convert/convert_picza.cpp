#include "basis/paths.h"
#include "convert/conversion_run.h"
#include "convert/frm_conversion.h"
#include "convert/grid_data_call.h"
#include "convert/grid_text_call.h"
#include "convert/path_parts.h"
#include "convert/picza_file.h"
#include "convert/routes.h"
#include "forms/desk.h"
#include "shell/shell_state.h"

namespace crownlab {
namespace {

constexpr double kMicrometres = 1000;

/// Map units that one unit of a scanner file is.
double UnitOf(const FrmConversion& form) { return kPiczaUnit * (form.optOutum.Selected ? kMicrometres : 1); }

/// Units of a scanner file that one map unit is; with "Auto" a wide spacing tells of micrometres.
double FactorOf(const FrmConversion& form, double spacing) {
    constexpr double fromMillimetres = 40;
    constexpr double fromMicrometres = 0.025;
    constexpr double widestInMillimetres = 1;
    if (form.optOutum.Selected) return fromMicrometres;
    if (form.optOutmm.Selected) return fromMillimetres;
    return spacing <= widestInMillimetres ? fromMillimetres : fromMicrometres;
}

}  // namespace

void ConvertPIX_GRD(FrmConversion& form) {
    PrepareProgram(form);
    TakeNoFiles(form);
    const double unit = UnitOf(form);
    PiczaCounts counts;
    for (int index = 1; index <= form.NoFiles; ++index) {
        BatchFile& file = StartFile(form, index);
        file.OutputPath = file.Stem + form.OutputAddition + ".grd";
        const std::string points = file.Stem + ".csv";
        const PiczaHead head = WritePiczaPoints(*form.App.Files, file.InputPath, points, unit);
        const PiczaExtent extent = ExtentOfPicza(head, unit, counts);
        GridLatticePoints(*form.Shell.Surfer, form.SurferApp, points,
                          {.NumCols = static_cast<double>(counts.NumCols),
                           .NumRows = static_cast<double>(counts.NumRows),
                           .XMax = extent.Width,
                           .YMax = extent.Height},
                          file.OutputPath);
    }
    EndGridding(form);
}

void ConvertPIX_CSV(FrmConversion& form) {
    const std::string name = form.Text1.Text;
    if (name.empty() || name == "*.pix") return TellAndStop(form, "Choose Picza filename", "Filename");
    const BatchFile file = SingleFile(form.File1.Path, name);
    const double unit = UnitOf(form);
    const bool scannedOnly = form.Option4.Selected;
    const PiczaScan scan = ReadPiczaScan(file.InputPath, [&form] { form.App.Screen->Yield(); });
    if (scannedOnly) {
        WriteScannedPoints(*form.App.Files, file.Stem + ".csv", scan, unit);
    } else {
        WriteAllPlaces(*form.App.Files, file.Stem + ".csv", scan, unit);
    }
    form.MousePointer = kPointerNormal;
}

void ConvertGRD_PIX(FrmConversion& form) {
    PrepareProgram(form);
    const std::string name = form.Text1.Text;
    if (name.empty() || name == "*.grd") return TellAndStop(form, "Choose grid filename", "Filename");
    const BatchFile file = SingleFile(form.File1.Path, name);
    const std::string text = file.Stem + "mir.dat";
    MirrorToText(*form.Shell.Surfer, form.SurferApp, file.InputPath, text);
    const Lattice lattice = ReadLattice(text);
    WritePiczaFile(*form.App.Files, file.Stem + ".pix", lattice, FactorOf(form, SpacingOf(lattice).X));
    RemoveFile(text);
}

}  // namespace crownlab
