#include "surferfns/terrain_statistics.h"

#include <cmath>

#include "basis/failure.h"
#include "basis/field_reader.h"
#include "basis/number_text.h"
#include "basis/paths.h"
#include "basis/result_file.h"
#include "basis/rounding.h"

namespace crownlab {
namespace {

constexpr double kFirstBinWidth = 11.25;

double ScaleOf(Terrain terrain) {
    constexpr double slopes = 90;
    constexpr double aspects = 360;
    return terrain == Terrain::Slope ? slopes : aspects;
}

void WriteTable(FileTable& files, const std::string& path, ResultFile::Mode mode, const std::vector<int>& counts,
                double binWidth) {
    ResultFile file(files, path, mode);
    file.Record("Bin", "Frequency");
    for (std::size_t b = 0; b < counts.size(); ++b) {
        file.Record(RecordText(static_cast<double>(b) * binWidth), std::to_string(counts[b]));
    }
    file.Line();
    file.Commit();
}

struct Moments {
    double Mean = 0;
    double Deviation = 0;
};

/// In two passes: the mean first, so that large values lose nothing.
Moments MomentsOf(const std::vector<double>& values) {
    const auto count = static_cast<double>(values.size());
    double sum = 0;
    for (const double value : values) sum += value;
    Moments moments;
    moments.Mean = Divide(sum, count, "mean slope");
    double squares = 0;
    for (const double value : values) squares += (value - moments.Mean) * (value - moments.Mean);
    moments.Deviation = std::sqrt(Divide(squares, count - 1, "SD of the slope"));
    return moments;
}

}  // namespace

std::vector<double> ReadTerrainValues(const std::string& path) {
    constexpr double blankAbove = 1e38;
    constexpr std::size_t most = 1'000'000;
    const FileText text = ReadFileText(path);
    FieldReader reader(text.View(), path);
    std::vector<double> values;
    while (!reader.NothingLeft()) {
        reader.ReadNumber();
        reader.ReadNumber();
        const double z = reader.ReadNumber();
        if (z > blankAbove) continue;
        if (values.size() == most) throw Failure(FailureKind::SubscriptOutOfRange, "nodes of the terrain grid");
        values.push_back(z);
    }
    return values;
}

std::vector<int> CountInBins(const std::vector<double>& values, Terrain terrain, double binWidth) {
    constexpr int mostInBin = 10'000;
    const double bins = ScaleOf(terrain) / binWidth;
    std::vector<int> counts(static_cast<std::size_t>(bins));
    for (const double value : values) {
        double bin = std::floor((value + binWidth / 2) / binWidth) + 1;
        if (bin == bins + 1) bin = 1;
        if (!(bin >= 1 && bin <= bins)) {
            throw Failure(FailureKind::SubscriptOutOfRange, "bin of the value " + GeneralText(value));
        }
        int& count = counts[static_cast<std::size_t>(bin) - 1];
        if (count == mostInBin) throw Failure(FailureKind::SubscriptOutOfRange, "values in a bin");
        ++count;
    }
    return counts;
}

void WriteTerrainResults(FileTable& files, const std::string& path, const std::vector<double>& values,
                         Terrain terrain) {
    constexpr int slopePasses = 1;
    constexpr int aspectPasses = 4;
    const int passes = terrain == Terrain::Slope ? slopePasses : aspectPasses;
    double binWidth = kFirstBinWidth;
    for (int p = 1; p <= passes; ++p) {
        const std::vector<int> counts = CountInBins(values, terrain, binWidth);
        WriteTable(files, path, p == 1 ? ResultFile::Mode::Replace : ResultFile::Mode::Append, counts, binWidth);
        binWidth *= 2;
    }
    if (terrain != Terrain::Slope) return;
    const Moments moments = MomentsOf(values);
    ResultFile file(files, path, ResultFile::Mode::Append);
    file.Record("Mean Slope", "SD Slope");
    file.Record(RecordText(moments.Mean), RecordText(moments.Deviation));
    file.Line();
    file.Commit();
}

}  // namespace crownlab
