#include "convert/grid_dxf.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <locale>
#include <sstream>
#include <string>
#include <vector>

#include "basis/result_file.h"
#include "support/temp_folder.h"

namespace crownlab {
namespace {

Lattice Hill(int cols, int rows) {
    Lattice lattice{.Cols = cols, .Rows = rows, .Nodes = {}};
    for (int j = 0; j < rows; ++j) {
        for (int i = 0; i < cols; ++i) lattice.Nodes.push_back({10 + 0.5 * i, -3 + 0.25 * j, 0.125 * i * j - 2});
    }
    return lattice;
}

/// What the independent reader ogrinfo says of a drawing (Debian package gdal-bin).
std::string OgrInfo(const TempFolder& folder, const std::string& words) {
    const std::string command = "ogrinfo " + words + " > out.txt 2> err.txt";
    EXPECT_EQ(std::system(command.c_str()), 0) << command << "\n(Debian package gdal-bin)";
    // It closes the ring of each face itself, and says so, whoever wrote the drawing.
    std::istringstream complaints(FileBytes(folder / "err.txt"));
    for (std::string line; std::getline(complaints, line);) {
        EXPECT_TRUE(line.starts_with("Warning 1: Non closed ring detected")) << line;
    }
    return FileBytes(folder / "out.txt");
}

using Corners = std::vector<CloudPoint>;

/// The rings of the polygons that a listing holds.
std::vector<Corners> Polygons(const std::string& listing) {
    std::vector<Corners> polygons;
    const std::string ring = "POLYGON Z ((";
    for (std::size_t at = listing.find(ring); at != std::string::npos; at = listing.find(ring, at + 1)) {
        const std::size_t first = at + ring.size();
        std::string text = listing.substr(first, listing.find(')', first) - first);
        std::replace(text.begin(), text.end(), ',', ' ');
        std::istringstream numbers(text);
        numbers.imbue(std::locale::classic());
        polygons.emplace_back();
        for (CloudPoint point; numbers >> point.x >> point.y >> point.z;) polygons.back().push_back(point);
    }
    return polygons;
}

TEST(GridDxf, IsReadByAnIndependentReader) {
    const TempFolder folder;
    FileTable files;
    Lattice lattice = Hill(7, 5);
    lattice.At(4, 3).z = 1.70141e38;
    WriteGridDxf(files, folder / "hill.dxf", "hill", lattice);
    lattice.At(4, 3).z = -2;  // pulled down to the lowest height, no hole
    const std::string summary = OgrInfo(folder, "-so hill.dxf entities");
    EXPECT_NE(summary.find("Feature Count: 48"), std::string::npos) << summary;
    EXPECT_NE(summary.find("Extent: (10.000000, -3.000000) - (13.000000, -2.000000)"), std::string::npos) << summary;
    const std::vector<Corners> found = Polygons(OgrInfo(folder, "-al hill.dxf"));
    ASSERT_EQ(found.size(), 48u);
    std::size_t next = 0;
    for (int j = 1; j < 5; ++j) {
        for (int i = 1; i < 7; ++i) {
            const CloudPoint& low = lattice.At(i, j);
            const CloudPoint& right = lattice.At(i + 1, j);
            const CloudPoint& up = lattice.At(i, j + 1);
            const CloudPoint& rightUp = lattice.At(i + 1, j + 1);
            EXPECT_EQ(found[next++], (Corners{up, low, rightUp, up})) << i << ", " << j;
            EXPECT_EQ(found[next++], (Corners{low, right, rightUp, low})) << i << ", " << j;
        }
    }
}

TEST(GridDxf, HasTwoFacesACellAndNumbersAsPrintItems) {
    const TempFolder folder;
    FileTable files;
    const Lattice lattice{
        .Cols = 2, .Rows = 2, .Nodes = {{0, 0, -0.0004}, {0.0625, 0, 1}, {0, 0.5, 2}, {0.0625, 0.5, 1e37}}};
    WriteGridDxf(files, folder / "a.dxf", "a", lattice);
    const std::string text = FileBytes(folder / "a.dxf");
    const std::string upperRight =
        "12\r\n .062 \r\n22\r\n .5 \r\n32\r\n 0 \r\n13\r\n .062 \r\n23\r\n .5 \r\n33\r\n 0 \r\n0\r\n";
    EXPECT_EQ(
        text,
        "999\r\nDXF file a; created by Crownlab; QXT\r\n0\r\nSECTION\r\n2\r\nENTITIES\r\n0\r\n"
        "3DFACE\r\n8\r\nOBJECT\r\n10\r\n 0 \r\n20\r\n .5 \r\n30\r\n 2 \r\n11\r\n 0 \r\n21\r\n 0 \r\n31\r\n 0 \r\n" +
            upperRight +
            "3DFACE\r\n8\r\nOBJECT\r\n10\r\n 0 \r\n20\r\n 0 \r\n30\r\n 0 \r\n11\r\n .062 \r\n21\r\n 0 \r\n31\r\n 1 "
            "\r\n" +
            upperRight + "ENDSEC\r\n0\r\nEOF\r\n");
}

TEST(GridDxf, LowestHeightStartsAtAHundredThousand) {
    const TempFolder folder;
    FileTable files;
    Lattice lattice = Hill(2, 2);
    for (CloudPoint& node : lattice.Nodes) node.z = 1.70141e38;
    WriteGridDxf(files, folder / "a.dxf", "a", lattice);
    EXPECT_NE(FileBytes(folder / "a.dxf").find("30\r\n 100000 \r\n"), std::string::npos);
}

TEST(GridDxf, OfOneRowHasNoFace) {
    const TempFolder folder;
    FileTable files;
    WriteGridDxf(files, folder / "a.dxf", "a", Hill(3, 1));
    EXPECT_EQ(FileBytes(folder / "a.dxf").find("3DFACE"), std::string::npos);
}

}  // namespace
}  // namespace crownlab
