// Makes the sample surface that comes along with the program: two hills and a hollow on a gentle slope.
//
//   make-demogrid FILE

#include <array>
#include <clocale>
#include <cmath>
#include <cstdio>
#include <filesystem>
#include <string>

#include "basis/failure.h"
#include "basis/result_file.h"
#include "mapengine/grid_file.h"

namespace {

/// A round hill, or a hollow where its height is negative.
struct Hill {
    double X;
    double Y;
    double Radius;
    double Height;
};

constexpr std::array<Hill, 3> kHills{{{.X = 3.4, .Y = 5.2, .Radius = 2.1, .Height = 2.6},
                                      {.X = 8.3, .Y = 2.9, .Radius = 1.5, .Height = 1.8},
                                      {.X = 7.1, .Y = 6.4, .Radius = 1.3, .Height = -1.1}}};

double HeightAt(double x, double y) {
    double z = 1.5 + 0.06 * x - 0.04 * y;
    for (const Hill& hill : kHills) {
        const double distance = std::hypot(x - hill.X, y - hill.Y) / hill.Radius;
        z += hill.Height * std::exp(-distance * distance);
    }
    return z;
}

crownlab::Grid MakeTerrain() {
    crownlab::Grid grid(crownlab::GridGeometry{.Columns = 97, .Rows = 65, .XMin = 0, .XMax = 12, .YMin = 0, .YMax = 8});
    for (int row = 0; row < grid.Shape.Rows; ++row) {
        for (int column = 0; column < grid.Shape.Columns; ++column) {
            grid.At(column, row) = HeightAt(grid.Shape.X(column), grid.Shape.Y(row));
        }
    }
    return grid;
}

}  // namespace

int main(int count, char** arguments) {
    std::setlocale(LC_ALL, "C");
    if (count != 2) {
        std::fputs("usage: make-demogrid FILE\n", stderr);
        return 2;
    }
    try {
        const std::filesystem::path path = arguments[1];
        if (path.has_parent_path()) std::filesystem::create_directories(path.parent_path());
        crownlab::FileTable files;
        crownlab::WriteGrid(files, path.string(), MakeTerrain(), crownlab::GridFormat::Binary32);
    } catch (const std::exception& error) {
        std::fprintf(stderr, "%s\n", error.what());
        return 1;
    }
    return 0;
}
