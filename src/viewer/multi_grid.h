#pragma once

#include <string>
#include <vector>

#include "viewer/surface_file.h"

namespace crownlab {

/// Spacing of one tooth of a multi-tooth file; kNoStep where none is found.
///
/// Two consecutive points with the same y make the y step 0. The x step is looked for only where
/// `direction` says how x runs in the file: "XUp" takes the smallest rise of x between consecutive points,
/// "XDown" the smallest fall, as rounded at ten decimals. Model files don't tell, and with any other text
/// the x step stays kNoStep, so that a tooth is gathered into few wide cells.
SurfaceSteps FindToothSteps(const std::vector<SurfacePoint>& points, const std::string& direction);

}  // namespace crownlab
