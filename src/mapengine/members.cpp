#include "mapengine/members.h"

#include <array>

namespace crownlab {

std::span<const MemberEntry> GridMembers() {
    static constexpr auto members = std::to_array<MemberEntry>({
        {"GridConvert", CallGridConvert},
        {"GridData", CallGridData},
    });
    return members;
}

}  // namespace crownlab
