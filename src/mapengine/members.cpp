#include "mapengine/members.h"

#include <array>

namespace crownlab {

std::span<const MemberEntry> GridMembers() {
    static constexpr auto members = std::to_array<MemberEntry>({
        {"GridBlank", CallGridBlank},
        {"GridConvert", CallGridConvert},
    });
    return members;
}

}  // namespace crownlab
