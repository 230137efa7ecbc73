#include "viewer/clump_files.h"

#include "basis/result_file.h"

namespace crownlab {
namespace {

std::string NameStart(const ClumpReport& report) {
    return report.Folder + report.BaseName + "-" + report.Result->ClumpInfo;
}

void WriteHeaderItems(ResultFile& file) {
    file.Record("ClumpInfo", "NoClumps", "ClumpSizeMean", "ClumpSizeSD", "ClumpSizeMin", "ClumpSizeMax", "ClumpSizeMed",
                "ClumpSize1Q", "ClumpSize3Q", "PatchDiversityClump");
}

void WriteValueItems(ResultFile& file, const ClumpReport& report) {
    const SummaryStatsResult& sizes = report.Sizes;
    file.Record(report.Result->ClumpInfo, static_cast<int>(report.Result->ClumpSizes.size()), sizes.Mean, sizes.SD,
                sizes.Min, sizes.Max, sizes.Median, sizes.Quartile1, sizes.Quartile3, report.Result->PatchDiversity);
}

}  // namespace

SummaryStatsResult SizesOf(const std::vector<double>& clumpSizes) {
    if (clumpSizes.empty()) return {};
    if (clumpSizes.size() > 1) return SummaryStats(clumpSizes, 1, static_cast<int>(clumpSizes.size()));
    const double size = clumpSizes.front();
    return {.Mean = size, .SD = 0, .Min = size, .Max = size, .Median = size, .Quartile1 = size, .Quartile3 = size};
}

void WriteClumpResults(FileTable& files, const ClumpReport& report) {
    ResultFile file(files, NameStart(report) + "results.csv");
    WriteHeaderItems(file);
    WriteValueItems(file, report);
    file.EndLine();
    file.Record("ClumpNo", "ClumpSize");
    for (std::size_t clump = 0; clump < report.Result->ClumpSizes.size(); ++clump) {
        file.Record(static_cast<int>(clump + 1), report.Result->ClumpSizes[clump]);
    }
    file.Commit();
}

void WriteClumpCells(FileTable& files, const ClumpReport& report, const LabelGrid& clumps) {
    ResultFile file(files, NameStart(report) + ".csv");
    for (std::size_t at = 0; at < clumps.Labels.size(); ++at) {
        if (clumps.Labels[at] == kNoLabel) continue;
        const Place& place = (*clumps.Places)[at];
        file.Record(place.x, place.y, static_cast<int>(clumps.Labels[at]));
    }
    file.Commit();
}

void WriteClumpAllResults(FileTable& files, const ClumpReport& report, bool append) {
    ResultFile file(files, report.Folder + "00" + report.Result->ClumpInfo + "allresults.csv",
                    append ? ResultFile::Mode::Append : ResultFile::Mode::Replace);
    if (!append) {
        file.Item("File");
        file.Comma();
        WriteHeaderItems(file);
    }
    file.Item(report.BaseName);
    file.Comma();
    WriteValueItems(file, report);
    file.Commit();
}

std::string ClumpImagePath(const ClumpReport& report) { return NameStart(report) + ".bmp"; }

}  // namespace crownlab
