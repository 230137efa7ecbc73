#include "mapengine/members.h"

#include <array>

namespace crownlab {

std::span<const MemberEntry> GridMembers() {
    static constexpr auto members = std::to_array<MemberEntry>({
        {"GridBlank", CallGridBlank},
        {"GridCalculus", CallGridCalculus},
        {"GridConvert", CallGridConvert},
        {"GridFilter", CallGridFilter},
        {"GridMatrixSmooth", CallGridMatrixSmooth},
        {"GridResiduals", CallGridResiduals},
        {"GridSlice", CallGridSlice},
        {"GridVolume", CallGridVolume},
    });
    return members;
}

}  // namespace crownlab
