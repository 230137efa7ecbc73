#pragma once

#include <string>

#include "surfer/automation.h"

namespace crownlab {

struct Session;

/// Asks for a grid as x, y, z text, mirrored in y: first row last. With neither version chosen nothing is asked.
void MirrorToText(const Session& session, const LateBound& program, const std::string& grid, const std::string& text);

/// Asks for a grid as x, y, z text, by position under both versions.
void GridToText(const Session& session, const LateBound& program, const std::string& grid, const std::string& text);

}  // namespace crownlab
