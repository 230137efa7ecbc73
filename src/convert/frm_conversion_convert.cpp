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
