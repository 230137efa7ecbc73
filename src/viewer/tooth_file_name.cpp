#include "viewer/tooth_file_name.h"

#include <cmath>

#include "basis/number_text.h"
#include "basis/paths.h"
#include "basis/rounding.h"

namespace crownlab {
namespace {

std::string Plain(double value) { return GeneralText(Finite(value, "tooth parameter")); }

/// Keeps names of parts with two and with three characters in order.
std::string Padded(double value) {
    const std::string text = Plain(value);
    return text.size() == 2 ? "0" + text : text;
}

}  // namespace

std::string ToothFolder(const std::string& surfaceDir) { return JoinPath(surfaceDir, "teeth"); }

std::string ToothFileName(const std::string& surfaceDir, const std::array<double, 11>& params) {
    const std::array<std::string, 11> parts{
        Plain(std::floor(params[0] * 100000)),
        Plain(std::floor(params[1] * 100000)),
        Plain(params[2] * 10),
        Padded(params[3] / 10),
        Padded(params[4] * 100),
        Padded(params[5] * 100),
        Plain(params[6] * 1000),
        Plain(params[7] * 1000),
        Plain(params[8] * 1000),
        Plain(params[9] * 1000),
        Padded(params[10] / 1000),
    };
    std::string name = "P" + parts[0];
    for (std::size_t i = 1; i < parts.size(); ++i) name += "_" + parts[i];
    return JoinPath(ToothFolder(surfaceDir), name);
}

}  // namespace crownlab
