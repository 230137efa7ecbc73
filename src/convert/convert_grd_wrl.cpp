#include "basis/paths.h"
#include "convert/conversion_run.h"
#include "convert/file_types.h"
#include "convert/frm_conversion.h"
#include "convert/grid_text_call.h"
#include "convert/grid_wrl.h"
#include "convert/routes.h"
#include "shell/shell_state.h"

namespace crownlab {
namespace {

/// What the chosen target makes, and how its files are called.
struct Product {
    WrlProduct Kind;
    const char* Suffix;
};

Product ChosenProduct(const FrmConversion& form) {
    const std::string target = form.cmbToFileType.Text();
    if (target == target_type::kVrmlPolygons) return {WrlProduct::Polygons, "P.wrl"};
    if (target == target_type::kVrmlSurface) return {WrlProduct::SurfacePolygons, "PS.wrl"};
    return {WrlProduct::ElevationGrid, ".wrl"};
}

DataUnit ChosenUnit(const FrmConversion& form) {
    if (form.optOutum.Selected) return DataUnit::Micrometres;
    return form.optOutmm.Selected ? DataUnit::Millimetres : DataUnit::Auto;
}

}  // namespace

void ConvertGRD_WRL(FrmConversion& form) {
    PrepareProgram(form);
    TakeNoFiles(form);
    const Product product = ChosenProduct(form);
    for (int index = 1; index <= form.NoFiles; ++index) {
        BatchFile& file = StartFile(form, index);
        file.OutputPath = file.Stem + product.Suffix;
        const std::string text = file.Stem + "mir.dat";
        MirrorToText(*form.Shell.Surfer, form.SurferApp, file.InputPath, text);
        WriteGridWrl(*form.App.Files, file.OutputPath, ReadLattice(text),
                     {.Product = product.Kind,
                      .Unit = ChosenUnit(form),
                      .MorphoBrowser = form.chkMorphoBrWRL.Checked,
                      .Subject = file.InputPath});
        RemoveFile(text);
    }
}

}  // namespace crownlab
