#include "pointcloud/wrl_polygons.h"

#include <cmath>
#include <optional>

#include "basis/failure.h"
#include "basis/field_reader.h"
#include "basis/number_text.h"
#include "basis/paths.h"
#include "basis/rounding.h"

namespace crownlab {
namespace {

constexpr std::size_t kMostLines = 1000;
constexpr std::size_t kMostEntries = 1000000;

void RequireRoom(std::size_t count, std::size_t most, const char* what) {
    if (count >= most)
        throw Failure(FailureKind::SubscriptOutOfRange, "more than " + std::to_string(most) + " " + what);
}

/// `line` without blanks and tabs before its text.
std::string_view WithoutIndent(std::string_view line) {
    const std::size_t first = line.find_first_not_of(" \t");
    return first == std::string_view::npos ? std::string_view() : line.substr(first);
}

/// Lines up to the end of the text, or to the first one that starts with `last` where that isn't empty.
std::vector<std::string> ReadLines(FieldReader& reader, std::string_view last, const char* what) {
    std::vector<std::string> lines;
    while (!reader.AtEnd()) {
        const std::string_view line = reader.ReadLine();
        RequireRoom(lines.size(), kMostLines, what);
        lines.emplace_back(line);
        if (!last.empty() && WithoutIndent(line).substr(0, last.size()) == last) break;
    }
    return lines;
}

/// The next token that isn't empty, at most one empty one skipped. Nothing at the end of a list, which is a token
/// "]" or the end of the text.
std::optional<std::string_view> NextEntry(FieldReader& reader) {
    std::string_view token;
    for (int tries = 0; tries < 2 && token.empty(); ++tries) {
        if (reader.NothingLeft()) return std::nullopt;
        token = reader.ReadToken();
    }
    if (token == "]") return std::nullopt;
    return token;
}

double NumberIn(std::string_view token, const std::string& name) {
    double value = 0;
    const char* const last = token.data() + token.size();
    const char* const end = ScanNumber(token.data(), last, value);
    if (token.empty() || end != last) {
        constexpr std::size_t shown = 30;
        throw Failure(FailureKind::TypeMismatch,
                      name + ": \"" + std::string(token.substr(0, shown)) + "\" is not a number");
    }
    return Finite(value, name);
}

PointCloud ReadPoints(FieldReader& reader, const std::string& name) {
    PointCloud points;
    while (const auto token = NextEntry(reader)) {
        RequireRoom(points.size(), kMostEntries, "points");
        const double x = NumberIn(*token, name);
        const double y = reader.ReadNumber();
        const double z = reader.ReadNumber();
        points.push_back({x, y, z});
    }
    return points;
}

bool IsEndOfFace(std::string_view token) {
    double value = 0;
    const char* const last = token.data() + token.size();
    return !token.empty() && ScanNumber(token.data(), last, value) == last && value == -1;
}

/// Skips the -1 behind a triangle, or the fourth corner and whatever follows it.
void SkipToNextFace(FieldReader& reader) {
    if (reader.NothingLeft() || IsEndOfFace(reader.ReadToken())) return;
    if (!reader.NothingLeft()) reader.ReadToken();
}

std::vector<PolyFace> ReadFaces(FieldReader& reader, const std::string& name) {
    std::vector<PolyFace> faces;
    while (const auto token = NextEntry(reader)) {
        RequireRoom(faces.size(), kMostEntries, "faces");
        const std::int32_t a = ToInt32(NumberIn(*token, name), name);
        const std::int32_t b = ToInt32(reader.ReadNumber(), name);
        const std::int32_t c = ToInt32(reader.ReadNumber(), name);
        faces.push_back({a, b, c});
        SkipToNextFace(reader);
    }
    return faces;
}

}  // namespace

WrlPolygons ParseWrlPolygons(std::string_view text, const std::string& name) {
    FieldReader reader(text, name);
    WrlPolygons polygons;
    polygons.HeadLines = ReadLines(reader, "point", "lines before the points");
    polygons.Points = ReadPoints(reader, name);
    polygons.MidLines = ReadLines(reader, "coordIndex", "lines between points and faces");
    polygons.Faces = ReadFaces(reader, name);
    polygons.TailLines = ReadLines(reader, {}, "lines behind the faces");
    if (polygons.Points.empty()) throw Failure(FailureKind::SubscriptOutOfRange, name + " has no points");
    if (polygons.Faces.empty()) throw Failure(FailureKind::SubscriptOutOfRange, name + " has no faces");
    return polygons;
}

WrlPolygons ReadWrlPolygons(const std::string& path) {
    const FileText file = ReadFileText(path);
    return ParseWrlPolygons(file.View(), path);
}

}  // namespace crownlab
