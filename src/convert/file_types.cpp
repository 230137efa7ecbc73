#include "convert/file_types.h"

#include <algorithm>
#include <array>

namespace crownlab {
namespace {

constexpr std::array<const char*, 2> kFromTiffText{target_type::kSurferGrid, target_type::kVrml};
constexpr std::array<const char*, 1> kFromHawkText{target_type::kSurferGrid};
constexpr std::array<const char*, 2> kFromCsv{target_type::kVrml, target_type::kTiffDem};
constexpr std::array<const char*, 7> kFromSurferGrid{
    target_type::kPicza, target_type::kVrmlElevation, target_type::kVrmlPolygons, target_type::kVrmlSurface,
    target_type::kDat,   target_type::kXyz,           target_type::kDxf};
constexpr std::array<const char*, 2> kFromPicza{target_type::kSurferGrid, target_type::kCsv};

constexpr std::array<SourceType, 7> kSourceTypes{{
    {source_type::kTiffText, "*.txt", kFromTiffText},
    {source_type::kHawkText, "*.txt", kFromHawkText},
    {source_type::kCsv, "*.csv;*.dat", kFromCsv},
    {source_type::kSurferGrid, "*.grd", kFromSurferGrid},
    {source_type::kPicza, "*.pix", kFromPicza},
    {source_type::kVrml, "*.wrl", {}},
    {source_type::kAll, "*.*", {}},
}};

}  // namespace

std::span<const SourceType> SourceTypes() { return kSourceTypes; }

const SourceType* FindSourceType(std::string_view name) {
    const auto* const found = std::find_if(kSourceTypes.begin(), kSourceTypes.end(),
                                           [name](const SourceType& type) { return type.Name == name; });
    return found == kSourceTypes.end() ? nullptr : found;
}

}  // namespace crownlab
