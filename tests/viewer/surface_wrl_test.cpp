#include "viewer/surface_wrl.h"

#include <gtest/gtest.h>

#include "basis/result_file.h"
#include "grids.h"
#include "support/expect_failure.h"
#include "support/temp_folder.h"

namespace crownlab {
namespace {

class SurfaceWrlTest : public ::testing::Test {
protected:
    std::string Written(const SurfaceGrid& grid, const SurfaceModel& model) {
        WriteSurfaceWrl(files_, folder_ / "P1.wrl", grid, model);
        return FileBytes(folder_ / "P1.wrl");
    }
    /// The rest of the first line that starts with `start`, blanks before it disregarded.
    static std::string LineBehind(const std::string& text, const std::string& start) {
        const std::size_t at = text.find(" " + start + " ");
        if (at == std::string::npos) return "(none)";
        const std::size_t value = at + start.size() + 2;
        return text.substr(value, text.find('\r', value) - value);
    }

    TempFolder folder_;
    FileTable files_;
};

TEST_F(SurfaceWrlTest, WholeFile) {
    const std::string text = Written(GridOfRows({{1.5, kEmptyCellZ, -2},  //
                                                 {0.00005, 0.00016, 10}}),
                                     {.StepX = 0.05, .StepY = 0.025, .ZLow = -2});
    const std::string expected =
        "#VRML V2.0 utf8\r\n# VRML of P1.wrl\r\n\r\n"
        "NavigationInfo {\r\n  type [ \"ANY\",\r\n    \"EXAMINE\" ]\r\n}\r\n\r\n"
        "Background {\r\n  skyColor [ 1 1 1, 1 1 1, 1 1 1 ]\r\n  skyAngle [ 1.309, 1.571 ]\r\n"
        "  groundColor [ 1 1 1, 1 1 1 ]\r\n  groundAngle 1.57 }\r\n\r\n"
        "DirectionalLight {\r\n  direction -1 -1 -1\r\n  intensity 0.25 }\r\n\r\n"
        // Scale 1000 / 0.1; seen from twice the width above the low level, over the middle.
        "Viewpoint {\r\n  description \"Start\"\r\n  position 500 -18000 250\r\n  orientation 0 0.707 0.707 3.141 "
        "}\r\n\r\n"
        "Transform {\r\n  scale 10000 10000 10000\r\n  children [\r\n    Shape {\r\n      appearance Appearance {\r\n"
        "        material Material {\r\n          diffuseColor 0 0.25 1.0\r\n          shininess 0.2 }\r\n      }\r\n"
        "      geometry ElevationGrid {\r\n        xDimension 3\r\n        zDimension 2\r\n        xSpacing 0.05\r\n"
        "        zSpacing 0.025\r\n        solid FALSE\r\n        creaseAngle 30\r\n        height [\r\n"
        " 1.5 -2 -2 \r\n"
        " 0  .0002  10 \r\n"
        "        ]\r\n      }\r\n    }\r\n  ]\r\n}\r\n";
    EXPECT_EQ(text, expected);
}

TEST_F(SurfaceWrlTest, EveryModelIsAboutAsWide) {
    const SurfaceGrid grid = GridOfRows({{1, 2, 3, 4, 5}});
    EXPECT_EQ(LineBehind(Written(grid, {.StepX = 10000, .StepY = 10000, .ZLow = 0}), "scale"), "0.025 0.025 0.025");
    EXPECT_EQ(LineBehind(Written(grid, {.StepX = 0.3, .StepY = 0.3, .ZLow = 0}), "scale"), "833.333 833.333 833.333");
}

TEST_F(SurfaceWrlTest, ScaleIsNeverZero) {
    const std::string text = Written(GridOfRows({{1, 2, 3}}), {.StepX = 1e8, .StepY = 1e8, .ZLow = 0});
    EXPECT_EQ(LineBehind(text, "scale"), "0.001 0.001 0.001");
}

TEST_F(SurfaceWrlTest, ATallModelIsSeenFromFartherAway) {
    const std::string text = Written(GridOfRows({{1, 1}, {1, 1}, {1, 1}, {1, 1}}), {.StepX = 1, .StepY = 1, .ZLow = 1});
    EXPECT_EQ(LineBehind(text, "position"), "500 7000 1500");
}

TEST_F(SurfaceWrlTest, Refusals) {
    const SurfaceModel model{.StepX = 1, .StepY = 1, .ZLow = 0};
    EXPECT_TRUE(FailsWith(FailureKind::SubscriptOutOfRange, [&] { Written({}, model); }));
    EXPECT_TRUE(FailsWith(FailureKind::DivisionByZero, [&] { Written(GridOfRows({{1}, {2}}), model); }));
    EXPECT_EQ(folder_.EntryCount(), 0u);
}

}  // namespace
}  // namespace crownlab
