#include "pointcloud/coloured_wrl.h"

#include <array>
#include <initializer_list>

#include "basis/failure.h"
#include "basis/number_text.h"
#include "basis/result_file.h"

namespace crownlab {
namespace {

using Corners = std::array<std::int64_t, 3>;

bool StartsWith(std::string_view line, std::string_view start) {
    const std::size_t first = line.find_first_not_of(" \t");
    return first != std::string_view::npos && line.substr(first, start.size()) == start;
}

/// The number of the point at a corner, 0 for none.
std::int32_t PointAt(const VertexMatch& match, std::int32_t corner) {
    if (corner < 0 || static_cast<std::size_t>(corner) >= match.VertexPoint.size()) {
        throw Failure(FailureKind::SubscriptOutOfRange, "corner " + std::to_string(corner) + " of a face");
    }
    return match.VertexPoint[static_cast<std::size_t>(corner)];
}

/// Runs `write` on each face with a point at every corner, and on these points.
template <typename Write>
void ForFacesWithPoints(const ColouredModel& model, Write write) {
    for (const PolyFace& face : model.Model.Faces) {
        const Corners points{PointAt(model.Match, face.A), PointAt(model.Match, face.B), PointAt(model.Match, face.C)};
        if (points[0] != 0 && points[1] != 0 && points[2] != 0) write(face, points);
    }
}

void WriteNumbers(ResultFile& file, std::initializer_list<double> numbers, std::string_view between,
                  std::string_view end) {
    constexpr std::size_t longest = std::size_t{4} * (kNumberTextMax + 1);
    std::array<char, longest> line;
    char* at = line.data();
    for (const double number : numbers) {
        if (at != line.data()) *at++ = between[0];
        at = AppendGeneralText(at, number);
    }
    file.Write({line.data(), static_cast<std::size_t>(at - line.data())});
    file.Write(end);
}

/// The three numbers of a face and the -1 that ends it.
void WriteFace(ResultFile& file, const Corners& corners) {
    WriteNumbers(
        file, {static_cast<double>(corners[0]), static_cast<double>(corners[1]), static_cast<double>(corners[2]), -1},
        ",", "\r\n");
}

void WriteLines(ResultFile& file, const std::vector<std::string>& lines, bool withColours) {
    for (const std::string& line : lines) {
        if (withColours || !StartsWith(line, "color")) file.Line(line);
    }
}

void WritePoints(ResultFile& file, const PointCloud& points) {
    for (const CloudPoint& p : points) WriteNumbers(file, {p.x, p.y, p.z}, " ", ",\r\n");
}

void WriteFaces(ResultFile& file, const ColouredModel& model) {
    ForFacesWithPoints(model, [&](const PolyFace& face, const Corners& points) {
        if (model.PointsAsVertices) {
            WriteFace(file, {points[0] - 1, points[1] - 1, points[2] - 1});
        } else {
            WriteFace(file, {face.A, face.B, face.C});
        }
    });
}

void WriteColours(ResultFile& file, const ColouredModel& model) {
    file.Line("        color Color { color [ ");
    for (const ScaleColour& c : model.Scale->Table) WriteNumbers(file, {c.Red, c.Green, c.Blue}, " ", ",\r\n");
    file.Line("          ]");
    file.Line("        }");
    file.Line("        colorPerVertex TRUE");
    file.Line("        colorIndex [ ");
    const auto colourOf = [&](std::int64_t point) {
        return static_cast<std::int64_t>(model.Scale->Numbers[static_cast<std::size_t>(point - 1)]) - 1;
    };
    ForFacesWithPoints(model, [&](const PolyFace&, const Corners& points) {
        WriteFace(file, {colourOf(points[0]), colourOf(points[1]), colourOf(points[2])});
    });
    file.Line("        ]");
}

}  // namespace

void WriteColouredWrl(FileTable& files, const std::string& path, const ColouredModel& model) {
    const bool keepColours = model.Scale == nullptr;
    ResultFile file(files, path);
    WriteLines(file, model.Model.HeadLines, keepColours);
    WritePoints(file, model.PointsAsVertices ? model.Points : model.Model.Points);
    file.Line("          ]");
    WriteLines(file, model.Model.MidLines, keepColours);
    WriteFaces(file, model);
    file.Line("        ]");
    if (!keepColours) WriteColours(file, model);
    for (const std::string& line : model.Model.TailLines) {
        file.Line(StartsWith(line, "solid") ? "        solid FALSE" : line);
    }
    file.Commit();
}

}  // namespace crownlab
