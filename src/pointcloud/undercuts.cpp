#include "pointcloud/undercuts.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <limits>

#include "basis/dispatch.h"
#include "basis/failure.h"

namespace crownlab {
namespace {

/// Points that a search square may hold.
constexpr std::size_t kMostNeighbours = 1000;
/// Points that are looked at in one step.
constexpr std::size_t kLanes = 4;
/// Searches for one point before it is taken that none will ever find anything.
constexpr int kMostRetries = 10000;

/// Points found in the search square.
struct Neighbours {
    std::size_t Count = 0;
    double MaxZ = -1000000;
};

/// An open square in x and y.
struct Square {
    double XLow;
    double XHigh;
    double YLow;
    double YHigh;
};

/// The points of the bins that a search looks at, copied side by side so that every point of a bin can be
/// held against them in one sweep. Filled up to a whole number of registers with points that are nowhere.
struct Candidates {
    std::vector<double> X;
    std::vector<double> Y;
    std::vector<double> Z;

    void Clear() {
        X.clear();
        Y.clear();
        Z.clear();
    }
    void Add(const BinGrid& grid, const BinGrid::Range& range) {
        const auto copy = [&range](const std::vector<double>& from, std::vector<double>& to) {
            to.insert(to.end(), from.begin() + static_cast<std::ptrdiff_t>(range.First),
                      from.begin() + static_cast<std::ptrdiff_t>(range.Last));
        };
        copy(grid.X, X);
        copy(grid.Y, Y);
        copy(grid.Z, Z);
    }
    void FillUp() {
        constexpr double nowhere = std::numeric_limits<double>::quiet_NaN();
        while (X.size() % kLanes != 0) {
            X.push_back(nowhere);
            Y.push_back(nowhere);
            Z.push_back(0);
        }
    }
};

#ifdef __GNUC__

/// Four numbers at a time, whatever registers the processor has.
using Lanes = double __attribute__((vector_size(32)));
using LaneMask = long long __attribute__((vector_size(32)));

CROWNLAB_WIDE Neighbours FindInside(const double* x, const double* y, const double* z, std::size_t count,
                                    const Square& square) {
    const double lowest = Neighbours{}.MaxZ;
    Lanes highest = Lanes{} + lowest;
    LaneMask found{};
    for (std::size_t i = 0; i < count; i += kLanes) {
        Lanes px;
        Lanes py;
        Lanes pz;
        std::memcpy(&px, x + i, sizeof(px));
        std::memcpy(&py, y + i, sizeof(py));
        std::memcpy(&pz, z + i, sizeof(pz));
        const LaneMask inside = (px > square.XLow) & (px < square.XHigh) & (py > square.YLow) & (py < square.YHigh);
        const LaneMask higher = inside & (pz > highest);
        highest = reinterpret_cast<Lanes>((reinterpret_cast<LaneMask>(pz) & higher) |
                                          (reinterpret_cast<LaneMask>(highest) & ~higher));
        found -= inside;
    }
    Neighbours result;
    for (std::size_t k = 0; k < kLanes; ++k) {
        result.MaxZ = std::max(result.MaxZ, highest[k]);
        result.Count += static_cast<std::size_t>(found[k]);
    }
    return result;
}

#else

Neighbours FindInside(const double* x, const double* y, const double* z, std::size_t count, const Square& square) {
    Neighbours result;
    for (std::size_t i = 0; i < count; ++i) {
        if (!(x[i] > square.XLow && x[i] < square.XHigh && y[i] > square.YLow && y[i] < square.YHigh)) continue;
        result.MaxZ = std::max(result.MaxZ, z[i]);
        ++result.Count;
    }
    return result;
}

#endif

/// Bins to each side that a search looks at.
std::int64_t BinReach(double radius, double binSize) {
    constexpr double widest = 1e15;
    return static_cast<std::int64_t>(std::clamp(std::floor(radius / binSize), 1.0, widest));
}

void Collect(const BinGrid& grid, const BinGrid::Bin& bin, std::int64_t reach, Candidates& candidates) {
    candidates.Clear();
    const std::int64_t lastRow = grid.Bins().back().Row;
    const std::int64_t low = std::max<std::int64_t>(1, bin.Row - reach);
    const std::int64_t high = std::min<std::int64_t>(lastRow, bin.Row + reach);
    for (std::int64_t row = low; row <= high; ++row) {
        candidates.Add(grid, grid.PointsIn(bin.Column - reach, bin.Column + reach, row));
    }
    candidates.FillUp();
}

Neighbours Search(const BinGrid& grid, const Candidates& candidates, std::size_t point, double radius) {
    const double x = grid.X[point];
    const double y = grid.Y[point];
    const Square square{x - radius, x + radius, y - radius, y + radius};
    const Neighbours found =
        FindInside(candidates.X.data(), candidates.Y.data(), candidates.Z.data(), candidates.X.size(), square);
    if (found.Count > kMostNeighbours) throw Failure(FailureKind::SubscriptOutOfRange, "NeighbourZ");
    return found;
}

bool IsUndercut(double z, double maxZ, const UndercutOptions& options) {
    return options.ByThreshold ? maxZ - options.Threshold > z : z < maxZ * options.Proportion;
}

/// The search square of one bin's points and the bins it reaches.
struct BinSearch {
    const BinGrid& Grid;
    const UndercutOptions& Options;
    const BinGrid::Bin* Bin = nullptr;
    double Radius = 0;
    std::int64_t Reach = 0;
    Candidates Near;
    bool Retried = false;

    void Begin(const BinGrid::Bin& bin) {
        Bin = &bin;
        Radius = Options.PrimaryRadius;
        Reach = BinReach(Radius, Grid.Plan().BinSize);
        Collect(Grid, bin, Reach, Near);
    }

    void Enlarge() {
        Retried = true;
        Radius += Options.RadiusIncrement * Options.PrimaryRadius;
        if (const std::int64_t reach = BinReach(Radius, Grid.Plan().BinSize); reach != Reach) {
            Reach = reach;
            Collect(Grid, *Bin, Reach, Near);
        }
    }

    Neighbours Around(std::size_t point) {
        Neighbours found = Search(Grid, Near, point, Radius);
        for (int retry = 0; found.Count == 0; ++retry) {
            if (!Options.FindNeighbour) throw Failure(FailureKind::DivisionByZero, "NeighbourZMean");
            if (Options.PrimaryRadius <= 0 || Options.RadiusIncrement <= 0 || retry == kMostRetries) {
                throw Failure(FailureKind::InvalidCall, "search radius that never finds a point");
            }
            Enlarge();
            found = Search(Grid, Near, point, Radius);
        }
        return found;
    }
};

}  // namespace

UndercutResult FindUndercuts(const BinGrid& grid, const UndercutOptions& options, const PointsDone& done) {
    UndercutResult result;
    result.Rejected.resize(grid.X.size());
    BinSearch search{
        .Grid = grid, .Options = options, .Bin = nullptr, .Radius = 0, .Reach = 0, .Near = {}, .Retried = false};
    std::size_t count = 0;
    for (std::size_t b = 0; b < grid.Bins().size(); ++b) {
        search.Begin(grid.Bins()[b]);
        const BinGrid::Range points = grid.PointsOf(b);
        for (std::size_t i = points.First; i < points.Last; ++i) {
            done(++count);
            result.Rejected[i] = IsUndercut(grid.Z[i], search.Around(i).MaxZ, options);
        }
    }
    result.Retried = search.Retried;
    return result;
}

}  // namespace crownlab
