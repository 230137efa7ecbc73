#pragma once

#include <string>

#include "basis/paths.h"

namespace crownlab {

/// The content of a file that a call names as its input. AutomationFailed, with a sentence that names it, where it
/// can't be had; OutOfMemory.
FileText ReadInputFile(const std::string& path);

}  // namespace crownlab
