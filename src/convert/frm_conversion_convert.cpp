// Which converter runs.
#include <array>

#include "convert/file_types.h"
#include "convert/frm_conversion.h"
#include "convert/routes.h"

namespace crownlab {
namespace {

struct Route {
    const char* From;
    const char* To;
    void (*Convert)(FrmConversion& form);
};

/// A new converter is a row here, its declaration in routes.h and a file of its own. Of a pair without a row nothing
/// runs.
constexpr auto kRoutes = std::to_array<Route>({
    {source_type::kTiffText, target_type::kSurferGrid, ConvertTIFF_GRD},
    {source_type::kHawkText, target_type::kSurferGrid, ConvertTXT_GRD},
    {source_type::kPicza, target_type::kSurferGrid, ConvertPIX_GRD},
    {source_type::kPicza, target_type::kCsv, ConvertPIX_CSV},
    {source_type::kSurferGrid, target_type::kPicza, ConvertGRD_PIX},
    {source_type::kSurferGrid, target_type::kVrmlElevation, ConvertGRD_WRL},
    {source_type::kSurferGrid, target_type::kVrmlPolygons, ConvertGRD_WRL},
    {source_type::kSurferGrid, target_type::kVrmlSurface, ConvertGRD_WRL},
    {source_type::kSurferGrid, target_type::kDat, ConvertGRD_DAT},
    {source_type::kSurferGrid, target_type::kXyz, ConvertGRD_XYZ},
    {source_type::kSurferGrid, target_type::kDxf, ConvertGRD_DXF},
    {source_type::kTiffText, target_type::kVrml, ConvertTIFF_WRL},
    {source_type::kCsv, target_type::kVrml, ConvertCSV_WRL},
    {source_type::kCsv, target_type::kTiffDem, ConvertCSV_TIF},
});

}  // namespace

void cmdConvert_Click(FrmConversion& form) {
    form.MousePointer = kPointerHourglass;
    const std::string from = form.cmbFromFileType.Text();
    const std::string to = form.cmbToFileType.Text();
    for (const Route& route : kRoutes) {
        if (from == route.From && to == route.To) route.Convert(form);
    }
    cmdClearFilenames_Click(form);
}

void RegisterConvert(FrmConversion& form) { form.On("cmdConvert_Click", cmdConvert_Click); }

}  // namespace crownlab
