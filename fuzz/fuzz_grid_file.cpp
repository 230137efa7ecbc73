// A grid in any of its three formats: what is read is a whole grid, and each format gives it back.

#include <cmath>

#include "basis/failure.h"
#include "basis/result_file.h"
#include "fuzz_folder.h"
#include "mapengine/grid_file.h"

namespace {
using namespace crownlab;

void Require(bool holds) {
    if (!holds) std::abort();
}

void RequireWhole(const Grid& grid) {
    Require(grid.Shape.Columns >= 2 && grid.Shape.Rows >= 2 && grid.Z.size() == grid.Shape.Nodes());
    Require(grid.Shape.XMin < grid.Shape.XMax && grid.Shape.YMin < grid.Shape.YMax);
    for (const double z : grid.Z) Require(std::isfinite(z) && z <= kBlankHeight);
}

/// Writes the grid and reads it again. False where the format can't hold it, or its limits fall together in it.
bool RoundTrip(FileTable& files, const Grid& grid, GridFormat format, Grid& back) {
    try {
        WriteGrid(files, "out.grd", grid, format);
        back = ReadGrid("out.grd");
    } catch (const Failure& failure) {
        Require(failure.Kind() == FailureKind::AutomationFailed);
        return false;
    }
    return true;
}

void Check(const Grid& grid) {
    RequireWhole(grid);
    FileTable files;
    Grid back;
    Require(RoundTrip(files, grid, GridFormat::AsciiGrid, back) && back.Shape == grid.Shape && back.Z == grid.Z);
    if (RoundTrip(files, grid, GridFormat::Binary64, back)) Require(back.Z == grid.Z);
    if (RoundTrip(files, grid, GridFormat::Binary32, back)) {
        Require(back.Shape == grid.Shape);
        for (std::size_t i = 0; i < grid.Z.size(); ++i) Require(IsBlank(back.Z[i]) == IsBlank(grid.Z[i]));
    }
    WriteGrid(files, "out.txt", grid, GridFormat::NodeText);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static_cast<void>(FreshFolder());
    PutInput("in.grd", data, size);
    try {
        Check(ReadGrid("in.grd"));
    } catch (const Failure& failure) {
        Require(failure.Kind() == FailureKind::AutomationFailed || failure.Kind() == FailureKind::OutOfMemory);
    }
    return 0;
}
