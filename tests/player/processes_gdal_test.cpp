// Grids that the batch window mirrors and turns, as the command line programs of GDAL see them before and after.
#include <gtest/gtest.h>

#include <cstdlib>
#include <functional>
#include <locale>
#include <map>
#include <sstream>
#include <utility>

#include "mapengine/grid_file.h"
#include "played.h"

namespace crownlab {
namespace {

/// Heights by the place of their node; blank ones are all alike.
using Nodes = std::map<std::pair<double, double>, double>;
/// Place and height of a node after the process.
using Moved = std::function<std::pair<std::pair<double, double>, double>(double x, double y, double z)>;

constexpr double kXMin = 2, kXMax = 4, kYMin = -1, kYMax = 1.5;

class ProcessesSeenByGdal : public ::testing::Test {
protected:
    /// 9 by 6 nodes, x from 2 by 0.25, y from -1 by 0.5, no two heights alike; two nodes are blank.
    ProcessesSeenByGdal() {
        Grid grid(GridGeometry{.Columns = 9, .Rows = 6, .XMin = kXMin, .XMax = kXMax, .YMin = kYMin, .YMax = kYMax});
        for (std::size_t i = 0; i < grid.Z.size(); ++i) grid.Z[i] = 0.125 * static_cast<double>(i * 37 % 61) - 3;
        grid.At(0, 1) = kBlankHeight;
        grid.At(6, 4) = kBlankHeight;
        WriteGrid(files_, "a.grd", grid, GridFormat::AsciiGrid);
    }

    static Nodes ByGdal(const std::string& file) {
        const std::string command = "LC_ALL=C gdal_translate -q -of XYZ " + file + " out.xyz >out.txt 2>&1";
        EXPECT_EQ(std::system(command.c_str()), 0) << FileBytes("out.txt") << "\n(Debian package gdal-bin)";
        std::istringstream text(FileBytes("out.xyz"));
        text.imbue(std::locale::classic());
        Nodes nodes;
        for (double x = 0, y = 0, z = 0; text >> x >> y >> z;) nodes[{x, y}] = IsBlank(z) ? kBlankHeight : z;
        return nodes;
    }

    /// Runs one process over the grid and compares each node with where it has gone.
    static void Expect(const std::string& choice, const std::string& suffix, const Moved& moved) {
        const Played played = Play("open frmSurfFns\nset frmSurfFns.chkPlotSurfer off\n" + choice +
                                   "set frmSurfFns.File2 a.grd\npress frmSurfFns.cmdProcess\n");
        ASSERT_EQ(played.Status, kStatusGood) << suffix;
        Nodes expected;
        for (const auto& [place, z] : ByGdal("a.grd")) {
            const auto [newPlace, newZ] = moved(place.first, place.second, z);
            expected[newPlace] = z == kBlankHeight ? kBlankHeight : newZ;
        }
        ASSERT_EQ(expected.size(), 54U);
        EXPECT_EQ(ByGdal("a" + suffix + ".grd"), expected) << suffix;
    }
    static std::string On(const std::string& option) { return "set frmSurfFns." + option + " on\n"; }

    TempFolder folder_;
    FileTable files_;
};

TEST_F(ProcessesSeenByGdal, MirrorsSwapPlacesOrHeights) {
    Expect("", "mx", [](double x, double y, double z) { return std::pair{std::pair{kXMin + kXMax - x, y}, z}; });
    Expect(On("optMirrorY"), "my", [](double x, double y, double z) {
        return std::pair{std::pair{x, kYMin + kYMax - y}, z};
    });
    // Heights lie between -3 and 4.5.
    Expect(On("optMirrorZ"), "mz", [](double x, double y, double z) { return std::pair{std::pair{x, y}, 1.5 - z}; });
}

TEST_F(ProcessesSeenByGdal, AMouldIsTurnedOver) {
    Expect(On("optMouldRotate"), "mr", [](double x, double y, double z) {
        return std::pair{std::pair{kXMin + kXMax - x, y}, 1.5 - z};
    });
}

TEST_F(ProcessesSeenByGdal, TurnsAreClockwiseAndKeepTheLowerLeftCorner) {
    const std::string rotate = On("optRotate");
    // East goes to south, north to east.
    Expect(rotate, "r90", [](double x, double y, double z) {
        return std::pair{std::pair{kXMin + (y - kYMin), kYMin + (kXMax - x)}, z};
    });
    Expect(rotate + On("optRotate180"), "r180", [](double x, double y, double z) {
        return std::pair{std::pair{kXMin + (kXMax - x), kYMin + (kYMax - y)}, z};
    });
    Expect(rotate + On("optRotate270"), "r270", [](double x, double y, double z) {
        return std::pair{std::pair{kXMin + (kYMax - y), kYMin + (x - kXMin)}, z};
    });
}

}  // namespace
}  // namespace crownlab
