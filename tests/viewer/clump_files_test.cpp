#include "viewer/clump_files.h"

#include <gtest/gtest.h>

#include "basis/result_file.h"
#include "support/temp_folder.h"
#include "viewer/surface_families.h"

namespace crownlab {
namespace {

constexpr const char* kItems =
    "\"ClumpInfo\",\"NoClumps\",\"ClumpSizeMean\",\"ClumpSizeSD\",\"ClumpSizeMin\",\"ClumpSizeMax\",\"ClumpSizeMed\","
    "\"ClumpSize1Q\",\"ClumpSize3Q\",\"PatchDiversityClump\"\r\n";

ClumpReport ReportOf(const TempFolder& folder, const ClumpResult& result) {
    return {.Folder = folder.Path() + "/", .BaseName = "a", .Result = &result, .Sizes = SizesOf(result.ClumpSizes)};
}

TEST(ClumpFiles, ResultsHoldOneLineAndTheSizes) {
    const TempFolder folder;
    FileTable files;
    const ClumpResult result{
        .ClumpSizes = {5, 9, 3}, .TotalCells = 20, .PatchDiversity = 3.5, .ClumpInfo = "cl_asp8_2"};
    WriteClumpResults(files, ReportOf(folder, result));
    // Mean 17/3; deviation sqrt((4/9 + 100/9 + 64/9) / 2) = sqrt(28/3).
    EXPECT_EQ(FileBytes(folder / "a-cl_asp8_2results.csv"),
              std::string(kItems) +
                  "\"cl_asp8_2\",3,5.66666666666667,3.05505046330389,3,9,4,4,4,3.5\r\n"
                  "\r\n"
                  "\"ClumpNo\",\"ClumpSize\"\r\n1,5\r\n2,9\r\n3,3\r\n");
    EXPECT_EQ(ClumpImagePath(ReportOf(folder, result)), folder / "a-cl_asp8_2.bmp");
}

TEST(ClumpFiles, OnePatchAndNone) {
    const SummaryStatsResult one = SizesOf({7});
    EXPECT_EQ(one.Mean, 7);
    EXPECT_EQ(one.SD, 0);
    EXPECT_EQ(one.Min, 7);
    EXPECT_EQ(one.Max, 7);
    EXPECT_EQ(one.Median, 7);
    EXPECT_EQ(one.Quartile1, 7);
    EXPECT_EQ(one.Quartile3, 7);
    const TempFolder folder;
    FileTable files;
    const ClumpResult none{.ClumpSizes = {}, .TotalCells = 4, .PatchDiversity = 0, .ClumpInfo = "i"};
    WriteClumpResults(files, ReportOf(folder, none));
    EXPECT_EQ(FileBytes(folder / "a-iresults.csv"),
              std::string(kItems) + "\"i\",0,0,0,0,0,0,0,0,0\r\n\r\n\"ClumpNo\",\"ClumpSize\"\r\n");
}

TEST(ClumpFiles, CellsOfPatchesRowByRow) {
    const TempFolder folder;
    FileTable files;
    const ClumpResult result{.ClumpSizes = {2, 1}, .TotalCells = 4, .PatchDiversity = 1, .ClumpInfo = "i"};
    const SurfaceGrid like = MakeGrid(2, 2, [](int, int) { return 0.0; });
    WriteClumpCells(files, ReportOf(folder, result),
                    {.NumX = 2, .NumY = 2, .Places = like.Places, .Labels = {1, 9999, 1, 2}});
    EXPECT_EQ(FileBytes(folder / "a-i.csv"), "-.75,30.25,1\r\n-.75,30.5,1\r\n-.5,30.5,2\r\n");
}

TEST(ClumpFiles, TheCollectingFileHasOneHeader) {
    const TempFolder folder;
    FileTable files;
    const ClumpResult result{.ClumpSizes = {4}, .TotalCells = 4, .PatchDiversity = 1, .ClumpInfo = "i"};
    ClumpReport report = ReportOf(folder, result);
    const std::string header = "\"File\"," + std::string(kItems);
    const std::string line = ",\"i\",1,4,0,4,4,4,4,4,1\r\n";
    WriteClumpAllResults(files, report, false);
    report.BaseName = "b";
    WriteClumpAllResults(files, report, true);
    EXPECT_EQ(FileBytes(folder / "00iallresults.csv"), header + "\"a\"" + line + "\"b\"" + line);
    WriteClumpAllResults(files, report, false);
    EXPECT_EQ(FileBytes(folder / "00iallresults.csv"), header + "\"b\"" + line);
}

}  // namespace
}  // namespace crownlab
