#include "pointcloud/box_grid.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numeric>
#include <string>

#include "basis/failure.h"
#include "basis/memory_limit.h"
#include "basis/rounding.h"

namespace crownlab {
namespace {

/// Floor of the quotient of a coordinate and the bin size. Up to this size of quotient a coordinate and the corners
/// of its bin differ by rounding of less than a bin.
double WholeBins(double coordinate, double boxSize, const char* what) {
    constexpr double limit = 1125899906842624.0;  // 2^50
    const double whole = std::floor(Divide(coordinate, boxSize, "BoxSize"));
    if (std::fabs(whole) > limit) throw Failure(FailureKind::Overflow, what);
    return whole;
}

BoxAxis LayAxis(double low, double high, double boxSize, const char* what) {
    const double origin = boxSize * WholeBins(low, boxSize, what);
    const double limit = boxSize * (WholeBins(high, boxSize, what) + 1);
    const double count = RoundHalfEven(Divide(std::fabs(origin - limit), boxSize, what));
    if (count < 1) throw Failure(FailureKind::SubscriptOutOfRange, what);
    return {origin, static_cast<std::int64_t>(count)};
}

double NumberAlong(double coordinate, const BoxAxis& axis, double boxSize) {
    return std::floor((coordinate - axis.Origin) / boxSize) + 1;
}

Box BoxOf(const CloudPoint& p, const BoxGrid& grid) {
    constexpr double mostAlongZ = 32767;
    const double x = NumberAlong(p.x, grid.X, grid.BoxSize);
    const double y = NumberAlong(p.y, grid.Y, grid.BoxSize);
    const double z = NumberAlong(p.z, grid.Z, grid.BoxSize);
    if (z > mostAlongZ) throw Failure(FailureKind::Overflow, "bz");
    const auto isOn = [](double number, const BoxAxis& axis) {
        return number >= 1 && number <= static_cast<double>(axis.Count);
    };
    if (!isOn(x, grid.X) || !isOn(y, grid.Y) || !isOn(z, grid.Z)) {
        throw Failure(FailureKind::SubscriptOutOfRange, "bin of a point");
    }
    return {static_cast<std::int64_t>(x), static_cast<std::int64_t>(y), static_cast<std::int64_t>(z)};
}

constexpr int kDigitBits = 16;
constexpr std::size_t kDigits = std::size_t{1} << kDigitBits;

/// One stable pass of a radix sort by 16 bits of a bin number.
void SortByDigit(std::vector<std::uint32_t>& order, std::vector<std::uint32_t>& sorted, const std::vector<Box>& boxes,
                 std::int64_t Box::*number, int shift) {
    const auto digit = [&](std::uint32_t i) {
        return static_cast<std::size_t>(boxes[i].*number >> shift) & (kDigits - 1);
    };
    std::vector<std::uint32_t> start(kDigits + 1, 0);
    for (const std::uint32_t i : order) ++start[digit(i) + 1];
    std::partial_sum(start.begin(), start.end(), start.begin());
    for (const std::uint32_t i : order) sorted[start[digit(i)]++] = i;
    order.swap(sorted);
}

void SortByNumber(std::vector<std::uint32_t>& order, std::vector<std::uint32_t>& sorted, const std::vector<Box>& boxes,
                  std::int64_t Box::*number, std::int64_t largest) {
    for (int shift = 0; shift < 63 && (largest >> shift) > 0; shift += kDigitBits) {
        SortByDigit(order, sorted, boxes, number, shift);
    }
}

void RequireCapacity(const std::vector<std::uint32_t>& order, const std::vector<Box>& boxes) {
    constexpr std::size_t start = 100;
    constexpr std::size_t step = 5;
    constexpr std::size_t most = start + (32767 - start) / step * step;
    for (std::size_t first = 0; first + most < order.size(); ++first) {
        if (boxes[order[first]] == boxes[order[first + most]]) throw Failure(FailureKind::Overflow, "BoxCapacity");
    }
}

}  // namespace

BoxGrid LayBoxes(const CloudExtents& a, const CloudExtents& b, double boxSize) {
    BoxGrid grid{.BoxSize = boxSize, .X = {}, .Y = {}, .Z = {}};
    grid.X = LayAxis(std::min(a.XMin, b.XMin), std::max(a.XMax, b.XMax), boxSize, "NumBoxX");
    grid.Y = LayAxis(std::min(a.YMin, b.YMin), std::max(a.YMax, b.YMax), boxSize, "NumBoxY");
    grid.Z = LayAxis(std::min(a.ZMin, b.ZMin), std::max(a.ZMax, b.ZMax), boxSize, "NumBoxZ");
    return grid;
}

std::vector<Box> BoxesOf(const PointCloud& cloud, const BoxGrid& grid) {
    RequireMemory(static_cast<std::uint64_t>(cloud.size()) * sizeof(Box), "bins of the points");
    std::vector<Box> boxes;
    boxes.reserve(cloud.size());
    HintLargePages(boxes.data(), cloud.size() * sizeof(Box));
    for (const CloudPoint& p : cloud) boxes.push_back(BoxOf(p, grid));
    return boxes;
}

std::vector<std::uint32_t> OrderByBox(const std::vector<Box>& boxes, const BoxGrid& grid) {
    RequireMemory(static_cast<std::uint64_t>(boxes.size()) * 2 * sizeof(std::uint32_t), "order of the points");
    std::vector<std::uint32_t> order(boxes.size());
    std::vector<std::uint32_t> sorted(boxes.size());
    std::iota(order.begin(), order.end(), 0u);
    SortByNumber(order, sorted, boxes, &Box::X, grid.X.Count);
    SortByNumber(order, sorted, boxes, &Box::Y, grid.Y.Count);
    SortByNumber(order, sorted, boxes, &Box::Z, grid.Z.Count);
    RequireCapacity(order, boxes);
    return order;
}

}  // namespace crownlab
