#include "pointcloud/blanking_outline.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <set>

#include "basis/failure.h"
#include "basis/memory_limit.h"
#include "basis/number_text.h"
#include "basis/result_file.h"
#include "basis/rounding.h"

namespace crownlab {
namespace {

constexpr std::size_t kMostPositions = 100000;
constexpr int kDirections = 8;
constexpr double kFarAway = 100000;

/// Steps of the directions 1 to 8, clockwise with y upward:
///
///     3 4 5
///     2 . 6
///     1 8 7
constexpr std::array<BinPosition, kDirections + 1> kSteps{
    {{0, 0}, {-1, -1}, {-1, 0}, {-1, 1}, {0, 1}, {1, 1}, {1, 0}, {1, -1}, {0, -1}}};

/// A walker that looks at the bin one step away.
struct Walker {
    const BinGrid& Grid;
    BinPosition Current;
    int WalkDirection = 1;
    BinPosition Probe;

    void LookAhead() {
        const BinPosition& step = kSteps[static_cast<std::size_t>(WalkDirection)];
        Probe = {Current.Column + step.Column, Current.Row + step.Row};
    }
    void TurnNext() {
        WalkDirection = WalkDirection == kDirections ? 1 : WalkDirection + 1;
        LookAhead();
    }
    void TurnBack() {
        WalkDirection = WalkDirection == 1 ? kDirections : WalkDirection - 1;
        LookAhead();
    }
    bool ProbeOccupied() const { return Grid.Count(Probe.Column, Probe.Row) > 0; }

    /// Turns until the probe is occupied, or not; false if all eight looks fail.
    bool TurnUntil(bool occupied) {
        for (int look = 0; look < kDirections; ++look) {
            if (ProbeOccupied() == occupied) return true;
            TurnNext();
        }
        return false;
    }
};

/// The nine sub-positions of a bin and how far each is from the nearest point seen.
struct SubPositions {
    std::array<double, 9> x{};
    std::array<double, 9> y{};
    std::array<double, 9> Distance{};

    SubPositions(const BinPlan& plan, const BinPosition& bin) {
        Distance.fill(kFarAway);
        std::size_t at = 0;
        for (int i = -1; i <= 1; ++i) {
            for (int j = -1; j <= 1; ++j, ++at) {
                x[at] = static_cast<double>(bin.Column - 1) * plan.BinSize + plan.OriginX + plan.BinSize / 2 * (i + 1);
                y[at] = static_cast<double>(bin.Row - 1) * plan.BinSize + plan.OriginY + plan.BinSize / 2 * (j + 1);
            }
        }
    }

    void See(double px, double py) {
        for (std::size_t at = 0; at < 9; ++at) {
            const double dx = x[at] - px;
            const double dy = y[at] - py;
            const double distance = std::sqrt(dx * dx + dy * dy);
            if (distance < Distance[at]) Distance[at] = distance;
        }
    }

