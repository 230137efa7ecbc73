#include "convert/point_lattice.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <filesystem>
#include <system_error>

#include "basis/failure.h"
#include "basis/field_reader.h"
#include "basis/memory_limit.h"
#include "basis/paths.h"
#include "basis/rounding.h"
#include "formats/point_text.h"

namespace crownlab {
namespace {

constexpr double kBlankFrom = 1e38;

/// Where the slower axis changes first, looking from point `from` on, and by how much; `Fast` is the other's step.
struct FirstRun {
    std::uint64_t Count = 0;
    double Fast = 0;
    double Slow = 0;
};

FirstRun FindFirstRun(const PointCloud& points, const std::string& path, std::size_t from, double CloudPoint::*fast,
                      double CloudPoint::*slow) {
    const CloudPoint& first = points.front();
    for (std::size_t i = from; i < points.size(); ++i) {
        if (points[i].*slow != first.*slow) return {i, points[1].*fast - first.*fast, points[i].*slow - first.*slow};
    }
    throw Failure(FailureKind::InputPastEnd, path);
}

/// All points; the first two have to be there.
PointCloud ReadPoints(const std::string& path) {
    std::error_code missing;
    if (std::filesystem::file_size(path, missing) == 0) throw Failure(FailureKind::InputPastEnd, path);
    PointCloud points = ReadPointText(path);
    if (points.size() < 2) throw Failure(FailureKind::InputPastEnd, path);
    return points;
}

void FindHeights(PointLattice& lattice, const PointCloud& points) {
    for (const CloudPoint& point : points) {
        lattice.ZMin = std::min(lattice.ZMin, point.z);
        if (point.z < kBlankFrom) lattice.ZMax = std::max(lattice.ZMax, point.z);
    }
}

/// Puts each point's height where its axis, turned if it falls, has it.
void PlaceHeights(PointLattice& lattice, const PointCloud& points, bool xFast, const FirstRun& run) {
    const bool turnX = (xFast ? run.Fast : run.Slow) < 0;
    const bool turnY = (xFast ? run.Slow : run.Fast) < 0;
    const auto cols = static_cast<std::size_t>(lattice.Cols);
    const auto rows = static_cast<std::size_t>(lattice.Rows);
    RequireMemory(points.size() * sizeof(double), "the table of heights");
    lattice.Z.resize(points.size());
    for (std::size_t k = 0; k < points.size(); ++k) {
        const std::size_t column = xFast ? k % cols : k / rows;
        const std::size_t row = xFast ? k / cols : k % rows;
        const double z = points[k].z < kBlankFrom ? points[k].z : lattice.ZMin;
        lattice.Z[(turnY ? rows - 1 - row : row) * cols + (turnX ? cols - 1 - column : column)] = z;
    }
}

}  // namespace

double PointLattice::At(int column, int row) const {
    return Z[static_cast<std::size_t>(row - 1) * static_cast<std::size_t>(Cols) + static_cast<std::size_t>(column - 1)];
}

LatticeReading ReadPointLattice(const std::string& path) {
    const PointCloud points = ReadPoints(path);
    const bool xFast = points[0].x != points[1].x;
    // The first two tell the axis; reading goes on behind them.
    constexpr std::size_t behindTwo = 2;
    const FirstRun run = xFast ? FindFirstRun(points, path, behindTwo, &CloudPoint::x, &CloudPoint::y)
                               : FindFirstRun(points, path, behindTwo, &CloudPoint::y, &CloudPoint::x);
    LatticeReading reading;
    if (points.size() % run.Count != 0) {
        reading.Message = std::string("Incorrect number of lines - error in parsing ") + (xFast ? "xlines" : "ylines");
        return reading;
    }
    PointLattice& lattice = reading.Lattice;
    const int fast = ToInt32(static_cast<double>(run.Count), "nodes in a line");
    const std::size_t lineCount = points.size() / run.Count;
    const int slow = ToInt32(static_cast<double>(lineCount), "number of lines");
    lattice.Cols = xFast ? fast : slow;
    lattice.Rows = xFast ? slow : fast;
    FindHeights(lattice, points);
    PlaceHeights(lattice, points, xFast, run);
    lattice.XSpacing = std::fabs(xFast ? run.Fast : run.Slow);
    lattice.YSpacing = std::fabs(xFast ? run.Slow : run.Fast);
    return reading;
}

FileOrderHeights ReadHeightsInFileOrder(const std::string& path) {
    const PointCloud points = ReadPoints(path);
    const FirstRun run = FindFirstRun(points, path, 1, &CloudPoint::x, &CloudPoint::y);
    FileOrderHeights heights;
    heights.Cols = ToInt32(static_cast<double>(run.Count), "number of columns");
    heights.Rows = ToInt32(static_cast<double>(points.size()) / static_cast<double>(run.Count), "number of rows");
    heights.XSpacing = std::fabs(run.Fast);
    heights.YSpacing = std::fabs(run.Slow);
    constexpr double start = 100'000;
    double low = start;
    for (const CloudPoint& point : points) low = std::min(low, point.z);
    heights.Z.reserve(points.size());
    for (const CloudPoint& point : points) heights.Z.push_back(point.z < kBlankFrom ? point.z : low);
    const std::size_t needed = static_cast<std::size_t>(heights.Cols) * static_cast<std::size_t>(heights.Rows);
    if (needed > points.size()) throw Failure(FailureKind::SubscriptOutOfRange, path);
    return heights;
}

}  // namespace crownlab
