#include "viewer/multi_tooth_file.h"

#include <memory>

#include "basis/field_reader.h"
#include "basis/memory_limit.h"
#include "basis/result_file.h"

namespace crownlab {
namespace {

constexpr std::size_t kMaxSentinels = 1000000;
/// Lines of a tooth that aren't points: two of parameters and the sentinel.
constexpr std::int64_t kOtherLines = 3;

void AddTooth(SentinelScan& scan, std::int64_t line) {
    if (scan.SentinelLine.size() > kMaxSentinels) throw Failure(FailureKind::SubscriptOutOfRange, "SentinelLine");
    scan.SentinelLine.push_back(line);
}

}  // namespace

bool IsSentinel(std::string_view line) { return line.find("666") != std::string_view::npos; }

std::int64_t SentinelScan::ToothPoints(int tooth) const {
    const auto t = static_cast<std::size_t>(tooth);
    return SentinelLine.at(t) - SentinelLine.at(t - 1) - kOtherLines;
}

SentinelScan ScanSentinels(std::string_view text, const std::string& name) {
    FieldReader reader(text, name);
    SentinelScan scan;
    std::int64_t lines = 0;
    bool ended = false;
    while (!reader.AtEnd()) {
        ++lines;
        ended = IsSentinel(reader.ReadLine());
        if (ended) AddTooth(scan, lines);
    }
    if (lines == 0) throw Failure(FailureKind::InvalidCall, name + " is empty");
    if (!ended) AddTooth(scan, lines + 1);
    return scan;
}

std::array<double, 11> ReadToothParams(FieldReader& reader) {
    reader.ReadNumber();  // the model's own, of no use here
    std::array<double, 11> params{};
    params[10] = reader.ReadNumber();
    for (std::size_t i = 0; i < 10; ++i) params[i] = reader.ReadNumber();
    return params;
}

std::vector<SurfacePoint> ReadToothPoints(FieldReader& reader, std::int64_t count) {
    RequireMemory(static_cast<std::uint64_t>(count) * sizeof(SurfacePoint), "PointList");
    std::vector<SurfacePoint> points(static_cast<std::size_t>(count));
    for (SurfacePoint& point : points) {
        point.x = reader.ReadNumber();
        point.y = reader.ReadNumber();
        point.z = reader.ReadNumber();
    }
    return points;
}

int SplitMultiToothFile(FileTable& files, std::string_view text, int maxTeeth, const std::string& stem) {
    FieldReader reader(text, stem);
    std::unique_ptr<ResultFile> part;
    int parts = 0;
    int teethInPart = 0;
    while (!reader.AtEnd()) {
        if (!part) {
            part = std::make_unique<ResultFile>(files, stem + "-" + std::to_string(++parts) + ".csv");
            teethInPart = 0;
        }
        const std::string_view line = reader.ReadLine();
        part->Line(line);
        if (IsSentinel(line) && ++teethInPart == maxTeeth) {
            part->Commit();
            part.reset();
        }
    }
    if (part) part->Commit();
    return parts;
}

}  // namespace crownlab
