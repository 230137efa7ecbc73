#include "bench_surfaces.h"

#include <unistd.h>

#include <cmath>
#include <cstdio>
#include <filesystem>
#include <memory>
#include <vector>

#include "basis/number_text.h"
#include "basis/paths.h"
#include "basis/result_file.h"
#include "basis/rounding.h"

namespace crownlab::bench {
namespace {

constexpr double kStep = 0.01;

/// A few cusps and a basin; smooth, so that patches are few whatever the size.
double HeightAt(double u, double v) { return 3 + std::sin(4 * u) * std::cos(3 * v) + 0.1 * std::sin(3 * (u + v)); }

}  // namespace

ScratchFolder::ScratchFolder()
    : folder_((std::filesystem::temp_directory_path() / ("crownlab-bench-" + std::to_string(getpid()))).string()) {
    MakeFolder(folder_);
    FileTable files;
    WriteWholeFile(files, Path("Crownlab.ini"), folder_ + "\r\nSurferV8\r\n");
}

ScratchFolder::~ScratchFolder() {
    std::error_code error;
    std::filesystem::remove_all(folder_, error);
}

std::string ScratchFolder::Path(const std::string& name) const { return JoinPath(folder_, name); }

SurfaceGrid SmoothSurface(int side) {
    SurfaceGrid grid;
    grid.NumX = grid.NumY = side;
    grid.Z.resize(static_cast<std::size_t>(side) * static_cast<std::size_t>(side), kEmptyCellZ);
    const auto places = std::make_shared<std::vector<Place>>(grid.Z.size());
    for (int j = 1; j <= side; ++j) {
        for (int i = 1; i <= side; ++i) {
            const bool ring = i == 1 || j == 1 || i == side || j == side;
            (*places)[grid.At(i, j)] = {RoundDecimals(i * kStep, 2), RoundDecimals(j * kStep, 2)};
            if (!ring) grid.z(i, j) = HeightAt(static_cast<double>(i) / side, static_cast<double>(j) / side);
        }
    }
    grid.Places = places;
    return grid;
}

std::uint64_t WriteSurfaceText(const SurfaceGrid& grid, const std::string& path, int decimals) {
    FileTable files;
    ResultFile file(files, path);
    for (std::size_t at = 0; at < grid.Size(); ++at) {
        if (grid.Z[at] == kEmptyCellZ) continue;
        file.Record((*grid.Places)[at].x, (*grid.Places)[at].y, RoundDecimals(grid.Z[at], decimals));
    }
    file.Commit();
    return std::filesystem::file_size(path);
}

}  // namespace crownlab::bench
