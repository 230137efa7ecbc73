#include "convert/grid_dxf.h"

#include <algorithm>
#include <array>

#include "basis/result_file.h"
#include "basis/rounding.h"
#include "formats/point_extents.h"

namespace crownlab {
namespace {

/// Rounds the nodes as they are written, and pulls blank ones down.
void Prepare(Lattice& lattice) {
    constexpr double start = 100'000;
    constexpr int decimals = 3;
    double low = start;
    for (const CloudPoint& node : lattice.Nodes) low = std::min(low, node.z);
    for (CloudPoint& node : lattice.Nodes) {
        const double z = node.z < kBlankHeightFrom ? node.z : low;
        node = {RoundDecimals(node.x, decimals), RoundDecimals(node.y, decimals), RoundDecimals(z, decimals)};
    }
}

/// Group codes of the x, y and z of each corner.
constexpr std::array<std::array<const char*, 3>, 4> kCodes{
    {{"10", "20", "30"}, {"11", "21", "31"}, {"12", "22", "32"}, {"13", "23", "33"}}};

void WriteNumberLine(ResultFile& file, const char* code, double number) {
    file.Line(code);
    file.PrintNumber(number);
    file.EndLine();
}

void WriteFace(ResultFile& file, const CloudPoint& a, const CloudPoint& b, const CloudPoint& c) {
    file.Line("3DFACE");
    file.Line("8");
    file.Line("OBJECT");
    const std::array<const CloudPoint*, 4> corners{&a, &b, &c, &c};
    for (std::size_t k = 0; k < corners.size(); ++k) {
        WriteNumberLine(file, kCodes[k][0], corners[k]->x);
        WriteNumberLine(file, kCodes[k][1], corners[k]->y);
        WriteNumberLine(file, kCodes[k][2], corners[k]->z);
    }
    file.Line("0");
}

}  // namespace

void WriteGridDxf(FileTable& files, const std::string& path, const std::string& base, Lattice lattice) {
    Prepare(lattice);
    ResultFile file(files, path);
    file.Line("999");
    file.Line("DXF file " + base + "; created by Crownlab; QXT");
    for (const char* line : {"0", "SECTION", "2", "ENTITIES", "0"}) file.Line(line);
    for (int j = 1; j < lattice.Rows; ++j) {
        for (int i = 1; i < lattice.Cols; ++i) {
            WriteFace(file, lattice.At(i, j + 1), lattice.At(i, j), lattice.At(i + 1, j + 1));
            WriteFace(file, lattice.At(i, j), lattice.At(i + 1, j), lattice.At(i + 1, j + 1));
        }
    }
    for (const char* line : {"ENDSEC", "0", "EOF"}) file.Line(line);
    file.Commit();
}

}  // namespace crownlab
