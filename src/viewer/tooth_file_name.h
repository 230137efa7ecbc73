#pragma once

#include <array>
#include <string>

namespace crownlab {

/// Folder of the files of single teeth: `surfaceDir` joined with "teeth".
std::string ToothFolder(const std::string& surfaceDir);

/// Name of a tooth's files less the extension, made of its parameters (entry 0 is parameter 1): that folder, "P",
/// then eleven numbers joined by "_":
///
///     floor(p1 × 100000), floor(p2 × 100000), p3 × 10, p4 / 10 *, p5 × 100 *, p6 × 100 *,
///     p7 to p10 × 1000, p11 / 1000 *
///
/// A part with a star that is two characters long gets a "0" in front. Overflow where a part isn't finite.
std::string ToothFileName(const std::string& surfaceDir, const std::array<double, 11>& params);

}  // namespace crownlab