    OutlineVertex Choose(double binSize) const {
        OutlineVertex vertex;
        double best = kFarAway;
        for (std::size_t at = 0; at < 9; ++at) {
            if (Distance[at] < best && Distance[at] > binSize / 4) {
                vertex = {x[at], y[at], Distance[at]};
                best = Distance[at];
            }
        }
        return vertex;
    }
};

double MeanOfThree(double a, double b, double c) { return (a + b + c) / 3; }

bool RowHasPoints(const BinGrid& grid, std::int64_t column, std::int64_t row) {
    const BinGrid::Range range = grid.PointsIn(column - 1, column + 1, row);
    return range.First != range.Last;
}

}  // namespace

std::string WalkErrorText(WalkError error) {
    switch (error) {
        case WalkError::NoEmptyBin: return "Error - empty bin not found: E001";
        case WalkError::NoOccupiedBin: return "Error - occupied bin not found: E002";
        case WalkError::TooManyPositions:
            return "Error - more than 100,000 points in blanking file; increase bin size: E003";
        case WalkError::None: break;
    }
    return {};
}

OutlineWalk WalkAround(const BinGrid& grid) {
    if (grid.Bins().empty()) throw Failure(FailureKind::SubscriptOutOfRange, "OutlineBins");
    const BinGrid::Bin& first = grid.Bins().front();
    OutlineWalk walk;
    walk.Bins.push_back({first.Column - 1, first.Row});
    Walker walker{.Grid = grid, .Current = {}, .WalkDirection = 1, .Probe = {}};
    while (true) {
        walker.Current = walk.Bins.back();
        walker.LookAhead();
        if (!walker.TurnUntil(false)) {
            walk.Error = WalkError::NoEmptyBin;
            return walk;
        }
        if (!walker.TurnUntil(true)) {
            walk.Error = WalkError::NoOccupiedBin;
            return walk;
        }
        walker.TurnBack();
        if (walk.Bins.size() + 1 >= kMostPositions) {
            walk.Error = WalkError::TooManyPositions;
            return walk;
        }
        walk.Bins.push_back(walker.Probe);
        if (walk.Bins.back() == walk.Bins.front()) return walk;
        walker.TurnBack();
    }
}

std::vector<OutlineVertex> PlaceVertices(const BinGrid& grid, const std::vector<BinPosition>& walk) {
    std::vector<OutlineVertex> vertices;
    vertices.reserve(walk.size());
    for (const BinPosition& bin : walk) {
        SubPositions sub(grid.Plan(), bin);
        for (std::int64_t row = bin.Row - 1; row <= bin.Row + 1; ++row) {
            const BinGrid::Range range = grid.PointsIn(bin.Column - 1, bin.Column + 1, row);
            for (std::size_t i = range.First; i < range.Last; ++i) sub.See(grid.X[i], grid.Y[i]);
        }
        vertices.push_back(sub.Choose(grid.Plan().BinSize));
    }
    return vertices;
}

std::vector<OutlineVertex> KeepVertices(const std::vector<OutlineVertex>& vertices, double binSize) {
    std::vector<OutlineVertex> kept;
    for (const OutlineVertex& vertex : vertices) {
        if (!(vertex.Distance < 0.75 * binSize)) continue;
        kept.push_back(vertex);
        ToInt16(static_cast<double>(kept.size()), "KeptCount");
    }
    return kept;
}

void WriteOutline(FileTable& files, const std::string& path, const std::vector<OutlineVertex>& vertices) {
    if (vertices.size() < 2) throw Failure(FailureKind::SubscriptOutOfRange, "KeptX");
    ResultFile file(files, path);
    WriteNumberLine(file, {static_cast<double>(vertices.size()), 0});
    for (std::size_t m = 0; m < vertices.size(); ++m) {
        const bool first = m == 0;
        const bool last = m + 1 == vertices.size();
        // The terms stand in the order of the ring's list, so that the sums come out the same to the bit.
        const OutlineVertex& a = first ? vertices.back() : vertices[m - 1];
        const OutlineVertex& b = vertices[m];
        const OutlineVertex& c = last ? vertices.front() : vertices[m + 1];
        WriteNumberLine(file, {MeanOfThree(a.x, b.x, c.x), MeanOfThree(a.y, b.y, c.y)});
    }
    file.Commit();
}

PointCloud FillPoints(const BinGrid& grid, const std::vector<BinPosition>& walk, double z) {
    const BinPlan& plan = grid.Plan();
    const double places = (plan.NumBinsX / 3 + 1) * (plan.NumBinsY / 3 + 1);
    constexpr double most = 1e15;
    RequireMemory(static_cast<std::uint64_t>(std::min(places * sizeof(CloudPoint), most)), "OutlineMask");
    std::set<std::pair<std::int64_t, std::int64_t>> nearWalk;
    for (const BinPosition& bin : walk) {
        for (std::int64_t row = bin.Row - 1; row <= bin.Row + 1; ++row) {
            for (std::int64_t column = bin.Column - 1; column <= bin.Column + 1; ++column)
                nearWalk.insert({column, row});
        }
    }
    PointCloud points;
    for (std::int64_t row = 2; static_cast<double>(row) <= plan.NumBinsY - 1; row += 3) {
        for (std::int64_t column = 2; static_cast<double>(column) <= plan.NumBinsX - 1; column += 3) {
            if (nearWalk.count({column, row}) != 0) continue;
            if (RowHasPoints(grid, column, row - 1) || RowHasPoints(grid, column, row) ||
                RowHasPoints(grid, column, row + 1)) {
                continue;
            }
            points.push_back({static_cast<double>(column - 1) * plan.BinSize + plan.OriginX + plan.BinSize / 2,
                              static_cast<double>(row - 1) * plan.BinSize + plan.OriginY + plan.BinSize / 2, z});
        }
    }
    return points;
}

}  // namespace crownlab
