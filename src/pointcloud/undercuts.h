#pragma once

#include <cstdint>
#include <functional>
#include <vector>

#include "pointcloud/bin_grid.h"

namespace crownlab {

/// How points below an overhang are told.
struct UndercutOptions {
    double PrimaryRadius = 0.020;   ///< half the side of the search square, in units of x and y
    double RadiusIncrement = 0.25;  ///< share of PrimaryRadius added when a search finds nothing
    bool FindNeighbour = true;      ///< search again with a larger square instead of failing
    bool ByThreshold = true;        ///< else by Proportion
    double Threshold = 0.08;        ///< height below the square's highest point that rejects a point
    double Proportion = 0.9;        ///< a point lower than this share of the highest z is rejected
};

struct UndercutResult {
    std::vector<std::uint8_t> Rejected;  ///< one a point, in the order of the bins
    bool Retried = false;                ///< a search was repeated with a larger square
};

/// Called after each point that is done, with their number.
using PointsDone = std::function<void(std::size_t)>;

/// Holds every point against the highest point of the cloud in the open square around it, bin after bin.
/// The square is searched only in the bins within floor(radius / bin size), at least one, to each side. A
/// radius enlarged by a retry stays so for the bin's later points.
///
/// Throws SubscriptOutOfRange for more than 1000 points in a square, DivisionByZero where none is found and
/// no other square is wanted, InvalidCall where no larger square could ever find one.
UndercutResult FindUndercuts(const BinGrid& grid, const UndercutOptions& options, const PointsDone& done);

}  // namespace crownlab
