// Grid files against a reader and writer that Crownlab has no part in: the command line programs of GDAL.

#include <gtest/gtest.h>

#include <cstdlib>
#include <cstring>
#include <sstream>
#include <string>
#include <vector>

#include "basis/result_file.h"
#include "mapengine/grid_file.h"
#include "support/temp_folder.h"

namespace crownlab {
namespace {

struct FormatUnderTest {
    GridFormat Format;
    std::string Driver;  ///< GDAL's name for it
};

const FormatUnderTest kFormats[] = {
    {GridFormat::Binary32, "GSBG"}, {GridFormat::Binary64, "GS7BG"}, {GridFormat::AsciiGrid, "GSAG"}};

/// Limits and heights that 32 bits hold, so that all three formats have the same; two blanks.
Grid SlopingGrid() {
    Grid grid(GridGeometry{.Columns = 23, .Rows = 11, .XMin = -4, .XMax = 7, .YMin = 100, .YMax = 102.5});
    for (std::size_t i = 0; i < grid.Z.size(); ++i) grid.Z[i] = 0.125F * static_cast<float>(i * i % 97) - 3;
    grid.At(0, 0) = kBlankHeight;
    grid.At(13, 6) = kBlankHeight;
    return grid;
}

/// The row that comes first in a picture is the highest.
std::vector<double> FromTheTop(const Grid& grid) {
    std::vector<double> heights;
    for (int row = grid.Shape.Rows - 1; row >= 0; --row) {
        for (int column = 0; column < grid.Shape.Columns; ++column) heights.push_back(grid.At(column, row));
    }
    return heights;
}

class GridsSeenByGdal : public ::testing::Test {
protected:
    /// Runs one of GDAL's programs in the test's folder; its output. Fails the test if it isn't there or fails.
    static std::string Run(const std::string& command) {
        const int status = std::system(("LC_ALL=C " + command + " >out.txt 2>&1").c_str());
        EXPECT_EQ(status, 0) << command << "\n" << FileBytes("out.txt") << "\n(Debian package gdal-bin)";
        return FileBytes("out.txt");
    }

    TempFolder folder_;
    FileTable files_;
};

TEST_F(GridsSeenByGdal, EachFormatIsOpenedByItsOwnDriver) {
    for (const auto& [format, driver] : kFormats) {
        WriteGrid(files_, "in.grd", SlopingGrid(), format);
        const std::string info = Run("gdalinfo in.grd");
        EXPECT_NE(info.find("Driver: " + driver + "/"), std::string::npos) << info;
        EXPECT_NE(info.find("Size is 23, 11"), std::string::npos) << info;
        EXPECT_NE(info.find("Pixel Size = (0.500000000000000,-0.250000000000000)"), std::string::npos) << info;
        // The corner of a pixel lies half a spacing beyond its node.
        EXPECT_NE(info.find("Origin = (-4.250000000000000,102.625000000000000)"), std::string::npos) << info;
        EXPECT_NE(info.find("NoData Value=1.70141e+38"), std::string::npos) << info;
    }
}

TEST_F(GridsSeenByGdal, HeightsAreReadBitForBit) {
    for (const auto& [format, driver] : kFormats) {
        Grid grid = SlopingGrid();
        if (format != GridFormat::Binary32) grid.At(5, 5) = 1.0 / 3;
        WriteGrid(files_, "in.grd", grid, format);
        Run("gdal_translate -q -of ENVI -ot Float64 in.grd raw.img");
        const std::string raw = FileBytes("raw.img");
        std::vector<double> heights(raw.size() / sizeof(double));
        ASSERT_EQ(heights.size(), grid.Shape.Nodes());
        std::memcpy(heights.data(), raw.data(), raw.size());
        for (double& z : heights) z = IsBlank(z) ? kBlankHeight : z;
        EXPECT_EQ(heights, FromTheTop(grid)) << driver;
    }
}

TEST_F(GridsSeenByGdal, NodesLieWhereNodeTextSays) {
    WriteGrid(files_, "nodes.txt", SlopingGrid(), GridFormat::NodeText);
    std::istringstream ours(FileBytes("nodes.txt"));
    ours.imbue(std::locale::classic());
    std::vector<std::vector<double>> nodes;
    for (std::vector<double> node(3); ours >> node[0] >> node[1] >> node[2];) nodes.push_back(node);
    ASSERT_EQ(nodes.size(), SlopingGrid().Shape.Nodes());
    for (const auto& [format, driver] : kFormats) {
        WriteGrid(files_, "in.grd", SlopingGrid(), format);
        Run("gdal_translate -q -of XYZ in.grd out.xyz");
        std::istringstream theirs(FileBytes("out.xyz"));
        theirs.imbue(std::locale::classic());
        for (int row = SlopingGrid().Shape.Rows - 1; row >= 0; --row) {
            for (int column = 0; column < SlopingGrid().Shape.Columns; ++column) {
                const std::vector<double>& node = nodes[SlopingGrid().Index(column, row)];
                double x = 0, y = 0, z = 0;
                ASSERT_TRUE(theirs >> x >> y >> z) << driver;
                EXPECT_EQ(x, node[0]) << driver;
                EXPECT_EQ(y, node[1]) << driver;
                if (IsBlank(node[2])) {
                    EXPECT_TRUE(IsBlank(z)) << driver;
                } else {
                    EXPECT_EQ(z, node[2]) << driver;
                }
            }
        }
    }
}

TEST_F(GridsSeenByGdal, WhatItWritesIsRead) {
    WriteGrid(files_, "in.grd", SlopingGrid(), GridFormat::Binary64);
    for (const auto& [format, driver] : kFormats) {
        Run("gdal_translate -q -of " + driver + " in.grd theirs.grd");
        const Grid grid = ReadGrid("theirs.grd");
        EXPECT_EQ(grid.Shape, SlopingGrid().Shape) << driver;
        EXPECT_EQ(grid.Z, SlopingGrid().Z) << driver;
    }
}

}  // namespace
}  // namespace crownlab
