#include "viewer/contour.h"

#include <cmath>

#include "basis/memory_limit.h"
#include "basis/rounding.h"

namespace crownlab {
namespace {

template <typename BandOf>
SurfaceGrid Banded(const SurfaceGrid& work, BandOf bandOf) {
    RequireMemory(work.Size() * sizeof(double), "ProcGrid");
    SurfaceGrid bands(work, kEmptyCellZ);
    for (std::size_t at = 0; at < work.Size(); ++at) {
        if (work.Z[at] != kEmptyCellZ) bands.Z[at] = bandOf(work.Z[at]);
    }
    return bands;
}

}  // namespace

SurfaceGrid ContourBySteps(const SurfaceGrid& work, double stepX, double zMin, double multiple) {
    const double lowest = std::floor(Divide(zMin, stepX, "StepX"));
    return Banded(work, [&](double z) -> double {
        return FloorToInt16((std::floor(z / stepX) - lowest) / multiple, "ContourLevel");
    });
}

SurfaceGrid ContourByRange(const SurfaceGrid& work, double zMin, double zMax, double parts) {
    const double height = (zMax - zMin) / parts;
    return Banded(work,
                  [&](double z) -> double { return ToInt16(Divide(z - zMin, height, "z range"), "ContourLevel"); });
}

}  // namespace crownlab
