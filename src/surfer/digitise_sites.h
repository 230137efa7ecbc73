#pragma once

#include <span>
#include <string>
#include <string_view>

#include "surfer/digitise_step.h"

namespace crownlab {

/// What a tool asks a person to digitise: its window, the lines of its prompt ("\n" between them), the names of the
/// files. "#" stands for a number that the tool puts in its place.
struct DigitiseSite {
    std::string_view Window;
    std::string_view What;  ///< name of the place within its window
    std::string_view Prompt;
    std::string_view File;
    std::string_view CopySuffix;
    BoundaryKind Boundary = BoundaryKind::None;  ///< None also where the tool reckons its boundary itself
    std::string_view BoundarySuffix = {};
    int Points = 0;  ///< points that are wanted, 0 for all there are
};

/// All places at which tools ask, but for those that name the grid in their prompt.
std::span<const DigitiseSite> DigitiseSites();

/// The step of a place for one grid. ObjectNotSet if there is no such place.
DigitiseStep MakeDigitiseStep(std::string_view window, std::string_view what, const std::string& folder,
                              const std::string& base, int number = 0);

}  // namespace crownlab
