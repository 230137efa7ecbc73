#include "convert/grid_wrl.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>

#include "basis/failure.h"
#include "basis/number_text.h"
#include "basis/result_file.h"
#include "basis/rounding.h"
#include "convert/surface_triangles.h"
#include "formats/vrml_templates.h"

namespace crownlab {
namespace {

constexpr double kBlankFrom = 1e38;
constexpr int kPlaceDecimals = 3;
constexpr int kNodeDecimals = 4;
/// Viewpoints stand this far above and below the surface, in the data's own unit.
constexpr double kViewDistance = 8;

double ScaleOf(DataUnit unit, double spacing) {
    constexpr double fromMillimetres = 10;
    constexpr double fromMicrometres = 0.01;
    constexpr double widestInMillimetres = 1;
    const bool millimetres =
        unit == DataUnit::Millimetres || (unit == DataUnit::Auto && spacing <= widestInMillimetres);
    return millimetres ? fromMillimetres : fromMicrometres;
}

std::string Decimals(double value, int decimals) { return RecordText(RoundDecimals(value, decimals)); }

vrml::Vector Position(double a, double b, double c) {
    return {Decimals(a, kPlaceDecimals), Decimals(b, kPlaceDecimals), Decimals(c, kPlaceDecimals)};
}

void WriteViewpoints(ResultFile& file, const WrlFrame& frame) {
    const double scale = frame.Scale;
    const double x = frame.XExtent;
    const double y = frame.YExtent;
    const double most = x > y ? x : y;
    const double middle = scale * frame.ZMin + frame.ZExtent / 2;
    const double away = kViewDistance * scale;
    const auto view = [&file](const char* name, const vrml::Vector& position, const char* orientation) {
        file.Line();
        vrml::WriteViewpoint(file, name, position, orientation);
    };
    view("Start", Position(x / 2 + away, scale * (frame.ZMax + kViewDistance), y / 2 + away), "-0.7 0.65 0.3 1.2");
    view("Occlusal", Position(x / 2, scale * frame.ZMax + away, y / 2), "1 0 0 -1.570796");
    view("Front", Position(x / 2, middle, y + most), "0 0 1 0");
    view("Right", Position(x + most, middle, y / 2), "0 1 0 1.570796");
    view("Back", Position(x / 2, middle, -most), "0 1 0 3.141592");
    view("Left", Position(-most, middle, y / 2), "0 1 0 -1.570796");
    view("Bottom", Position(x / 2, scale * frame.ZMin - away, y / 2), "1 0 0 1.570796");
}

void WriteHead(ResultFile& file, const WrlFrame& frame, const WrlOptions& options) {
    vrml::WriteHeader(file, options.Subject);
    vrml::WriteNavigation(file, "EXAMINE", "ANY");
    if (!options.MorphoBrowser) {
        file.Line();
        vrml::WriteBackground(file);
        file.Line();
        vrml::WriteDirectionalLight(file, "1 0 0", "0.5");
    }
    WriteViewpoints(file, frame);
    file.Line();
    vrml::WriteTransformStart(file, GeneralText(frame.Scale));
    vrml::WriteShapeStart(file);
}

/// A height as a print item.
void WriteHeight(ResultFile& file, double z) {
    std::array<char, kNumberTextMax + 2> item;
    item[0] = ' ';
    char* const number = item.data() + 1;
    char* end = AppendRoundedText(number, z, kNodeDecimals);
    *end++ = ' ';
    const char* const first = *number == '-' ? number : item.data();
    file.Write({first, static_cast<std::size_t>(end - first)});
}

/// Heights with a skirt of one node all round, which closes the model at its sides.
void WriteHeights(ResultFile& file, const Lattice& lattice, const WrlFrame& frame) {
    vrml::WriteElevationGridStart(file, lattice.Cols + 2, lattice.Rows + 2, Decimals(frame.XSpacing, kNodeDecimals),
                                  Decimals(frame.YSpacing, kNodeDecimals));
    const std::string skirt = PrintNumberText(RoundDecimals(frame.ZMin, kNodeDecimals));
    for (int j = 0; j <= lattice.Rows + 1; ++j) {
        const bool outside = j == 0 || j == lattice.Rows + 1;
        file.Write(skirt);
        for (int i = 1; i <= lattice.Cols; ++i) {
            if (outside) {
                file.Write(skirt);
            } else {
                WriteHeight(file, lattice.At(i, j).z);
            }
        }
        file.Write(skirt);
        file.EndLine();
    }
    vrml::WriteElevationGridEnd(file);
}

void WritePoint(ResultFile& file, const CloudPoint& node) {
    constexpr std::string_view indent = "            ";
    char line[3 * kNumberTextMax + 16];
    char* end = std::copy(indent.begin(), indent.end(), line);
    end = AppendRoundedText(end, node.x, kNodeDecimals);
    *end++ = ' ';
    end = AppendRoundedText(end, node.z, kNodeDecimals);
    *end++ = ' ';
    end = AppendRoundedText(end, node.y, kNodeDecimals);
    *end++ = ',';
    file.Line({line, static_cast<std::size_t>(end - line)});
}

void WriteTriangle(ResultFile& file, int a, int b, int c) {
    constexpr std::string_view indent = "          ";
    constexpr std::string_view behind = ", -1,";
    char line[3 * kNumberTextMax + 32];
    char* end = std::copy(indent.begin(), indent.end(), line);
    end = AppendRecordText(end, static_cast<long long>(a));
    *end++ = ',';
    *end++ = ' ';
    end = AppendRecordText(end, static_cast<long long>(b));
    *end++ = ',';
    *end++ = ' ';
    end = AppendRecordText(end, static_cast<long long>(c));
    end = std::copy(behind.begin(), behind.end(), end);
    file.Line({line, static_cast<std::size_t>(end - line)});
}

void WriteFaces(ResultFile& file, const Lattice& lattice, const std::vector<std::int16_t>& vertex) {
    const bool surface = !vertex.empty();
    file.Line("      geometry IndexedFaceSet {");
    file.Line("        creaseAngle 30");
    file.Line("        solid FALSE");
    file.Line("        coord Coordinate {");
    file.Line("          point [");
    for (std::size_t k = 0; k < lattice.Nodes.size(); ++k) {
        if (!surface || vertex[k] >= 0) WritePoint(file, lattice.Nodes[k]);
    }
    file.Line("          ]");
    file.Line("        }");
    file.Line("        colorIndex [ ]");
    file.Line("        coordIndex [");
    const TriangleSink write = [&file](int a, int b, int c) { WriteTriangle(file, a, b, c); };
    if (surface) {
        SurfaceTriangles(lattice.Cols, lattice.Rows, vertex, write);
    } else {
        CellTriangles(lattice.Cols, lattice.Rows, write);
    }
    file.Line("        ]");
    file.Line("      }");
    file.Line("    }");
}

}  // namespace

std::vector<std::int16_t> NumberVertices(const Lattice& lattice) {
    std::vector<std::int16_t> numbers;
    numbers.reserve(lattice.Nodes.size());
    int next = 0;
    for (const CloudPoint& node : lattice.Nodes) {
        const bool real = node.z < kBlankFrom;
        // The counter stands one ahead of the number given, and has 16 bits as well.
        numbers.push_back(real ? static_cast<std::int16_t>(next) : std::int16_t{-1});
        if (real && ++next > std::numeric_limits<std::int16_t>::max()) {
            throw Failure(FailureKind::Overflow, "number of vertices");
        }
    }
    return numbers;
}

WrlFrame FrameOf(const Lattice& lattice, DataUnit unit) {
    if (lattice.Cols < 2 || lattice.Rows < 2) throw Failure(FailureKind::SubscriptOutOfRange, "nodes of the grid");
    WrlFrame frame;
    for (const CloudPoint& node : lattice.Nodes) {
        frame.ZMin = std::min(frame.ZMin, node.z);
        if (node.z < kBlankFrom) frame.ZMax = std::max(frame.ZMax, node.z);
    }
    frame.XSpacing = std::fabs(lattice.At(2, 1).x - lattice.At(1, 1).x);
    frame.YSpacing = std::fabs(lattice.At(1, 2).y - lattice.At(1, 1).y);
    frame.Scale = ScaleOf(unit, frame.XSpacing);
    frame.XExtent = RoundDecimals((lattice.Cols - 1) * frame.XSpacing * frame.Scale, kPlaceDecimals);
    frame.YExtent = RoundDecimals((lattice.Rows - 1) * frame.YSpacing * frame.Scale, kPlaceDecimals);
    frame.ZExtent = RoundDecimals((frame.ZMax - frame.ZMin) * frame.Scale, kPlaceDecimals);
    return frame;
}

void WriteGridWrl(FileTable& files, const std::string& path, Lattice lattice, const WrlOptions& options) {
    const WrlFrame frame = FrameOf(lattice, options.Unit);
    std::vector<std::int16_t> vertex;
    if (options.Product == WrlProduct::SurfacePolygons) {
        vertex = NumberVertices(lattice);
    } else {
        for (CloudPoint& node : lattice.Nodes) node.z = node.z < kBlankFrom ? node.z : frame.ZMin;
    }
    ResultFile file(files, path);
    WriteHead(file, frame, options);
    if (options.Product == WrlProduct::ElevationGrid) {
        WriteHeights(file, lattice, frame);
    } else {
        WriteFaces(file, lattice, vertex);
    }
    vrml::WriteTransformEnd(file);
    file.Commit();
}

}  // namespace crownlab
