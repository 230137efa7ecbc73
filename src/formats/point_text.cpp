#include "formats/point_text.h"

#include <array>
#include <cstdint>
#include <limits>

#include "basis/failure.h"
#include "basis/field_reader.h"
#include "basis/memory_limit.h"
#include "basis/number_text.h"
#include "basis/paths.h"
#include "basis/result_file.h"

namespace crownlab {
namespace {

/// Number of points that a file's lines stand for.
std::size_t CountPoints(std::string_view text, const std::string& path) {
    const std::uint64_t lines = CountLines(text);
    if (lines == 0) throw Failure(FailureKind::SubscriptOutOfRange, path + " has no lines");
    if (lines > static_cast<std::uint64_t>(std::numeric_limits<std::int32_t>::max())) {
        throw Failure(FailureKind::Overflow, "NumCloudPoints");
    }
    return static_cast<std::size_t>(lines);
}

template <typename Element>
std::vector<Element> RoomFor(std::size_t count, const std::string& path) {
    RequireMemory(static_cast<std::uint64_t>(count) * sizeof(Element), path);
    std::vector<Element> elements;
    elements.reserve(count);
    HintLargePages(elements.data(), count * sizeof(Element));
    return elements;
}

CloudPoint ReadPoint(FieldReader& reader) {
    const double x = reader.ReadNumber();
    const double y = reader.ReadNumber();
    const double z = reader.ReadNumber();
    return {x, y, z};
}

}  // namespace

PointCloud ReadPointText(const std::string& path) {
    const FileText file = ReadFileText(path);
    const std::size_t count = CountPoints(file.View(), path);
    PointCloud points = RoomFor<CloudPoint>(count, path);
    FieldReader reader(file.View(), path);
    // Along a row or a column of a lattice one of the coordinates stays.
    FieldReader::LastField lastX;
    FieldReader::LastField lastY;
    for (std::size_t i = 0; i < count; ++i) {
        const double x = reader.ReadNumber(lastX);
        const double y = reader.ReadNumber(lastY);
        points.push_back({x, y, reader.ReadNumber()});
    }
    return points;
}

ValuedCloud ReadValuedPointText(const std::string& path) {
    const FileText file = ReadFileText(path);
    const std::size_t count = CountPoints(file.View(), path);
    ValuedCloud cloud{RoomFor<CloudPoint>(count, path), RoomFor<double>(count, path)};
    FieldReader reader(file.View(), path);
    for (std::size_t i = 0; i < count; ++i) {
        cloud.Points.push_back(ReadPoint(reader));
        cloud.Values.push_back(reader.ReadNumber());
    }
    return cloud;
}

void WritePointLine(ResultFile& file, const CloudPoint& point) { WriteNumberLine(file, {point.x, point.y, point.z}); }

void WriteNumberLine(ResultFile& file, std::initializer_list<double> numbers) {
    std::array<char, std::size_t{12} * (kNumberTextMax + 1)> line;
    if (numbers.size() > 11) throw Failure(FailureKind::InvalidCall, "a line of too many numbers");
    char* end = line.data();
    for (const double number : numbers) {
        if (end != line.data()) *end++ = ',';
        end = AppendGeneralText(end, number);
    }
    *end++ = '\r';
    *end++ = '\n';
    file.Write({line.data(), static_cast<std::size_t>(end - line.data())});
}

void WritePointText(FileTable& files, const std::string& path, const PointCloud& points) {
    ResultFile file(files, path);
    for (const CloudPoint& point : points) WritePointLine(file, point);
    file.Commit();
}

}  // namespace crownlab
