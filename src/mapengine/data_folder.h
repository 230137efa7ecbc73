#pragma once

#include <string>

namespace crownlab {

/// The folder with the data that come along with the program, without a separator at its end. It lies beside the
/// folder of the running executable ("share/crownlab" there or one level up); where the platform doesn't tell that
/// place, or nothing is there, it is the folder for which the program was configured.
std::string DataFolder();

/// The sample surface in it, with the platform's separators.
std::string SampleGridPath(const std::string& dataFolder);

}  // namespace crownlab
