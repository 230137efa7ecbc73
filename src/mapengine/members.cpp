#include "mapengine/members.h"

#include <array>

namespace crownlab {

std::span<const MemberEntry> GridMembers() {
    static constexpr auto members = std::to_array<MemberEntry>({
        {"GridBlank", CallGridBlank},
        {"GridCalculus", CallGridCalculus},
        {"GridConvert", CallGridConvert},
        {"GridData", CallGridData},
        {"GridExtract", CallGridExtract},
        {"GridFilter", CallGridFilter},
        {"GridMath", CallGridMath},
        {"GridMatrixSmooth", CallGridMatrixSmooth},
        {"GridResiduals", CallGridResiduals},
        {"GridSlice", CallGridSlice},
        {"GridTransform", CallGridTransform},
        {"GridVolume", CallGridVolume},
    });
    return members;
}

}  // namespace crownlab
