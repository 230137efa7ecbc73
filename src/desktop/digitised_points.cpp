#include "desktop/digitised_points.h"

#include <array>
#include <charconv>
#include <utility>

#include "basis/failure.h"
#include "basis/field_reader.h"
#include "basis/number_text.h"
#include "basis/paths.h"

namespace crownlab {
namespace {

constexpr std::string_view kAreaLine = "-1";
constexpr std::string_view kBlanks = " \t\r";

void AppendNumber(std::string& text, double number) {
    std::array<char, 32> digits;
    const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), number == 0 ? 0.0 : number);
    text.append(digits.data(), end.ptr);
}

std::string_view Trimmed(std::string_view text) {
    const std::size_t first = text.find_first_not_of(kBlanks);
    if (first == std::string_view::npos) return {};
    return text.substr(first, text.find_last_not_of(kBlanks) - first + 1);
}

PlanePoint PointOf(std::string_view line, const std::string& path) {
    try {
        FieldReader reader(line, path);
        const double x = reader.ReadNumber();
        const double y = reader.ReadNumber();
        if (reader.NothingLeft()) return {x, y};
    } catch (const Failure&) {
        // Which line it was says more than the reader, which sees this one alone.
    }
    throw Failure(FailureKind::TypeMismatch, path + " has a line that is no point: " + std::string(line));
}

}  // namespace

std::string DigitisedText(const DigitisedAreas& areas) {
    std::string text;
    for (const std::vector<PlanePoint>& area : areas) {
        if (area.empty()) continue;
        if (!text.empty()) text.append(kAreaLine).append("\r\n");
        for (const PlanePoint& point : area) {
            AppendNumber(text, point.x);
            text += ',';
            AppendNumber(text, point.y);
            text += "\r\n";
        }
    }
    return text;
}

DigitisedAreas ReadPointFile(const std::string& path) {
    const FileText file = ReadFileText(path);
    std::string_view rest = WithoutByteOrderMark(file.View());
    DigitisedAreas areas{{}};
    while (!rest.empty()) {
        const std::size_t end = rest.find('\n');
        const std::string_view line = Trimmed(rest.substr(0, end));
        rest = end == std::string_view::npos ? std::string_view() : rest.substr(end + 1);
        if (line == kAreaLine) {
            if (!areas.back().empty()) areas.emplace_back();
        } else if (!line.empty()) {
            areas.back().push_back(PointOf(line, path));
        }
    }
    return areas;
}

std::size_t DigitisedPoints::Count() const {
    std::size_t count = 0;
    for (const std::vector<PlanePoint>& area : areas_) count += area.size();
    return count;
}

bool DigitisedPoints::Holds(PointPlace place) const {
    return place.Area < areas_.size() && place.Index < areas_[place.Area].size();
}

void DigitisedPoints::Keep() {
    before_.push_back(areas_);
    after_.clear();
}

PointPlace DigitisedPoints::Add(const PlanePoint& point) {
    Keep();
    areas_.back().push_back(point);
    return {areas_.size() - 1, areas_.back().size() - 1};
}

void DigitisedPoints::Move(PointPlace place, const PlanePoint& to, Drag drag) {
    if (!Holds(place)) return;
    if (drag == Drag::Begins) Keep();
    areas_[place.Area][place.Index] = to;
}

void DigitisedPoints::Remove(PointPlace place) {
    if (!Holds(place)) return;
    Keep();
    std::vector<PlanePoint>& area = areas_[place.Area];
    area.erase(area.begin() + static_cast<std::ptrdiff_t>(place.Index));
    if (area.empty() && areas_.size() > 1) areas_.erase(areas_.begin() + static_cast<std::ptrdiff_t>(place.Area));
}

void DigitisedPoints::StartNextArea() {
    if (areas_.back().empty()) return;
    Keep();
    areas_.emplace_back();
}

void DigitisedPoints::Replace(DigitisedAreas areas) {
    Keep();
    areas_ = std::move(areas);
    if (areas_.empty()) areas_.emplace_back();
}

void DigitisedPoints::Reset(DigitisedAreas areas) {
    areas_ = std::move(areas);
    if (areas_.empty()) areas_.emplace_back();
    before_.clear();
    after_.clear();
    MarkSaved();
}

void DigitisedPoints::Undo() {
    if (!CanUndo()) return;
    after_.push_back(std::exchange(areas_, std::move(before_.back())));
    before_.pop_back();
}

void DigitisedPoints::Redo() {
    if (!CanRedo()) return;
    before_.push_back(std::exchange(areas_, std::move(after_.back())));
    after_.pop_back();
}

}  // namespace crownlab
