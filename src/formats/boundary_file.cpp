#include "formats/boundary_file.h"

#include "basis/failure.h"
#include "basis/field_reader.h"
#include "basis/paths.h"
#include "basis/result_file.h"

namespace crownlab {
namespace {

std::vector<PlanePoint> ReadPoints(FieldReader& reader, std::uint64_t count) {
    std::vector<PlanePoint> points;
    for (std::uint64_t i = 0; i < count; ++i) {
        const double x = reader.ReadNumber();
        points.push_back({x, reader.ReadNumber()});
    }
    return points;
}

void WriteHead(ResultFile& file, std::size_t count, BoundaryFlag flag) {
    file.Write(InZone(PrintNumberText(static_cast<double>(count))));
    if (flag.As == BoundaryFlag::Form::Text) {
        file.Write(std::to_string(flag.Sense));
    } else {
        file.PrintNumber(flag.Sense);
    }
    file.EndLine();
}

void WritePoint(ResultFile& file, const PlanePoint& point) {
    file.Write(InZone(PrintNumberText(point.x)));
    file.PrintNumber(point.y);
    file.EndLine();
}

}  // namespace

std::vector<PlanePoint> ReadDigitisedPoints(const std::string& path) {
    const FileText text = ReadFileText(path);
    const std::uint64_t lines = CountLines(text.View());
    if (lines == 0) throw Failure(FailureKind::SubscriptOutOfRange, path + " has no point");
    FieldReader reader(text.View(), path);
    return ReadPoints(reader, lines);
}

std::vector<PlanePoint> ReadDigitisedPoints(const std::string& path, int count) {
    const FileText text = ReadFileText(path);
    FieldReader reader(text.View(), path);
    return ReadPoints(reader, static_cast<std::uint64_t>(count));
}

std::vector<std::vector<PlanePoint>> ReadDigitisedAreas(const std::string& path) {
    constexpr std::size_t most = 1000;
    const FileText text = ReadFileText(path);
    FieldReader lines(text.View(), path);
    if (lines.AtEnd()) throw Failure(FailureKind::SubscriptOutOfRange, path + " has no point");
    std::vector<std::vector<PlanePoint>> areas(1);
    while (!lines.AtEnd()) {
        const std::string_view line = lines.ReadLine();
        if (line == "-1") {
            if (areas.size() == most) throw Failure(FailureKind::SubscriptOutOfRange, path + ": number of areas");
            areas.emplace_back();
            continue;
        }
        FieldReader fields(line, path);
        const double x = fields.ReadNumber();
        areas.back().push_back({x, fields.ReadNumber()});
    }
    return areas;
}

void WriteRing(ResultFile& file, std::span<const PlanePoint> points, BoundaryFlag flag) {
    WriteHead(file, points.size() + 1, flag);
    for (const PlanePoint& point : points) WritePoint(file, point);
    WritePoint(file, points.front());
}

void WriteOpenLine(ResultFile& file, std::span<const PlanePoint> points, BoundaryFlag flag) {
    WriteHead(file, points.size(), flag);
    for (const PlanePoint& point : points) WritePoint(file, point);
}

void WriteRingFile(FileTable& files, const std::string& path, std::span<const PlanePoint> points, BoundaryFlag flag) {
    ResultFile file(files, path);
    WriteRing(file, points, flag);
    file.Commit();
}

}  // namespace crownlab
