#include "viewer/tooth_counts.h"

#include <algorithm>

#include "basis/failure.h"
#include "basis/field_reader.h"
#include "basis/paths.h"
#include "basis/result_file.h"
#include "basis/rounding.h"
#include "basis/text.h"
#include "viewer/multi_tooth_file.h"

namespace crownlab {
namespace {

constexpr std::string_view kPrefix = "netregu";
constexpr std::string_view kExtension = ".dat";

/// What stands between prefix and extension of a name that the pattern matched.
std::string_view MiddleOf(std::string_view name) {
    return name.substr(kPrefix.size(), name.size() - kPrefix.size() - kExtension.size());
}

bool IsWholeNumber(std::string_view text) {
    return !text.empty() && std::all_of(text.begin(), text.end(), [](char c) { return c >= '0' && c <= '9'; });
}

/// Order of numbers of any length, by their digits.
bool LessByNumber(std::string_view a, std::string_view b) {
    a.remove_prefix(std::min(a.find_first_not_of('0'), a.size()));
    b.remove_prefix(std::min(b.find_first_not_of('0'), b.size()));
    return a.size() != b.size() ? a.size() < b.size() : a < b;
}

ModelFileCount ReadCount(FieldReader& reader, std::string file) {
    const double count = reader.ReadNumber();
    if (count < 0) throw Failure(FailureKind::InvalidCall, "negative count of " + file);
    const std::int32_t whole = ToInt32(count, "count of " + file);
    return {.File = std::move(file), .Count = whole};
}

}  // namespace

std::vector<std::string> ListModelFiles(const std::string& folder) {
    std::vector<std::string> names = ListFiles(folder, std::string(kPrefix) + "*" + std::string(kExtension));
    std::erase_if(names, [](const std::string& name) { return !IsWholeNumber(MiddleOf(name)); });
    std::stable_sort(names.begin(), names.end(),
                     [](const std::string& a, const std::string& b) { return LessByNumber(MiddleOf(a), MiddleOf(b)); });
    return names;
}

std::int32_t CountTeeth(std::string_view text) {
    FieldReader reader(text, "model file");
    double teeth = 0;
    while (!reader.AtEnd()) {
        if (IsSentinel(reader.ReadLine())) ++teeth;
    }
    return ToInt32(teeth, "teeth of the model file");
}

void WriteToothCounts(FileTable& files, const std::string& path, const std::vector<ModelFileCount>& counts) {
    ResultFile file(files, path);
    file.Record("File", "Count");
    for (const ModelFileCount& entry : counts) file.Record(entry.File, entry.Count);
    file.Commit();
}

std::vector<ModelFileCount> ReadToothCounts(const std::string& path) {
    const std::string text = ReadWholeFile(path);
    FieldReader reader(text, path);
    std::vector<ModelFileCount> counts;
    bool first = true;
    while (!reader.NothingLeft()) {
        std::string file = reader.ReadText();
        const bool header = first && EqualNoCase(file, "File");
        first = false;
        if (header) {
            reader.ReadText();
        } else {
            counts.push_back(ReadCount(reader, std::move(file)));
        }
    }
    if (counts.empty()) throw Failure(FailureKind::SubscriptOutOfRange, path + " holds no counts");
    return counts;
}

std::vector<std::int32_t> SampleShares(const std::vector<ModelFileCount>& counts, std::int32_t sampleSize) {
    if (sampleSize < 0) throw Failure(FailureKind::InvalidCall, "sample size");
    double total = 0;
    for (const ModelFileCount& entry : counts) total += entry.Count;
    std::vector<std::int32_t> shares;
    shares.reserve(counts.size());
    for (const ModelFileCount& entry : counts) {
        const double share =
            RoundHalfEven(Divide(static_cast<double>(sampleSize) * entry.Count, total, "total of the counts"));
        shares.push_back(static_cast<std::int32_t>(std::min<double>(share, entry.Count)));
    }
    return shares;
}

std::vector<PickedTooth> FindTeeth(std::string_view text, const std::vector<double>& numbers, const std::string& name) {
    FieldReader reader(text, name);
    std::vector<PickedTooth> picked;
    PickedTooth tooth{.Number = 1, .FirstLine = 1, .Lines = {}};
    std::int64_t line = 0;
    while (picked.size() < numbers.size()) {
        const std::string_view content = reader.ReadLine();  // InputPastEnd where a tooth is missing
        ++line;
        const bool wanted = tooth.Number == numbers[picked.size()];
        if (wanted) tooth.Lines.push_back(content);
        if (!IsSentinel(content)) continue;
        const std::int32_t next = tooth.Number + 1;
        if (wanted) picked.push_back(std::move(tooth));
        tooth = {.Number = next, .FirstLine = line + 1, .Lines = {}};
    }
    return picked;
}

void AppendToSample(FileTable& files, const std::string& modelFile, const std::vector<PickedTooth>& teeth,
                    const std::string& samplePath, const std::string& positionPath) {
    ResultFile sample(files, samplePath, ResultFile::Mode::Append);
    ResultFile positions(files, positionPath, ResultFile::Mode::Append);
    for (const PickedTooth& tooth : teeth) {
        for (const std::string_view line : tooth.Lines) sample.Line(line);
        positions.Record(modelFile, tooth.Number, tooth.FirstLine);
    }
    sample.Commit();
    positions.Commit();
}

}  // namespace crownlab
