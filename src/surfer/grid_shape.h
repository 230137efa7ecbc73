#pragma once

#include <string>

#include "formats/grid_shape.h"

namespace crownlab {

struct Services;
struct Session;

/// Whether the heights of a grid are wanted too.
enum class ShapeOf { Plan, PlanAndHeights };

/// Learns the shape of a grid. Under version 8 by ReadGridInfo, the heights being this grid's own. Under version 6 from
/// the worksheet of a volume, by way of `folder` and "volume.dat"; AutomationFailed where that folder is missing. Under
/// any other version the shape stays all 0. `session.SurferApp` is set.
GridShape ReadGridShape(Session& session, Services& app, const std::string& gridFile, const std::string& folder,
                        ShapeOf wanted);

}  // namespace crownlab
