#include <algorithm>
#include <cmath>
#include <limits>

#include "basis/failure.h"
#include "basis/field_reader.h"
#include "basis/memory_limit.h"
#include "basis/number_text.h"
#include "basis/paths.h"
#include "basis/result_file.h"
#include "basis/rounding.h"
#include "convert/picza_file.h"

namespace crownlab {
namespace {

/// Reads lines until one is `key`; InputPastEnd without it.
void SeekLine(FieldReader& reader, std::string_view key) {
    while (reader.ReadLine() != key) {
    }
}

PiczaHead ReadHead(FieldReader& reader) {
    PiczaHead head;
    reader.ReadLine();
    reader.ReadLine();
    head.XStep = reader.ReadNumber();
    reader.ReadLine();
    head.YStep = reader.ReadNumber();
    reader.ReadLine();
    head.Z = reader.ReadNumber();
    SeekLine(reader, "W");
    head.X0 = reader.ReadNumber();
    head.Y0 = reader.ReadNumber();
    head.X1 = reader.ReadNumber();
    head.Y1 = reader.ReadNumber();
    return head;
}

/// A first field that starts with A carries two characters before its number.
double NumberOfFirstField(std::string_view field, const std::string& path) {
    constexpr std::size_t prefix = 2;
    if (field.starts_with('A')) field.remove_prefix(std::min(prefix, field.size()));
    double value = 0;
    const char* const end = field.data() + field.size();
    if (field.empty() || ScanNumber(field.data(), end, value) != end) {
        throw Failure(FailureKind::TypeMismatch, path + ": \"" + std::string(field) + "\" is not a number");
    }
    return Finite(value, path);
}

/// Calls `newLine` at each S and `take` for each point, to the E.
template <typename NewLine, typename Take>
void ReadScanLines(FieldReader& reader, const std::string& path, const NewLine& newLine, const Take& take) {
    for (std::string_view field = reader.ReadToken(); field != "E"; field = reader.ReadToken()) {
        if (field == "S") {
            newLine();
            continue;
        }
        const double x = NumberOfFirstField(field, path);
        const double y = reader.ReadNumber();
        take(CloudPoint{x, y, reader.ReadNumber()});
    }
}

/// One count of a grid's nodes along an axis, and where its far edge lies.
double TakeCount(double low, double high, double step, double unit, int& count) {
    constexpr double hundred = 100;
    const double nodes = 1 + Divide(high - low, step, "step of the scan");
    const double hundreds = nodes / hundred;
    if (hundreds == std::floor(hundreds)) return unit * high;
    count = ToInt32(std::floor(nodes) + 1, "nodes of the grid");
    return unit * low + unit * step * (count - 1);
}

/// Places of the window along an axis.
int CountPlaces(double low, double high, double step) {
    const double steps = Divide(high - low, step, "step of the scan");
    return ToInt32(steps == std::floor(steps) ? steps + 1 : std::floor(steps) + 2, "places of the scan");
}

[[noreturn]] void FailAtPlace(const std::string& path) {
    throw Failure(FailureKind::SubscriptOutOfRange, path + ": more points than its window has places for");
}

/// A window has a place at least, and a record for each place, with one row and one column over, has to fit the memory.
void RequirePlaces(const PiczaScan& scan, const std::string& path) {
    if (scan.Cols < 1 || scan.Rows < 1) throw Failure(FailureKind::SubscriptOutOfRange, path + ": its window is empty");
    const std::uint64_t records =
        (static_cast<std::uint64_t>(scan.Cols) + 1) * (static_cast<std::uint64_t>(scan.Rows) + 1);
    constexpr std::uint64_t most = std::numeric_limits<std::uint64_t>::max() / sizeof(CloudPoint);
    RequireMemory(std::min(records, most) * sizeof(CloudPoint), path);
}

}  // namespace

PiczaHead WritePiczaPoints(FileTable& files, const std::string& input, const std::string& output, double unit) {
    const FileText text = ReadFileText(input);
    FieldReader reader(text.View(), input);
    const PiczaHead head = ReadHead(reader);
    SeekLine(reader, "S");
    ResultFile file(files, output);
    ReadScanLines(
        reader, input, [&file] { file.Line(); },
        [&](const CloudPoint& point) {
            file.Record(unit * point.x - unit * head.X0, unit * point.y - unit * head.Y0, unit * point.z);
        });
    file.Commit();
    return head;
}

PiczaExtent ExtentOfPicza(const PiczaHead& head, double unit, PiczaCounts& counts) {
    const double xMax = TakeCount(head.X0, head.X1, head.XStep, unit, counts.NumCols);
    const double yMax = TakeCount(head.Y0, head.Y1, head.YStep, unit, counts.NumRows);
    return {.Width = xMax - unit * head.X0, .Height = yMax - unit * head.Y0};
}

PiczaScan ReadPiczaScan(const std::string& path, const std::function<void()>& beforeLine) {
    constexpr std::size_t mostLines = 100'000;
    const FileText text = ReadFileText(path);
    FieldReader reader(text.View(), path);
    PiczaScan scan;
    scan.Head = ReadHead(reader);
    scan.Cols = CountPlaces(scan.Head.X0, scan.Head.X1, scan.Head.XStep);
    scan.Rows = CountPlaces(scan.Head.Y0, scan.Head.Y1, scan.Head.YStep);
    RequirePlaces(scan, path);
    SeekLine(reader, "L");
    reader.ReadLine();
    const auto newLine = [&] {
        beforeLine();
        if (scan.Lines.size() == mostLines || static_cast<int>(scan.Lines.size()) > scan.Rows) FailAtPlace(path);
        scan.Lines.emplace_back();
    };
    ReadScanLines(reader, path, newLine, [&](const CloudPoint& point) {
        if (scan.Lines.empty() || static_cast<int>(scan.Lines.back().size()) > scan.Cols) FailAtPlace(path);
        scan.Lines.back().push_back(point);
    });
    return scan;
}

void WriteScannedPoints(FileTable& files, const std::string& path, const PiczaScan& scan, double unit) {
    ResultFile file(files, path);
    for (const std::vector<CloudPoint>& line : scan.Lines) {
        for (const CloudPoint& point : line) file.Record(unit * point.x, unit * point.y, unit * point.z);
    }
    file.Commit();
}

void WriteAllPlaces(FileTable& files, const std::string& path, const PiczaScan& scan, double unit) {
    static const std::vector<CloudPoint> none;
    std::vector<double> heights(static_cast<std::size_t>(scan.Cols));
    double last = 0;
    ResultFile file(files, path);
    for (int r = 1; r <= scan.Rows; ++r) {
        const auto row = static_cast<std::size_t>(r - 1);
        const std::vector<CloudPoint>& line = row < scan.Lines.size() ? scan.Lines[row] : none;
        const double y = scan.Head.Y0 + scan.Head.YStep * (r - 1);
        std::size_t next = 0;
        for (int c = 1; c <= scan.Cols; ++c) {
            const double x = scan.Head.X0 + scan.Head.XStep * (c - 1);
            while (next < line.size() && line[next].x == x && line[next].y == y) last = line[next++].z;
            double& height = heights[static_cast<std::size_t>(c - 1)];
            if (!line.empty()) height = last;
            file.Record(unit * x, unit * y, unit * height);
        }
    }
    file.Commit();
}

}  // namespace crownlab
