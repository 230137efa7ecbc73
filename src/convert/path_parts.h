#pragma once

#include <string>

#include "shell/file_batch.h"

namespace crownlab {

/// The folder of a path: all up to and including the last separator. Empty if there is none.
std::string FindRootDir(const std::string& path);

/// The name of a path without its folder and its extension, which is taken to be a dot and three letters. InvalidCall
/// if nothing is left of it.
std::string FindBaseFilename(const std::string& path);

/// The file `name` in `folder` as the converters that take one file see it. InvalidCall for a name without a base.
BatchFile SingleFile(const std::string& folder, const std::string& name);

}  // namespace crownlab
