#include "viewer/surface_area.h"

#include <gtest/gtest.h>

#include <cmath>
#include <random>

#include "grids.h"

namespace crownlab {
namespace {

constexpr double kEmpty = kEmptyCellZ;

SurfaceGrid Plate(int numX, int numY, double z) {
    SurfaceGrid grid;
    grid.NumX = numX;
    grid.NumY = numY;
    grid.Z.assign(static_cast<std::size_t>(numX) * static_cast<std::size_t>(numY), z);
    return grid;
}

/// Area of a triangle in space by the cross product of two sides.
double TriangleArea(SurfacePoint a, SurfacePoint b, SurfacePoint c) {
    const double ux = b.x - a.x, uy = b.y - a.y, uz = b.z - a.z;
    const double vx = c.x - a.x, vy = c.y - a.y, vz = c.z - a.z;
    return 0.5 * std::hypot(uy * vz - uz * vy, uz * vx - ux * vz, ux * vy - uy * vx);
}

TEST(CellArea, LevelIsOne) {
    EXPECT_EQ(CellArea(0, 0, 0, 0), 1);
    EXPECT_EQ(CellArea(-7.5, -7.5, -7.5, -7.5), 1);
}

TEST(CellArea, IsTheMeanOfBothCuttings) {
    std::mt19937 random(11);
    for (int i = 0; i < 200; ++i) {
        const auto height = [&random] { return random() % 1000 / 100.0; };
        const SurfacePoint a{0, 0, height()}, b{0, 1, height()}, c{1, 1, height()}, d{1, 0, height()};
        const double alongBD = TriangleArea(a, b, d) + TriangleArea(c, b, d);
        const double alongAC = TriangleArea(b, a, c) + TriangleArea(d, a, c);
        EXPECT_NEAR(CellArea(a.z, b.z, c.z, d.z), (alongBD + alongAC) / 2, 1e-12);
    }
}

TEST(CellArea, IsTheSameMirroredAndTurned) {
    const double area = CellArea(0, 1, 0, 0);
    EXPECT_GT(area, 1);
    for (const double other : {CellArea(1, 0, 0, 0), CellArea(0, 0, 1, 0), CellArea(0, 0, 0, 1)})
        EXPECT_EQ(other, area);
    EXPECT_EQ(CellArea(1, 2, 3, 5), CellArea(5, 3, 2, 1));
    EXPECT_EQ(CellArea(1, 2, 3, 5), CellArea(2, 1, 5, 3));
}

TEST(CellArea, StepOfOneBetweenTwoSides) { EXPECT_NEAR(CellArea(0, 0, 1, 1), std::sqrt(2.0), 1e-15); }

TEST(MeasureTooth, FlatPlate) {
    for (const int n : {1, 2, 3, 24}) {
        const ToothMeasures measures = MeasureTooth(Plate(n, n, 1), 0);
        EXPECT_EQ(measures.SurfaceArea, (n - 1) * (n - 1));
        EXPECT_EQ(measures.Volume, n * n);
    }
}

TEST(MeasureTooth, TallAndWidePlates) {
    const ToothMeasures tall = MeasureTooth(Plate(1, 5, 2), 0);
    EXPECT_EQ(tall.SurfaceArea, 0);
    EXPECT_EQ(tall.Volume, 10);
    const ToothMeasures wide = MeasureTooth(Plate(6, 2, 2), 0);
    EXPECT_EQ(wide.SurfaceArea, 5);
    EXPECT_EQ(wide.Volume, 24);
}

TEST(MeasureTooth, NoCells) {
    const ToothMeasures measures = MeasureTooth(SurfaceGrid{}, 0);
    EXPECT_EQ(measures.SurfaceArea, 0);
    EXPECT_EQ(measures.Volume, 0);
}

TEST(MeasureTooth, CellsAtZeroLevelAreLeftOutWithTheirVolume) {
    const ToothMeasures atLevel = MeasureTooth(Plate(3, 3, 0.1), 0.1);
    EXPECT_EQ(atLevel.SurfaceArea, 0);
    // The five cells of the last row and column have no square above them and are never left out.
    EXPECT_DOUBLE_EQ(atLevel.Volume, 0.5);
    const ToothMeasures aboveLevel = MeasureTooth(Plate(3, 3, 0.1), 0);
    EXPECT_EQ(aboveLevel.SurfaceArea, 4);
    EXPECT_DOUBLE_EQ(aboveLevel.Volume, 0.9);
}

TEST(MeasureTooth, OneOtherCornerKeepsTheCell) {
    const SurfaceGrid grid = GridOfRows({{0, 3},  //
                                         {0, 0}});
    const ToothMeasures measures = MeasureTooth(grid, 0);
    EXPECT_EQ(measures.SurfaceArea, CellArea(0, 0, 3, 0));
    EXPECT_EQ(measures.Volume, 3);
}

TEST(MeasureTooth, EmptyCellsCountAsTheyStand) {
    const SurfaceGrid grid = GridOfRows({{kEmpty, 1}, {1, 1}});
    const ToothMeasures measures = MeasureTooth(grid, 0);
    EXPECT_EQ(measures.SurfaceArea, CellArea(1, kEmpty, 1, 1));
    EXPECT_EQ(measures.Volume, kEmpty + 3);
}

}  // namespace
}  // namespace crownlab
