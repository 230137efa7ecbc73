#pragma once

#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "support/random_numbers.h"
#include "viewer/surface_grid.h"

namespace crownlab {

/// A number in [0, 1) of 30 random bits.
inline double Share(RandomNumbers& numbers) { return static_cast<double>(numbers.Below(1u << 30)) / (1u << 30); }

/// Numbers in columns and rows that both count from 1, as slow versions of an algorithm want them.
class SlowArray {
public:
    SlowArray() = default;
    SlowArray(int numX, int numY, double value)
        : numX_(numX), values_(static_cast<std::size_t>(numX) * static_cast<std::size_t>(numY), value) {}
    double& operator()(int column, int row) { return values_.at(Offset(column, row)); }
    double operator()(int column, int row) const { return values_.at(Offset(column, row)); }

private:
    std::size_t Offset(int column, int row) const {
        return static_cast<std::size_t>(row - 1) * static_cast<std::size_t>(numX_) +
               static_cast<std::size_t>(column - 1);
    }
    int numX_ = 0;
    std::vector<double> values_;
};

/// A grid whose cell (column, row) has the height `z(column, row)`. x and y have other steps and starts, so
/// that one taken for the other shows.
inline SurfaceGrid MakeGrid(int numX, int numY, const std::function<double(int, int)>& z) {
    SurfaceGrid grid;
    grid.NumX = numX;
    grid.NumY = numY;
    auto places = std::make_shared<std::vector<Place>>();
    for (int row = 1; row <= numY; ++row) {
        for (int column = 1; column <= numX; ++column) {
            places->push_back({.x = 0.25 * column - 1, .y = 0.25 * row + 30});
            grid.Z.push_back(z(column, row));
        }
    }
    grid.Places = std::move(places);
    return grid;
}

struct NamedSurface {
    std::string Name;
    SurfaceGrid Grid;
};

/// Surfaces of every kind in one size.
inline void AddSurfaces(int numX, int numY, RandomNumbers& numbers, std::vector<NamedSurface>& surfaces) {
    const std::string size = std::to_string(numX) + " by " + std::to_string(numY) + " ";
    const auto smooth = [](int i, int j) { return 3 * std::sin(0.31 * i) * std::cos(0.23 * j) + 0.02 * i * j; };
    const auto noise = [&](int, int) { return 20 * Share(numbers) - 3; };
    const auto add = [&](const char* name, const std::function<double(int, int)>& z) {
        surfaces.push_back({size + name, MakeGrid(numX, numY, z)});
    };
    add("smooth", smooth);
    add("noise", noise);
    add("level", [](int, int) { return 2.5; });
    add("steps", [&](int, int) { return static_cast<double>(numbers.Below(3)); });
    add("checkerboard", [](int i, int j) { return static_cast<double>((i + j) % 2); });
    add("rising to +x", [](int i, int) { return 1.5 * i; });
    add("rising to +y", [](int, int j) { return 0.5 * j; });
    add("smooth with empty cells", [&](int i, int j) { return numbers.Below(9) == 0 ? kEmptyCellZ : smooth(i, j); });
    add("noise with many empty cells", [&](int i, int j) { return numbers.Below(2) == 0 ? kEmptyCellZ : noise(i, j); });
    add("ring of empty cells",
        [&](int i, int j) { return i == 1 || j == 1 || i == numX || j == numY ? kEmptyCellZ : smooth(i, j); });
    add("empty", [](int, int) { return kEmptyCellZ; });
    add("tiny", [&](int i, int j) { return 1e-8 * smooth(i, j); });
    add("huge", [&](int i, int j) { return 1e8 * smooth(i, j); });
}

/// One cell, single rows and columns, tall, wide, square.
inline std::vector<NamedSurface> SurfaceFamilies(RandomNumbers& numbers) {
    std::vector<NamedSurface> surfaces;
    for (const auto& [numX, numY] : std::vector<std::pair<int, int>>{
             {1, 1}, {1, 9}, {9, 1}, {2, 2}, {2, 5}, {3, 3}, {4, 3}, {5, 40}, {40, 5}, {23, 23}, {31, 52}}) {
        AddSurfaces(numX, numY, numbers, surfaces);
    }
    return surfaces;
}

/// Equal to the last bit, the sign of zero included.
inline bool SameBits(double a, double b) { return std::bit_cast<std::uint64_t>(a) == std::bit_cast<std::uint64_t>(b); }

/// Fails at the first cell that isn't equal to the last bit.
inline ::testing::AssertionResult SameCells(const SlowArray& expected, const SurfaceGrid& found) {
    for (int row = 1; row <= found.NumY; ++row) {
        for (int column = 1; column <= found.NumX; ++column) {
            if (SameBits(expected(column, row), found.z(column, row))) continue;
            return ::testing::AssertionFailure() << "cell (" << column << ", " << row << ") is " << found.z(column, row)
                                                 << ", expected " << expected(column, row);
        }
    }
    return ::testing::AssertionSuccess();
}

}  // namespace crownlab
