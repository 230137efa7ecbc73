#pragma once

#include <span>
#include <string_view>

#include "mapengine/engine_call.h"

namespace crownlab {

/// A member of the application object that works on grid files.
struct MemberEntry {
    std::string_view Name;
    GridMember Run;
};

/// All of them, in the order of their names.
std::span<const MemberEntry> GridMembers();

// One source file each, member_grid_*.cpp.
Value CallGridBlank(EngineCall& call);
Value CallGridCalculus(EngineCall& call);
Value CallGridConvert(EngineCall& call);
Value CallGridData(EngineCall& call);
Value CallGridExtract(EngineCall& call);
Value CallGridFilter(EngineCall& call);
Value CallGridMath(EngineCall& call);
Value CallGridMatrixSmooth(EngineCall& call);
Value CallGridResiduals(EngineCall& call);
Value CallGridSlice(EngineCall& call);
Value CallGridTransform(EngineCall& call);
Value CallGridVolume(EngineCall& call);

}  // namespace crownlab
