#include <algorithm>
#include <cmath>
#include <limits>

#include "basis/failure.h"
#include "basis/result_file.h"
#include "basis/rounding.h"
#include "convert/picza_file.h"
#include "formats/point_extents.h"

namespace crownlab {
namespace {

void WriteHead(ResultFile& file, const LatticeSpacing& spacing, double factor, double xMax) {
    constexpr int colours = 16;
    file.Line("VERSION=5");
    file.Line("X");
    file.Record(factor * spacing.X);
    file.Line("Y");
    file.Record(factor * spacing.Y);
    for (const char* line : {"Z", "0", "D", "0", "B", "0", "W"}) file.Line(line);
    file.Record(0, 0, std::floor(factor * xMax), 0);
    for (const char* line :
         {"T", "7030", "10:10:00", "RendObjColor=16776960", "RendBkColor=16777215", "CustomColors"}) {
        file.Line(line);
    }
    for (int i = 0; i < colours; ++i) file.Line("FFFFFF");
    for (const char* line : {"EyeRot=-20.000000,0.000000,0.000000", "Rot=0.000000,0.000000,0.000000", "L", "210"}) {
        file.Line(line);
    }
}

}  // namespace

LatticeSpacing SpacingOf(const Lattice& lattice) {
    constexpr int decimals = 4;
    if (lattice.Cols < 2 || lattice.Rows < 2) throw Failure(FailureKind::SubscriptOutOfRange, "nodes of the grid");
    return {.X = RoundDecimals(std::fabs(lattice.At(1, 1).x - lattice.At(2, 1).x), decimals),
            .Y = RoundDecimals(std::fabs(lattice.At(1, 1).y - lattice.At(1, 2).y), decimals)};
}

void WritePiczaFile(FileTable& files, const std::string& path, const Lattice& lattice, double factor) {
    double xMax = -std::numeric_limits<double>::infinity();
    for (const CloudPoint& node : lattice.Nodes) xMax = std::max(xMax, node.x);
    ResultFile file(files, path);
    WriteHead(file, SpacingOf(lattice), factor, xMax);
    for (int j = 1; j <= lattice.Rows; ++j) {
        file.Line("S");
        for (int i = 1; i <= lattice.Cols; ++i) {
            const CloudPoint& node = lattice.At(i, j);
            const double z = node.z < kBlankHeightFrom ? node.z : 0;
            file.Record(RoundHalfEven(factor * node.x), RoundHalfEven(factor * node.y), RoundHalfEven(factor * z));
        }
    }
    for (const char* line : {"E", "FaceColor", "0,1,FFFFFF", "E"}) file.Line(line);
    file.Commit();
}

}  // namespace crownlab
