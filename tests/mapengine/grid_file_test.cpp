#include "mapengine/grid_file.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstring>

#include "basis/result_file.h"
#include "mapengine/engine_call.h"
#include "support/expect_failure.h"
#include "support/random_numbers.h"
#include "support/temp_folder.h"

namespace crownlab {
namespace {

constexpr GridFormat kGridFormats[] = {GridFormat::Binary32, GridFormat::Binary64, GridFormat::AsciiGrid};

/// Four columns, three rows, everything different; one blank node.
Grid SmallGrid() {
    Grid grid(GridGeometry{.Columns = 4, .Rows = 3, .XMin = -1.5, .XMax = 6, .YMin = 10, .YMax = 11});
    for (std::size_t i = 0; i < grid.Z.size(); ++i) grid.Z[i] = 0.5 * static_cast<double>(i) - 2.25;
    grid.At(2, 1) = kBlankHeight;
    return grid;
}

class GridFile : public ::testing::Test {
protected:
    Grid Read(const std::string& bytes) const {
        PutFile(folder_ / "in.grd", bytes);
        return ReadGrid(folder_ / "in.grd");
    }
    ::testing::AssertionResult Refuses(const std::string& bytes, const std::string& why) const {
        return FailsWith(
            FailureKind::AutomationFailed, [&] { Read(bytes); }, (folder_ / "in.grd") + ": " + why);
    }
    std::string Written(const Grid& grid, GridFormat format) {
        WriteGrid(files_, folder_ / "out.grd", grid, format);
        return FileBytes(folder_ / "out.grd");
    }
    Grid RoundTrip(const Grid& grid, GridFormat format) { return Read(Written(grid, format)); }

    TempFolder folder_;
    FileTable files_;
};

TEST_F(GridFile, EachFormatGivesBackWhatWasWritten) {
    const Grid grid = SmallGrid();
    for (const GridFormat format : kGridFormats) {
        const Grid back = RoundTrip(grid, format);
        EXPECT_EQ(back.Shape, grid.Shape);
        EXPECT_EQ(back.Z, grid.Z);
    }
}

TEST_F(GridFile, NodeTextRunsAlongXFromTheLowestRow) {
    EXPECT_EQ(Written(SmallGrid(), GridFormat::NodeText),
              "-1.5 10 -2.25\r\n1 10 -1.75\r\n3.5 10 -1.25\r\n6 10 -0.75\r\n"
              "-1.5 10.5 -0.25\r\n1 10.5 0.25\r\n3.5 10.5 1.70141E+38\r\n6 10.5 1.25\r\n"
              "-1.5 11 1.75\r\n1 11 2.25\r\n3.5 11 2.75\r\n6 11 3.25\r\n");
}

}  // namespace
}  // namespace crownlab
