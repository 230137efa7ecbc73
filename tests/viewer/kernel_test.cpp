#include "viewer/kernel.h"

#include <gtest/gtest.h>

#include <cmath>

#include "viewer/surface_families.h"

namespace crownlab {
namespace {

double SlowKernelSum(const SurfaceGrid& work, const Kernel& kernel, int i, int j) {
    double sum = 0;
    for (int dj = -kernel.k; dj <= kernel.k; ++dj) {
        for (int di = -kernel.k; di <= kernel.k; ++di) {
            if (i + di < 1 || i + di > work.NumX || j + dj < 1 || j + dj > work.NumY) continue;
            const int at = (dj + kernel.k) * (2 * kernel.k + 1) + di + kernel.k;
            sum += kernel.Weights.at(static_cast<std::size_t>(at)) * work.z(i + di, j + dj);
        }
    }
    return sum;
}

double SlowCusp(const SurfaceGrid& work, const CuspOptions& options, int i, int j) {
    double maximum = -1e10;
    for (int dj = -options.k; dj <= options.k; ++dj) {
        for (int di = -options.k; di <= options.k; ++di) {
            if (i + di < 1 || i + di > work.NumX || j + dj < 1 || j + dj > work.NumY) continue;
            if (work.z(i + di, j + dj) > maximum) maximum = work.z(i + di, j + dj);
        }
    }
    const double z = work.z(i, j);
    if (z < options.MinCuspValue) return options.WorkZMin;
    if (maximum != 0 && z != 0 && z + options.CuspDifference >= maximum) return options.WorkZMax;
    return options.WorkZMin;
}

TEST(Kernel, EqualsTheSlowVersion) {
    SCOPED_TRACE(kRandomSeed);
    RandomNumbers numbers;
    for (const NamedSurface& surface : SurfaceFamilies(numbers)) {
        for (int k = 0; k <= 3; ++k) {
            SCOPED_TRACE(::testing::Message() << surface.Name << ", k = " << k);
            const SurfaceGrid& work = surface.Grid;
            Kernel kernel{.k = k, .Weights = {}};
            for (int at = 0; at < (2 * k + 1) * (2 * k + 1); ++at) kernel.Weights.push_back(4 * Share(numbers) - 2);
            const CuspOptions options{.k = k,
                                      .MinCuspValue = 6 * Share(numbers) - 3,
                                      .CuspDifference = numbers.Below(2) == 0 ? 0 : Share(numbers),
                                      .WorkZMin = -7,
                                      .WorkZMax = 70};
            SlowArray sums(work.NumX, work.NumY, 0);
            SlowArray cusps(work.NumX, work.NumY, 0);
            for (int j = 1; j <= work.NumY; ++j) {
                for (int i = 1; i <= work.NumX; ++i) {
                    sums(i, j) = SlowKernelSum(work, kernel, i, j);
                    cusps(i, j) = SlowCusp(work, options, i, j);
                }
            }
            ASSERT_TRUE(SameCells(sums, ApplyKernel(work, kernel)));
            ASSERT_TRUE(SameCells(cusps, DetectCusps(work, options)));
        }
    }
}

TEST(Kernel, TheLaplacianOfAPlaneIsZeroInside) {
    const SurfaceGrid plane = MakeGrid(4, 4, [](int i, int j) { return 2.0 * i + 8.0 * j; });
    const SurfaceGrid result = ApplyKernel(plane, LaplacianKernel());
    EXPECT_EQ(result.z(2, 2), 0);
    EXPECT_EQ(result.z(3, 3), 0);
    // Cell (1, 1) of height 10 has two neighbours: 12 + 18 - 4 * 10. Cell (2, 1) lacks the one below.
    EXPECT_EQ(result.z(1, 1), -10);
    EXPECT_EQ(result.z(2, 1), 10 + 14 + 20 - 4 * 12);
    EXPECT_EQ(result.z(1, 2), 10 + 26 + 20 - 4 * 18);
}

TEST(Kernel, EmptyCellsGoIntoTheSumAsTheyAre) {
    const SurfaceGrid row = MakeGrid(3, 1, [](int i, int) { return i == 3 ? kEmptyCellZ : 1.0; });
    EXPECT_EQ(ApplyKernel(row, LaplacianKernel()).Z, (std::vector<double>{1 - 4, 1 + 9999 - 4, 1 - 4 * 9999}));
}

TEST(Kernel, AFlatCellOfHeightZeroIsNoCusp) {
    const CuspOptions options{.k = 1, .WorkZMin = 1, .WorkZMax = 2};
    EXPECT_EQ(DetectCusps(MakeGrid(3, 3, [](int, int) { return 0.0; }), options).Z, std::vector<double>(9, 1));
    EXPECT_EQ(DetectCusps(MakeGrid(3, 3, [](int, int) { return 5.0; }), options).Z, std::vector<double>(9, 2));
    // A cell of exactly the least value counts.
    EXPECT_EQ(
        DetectCusps(MakeGrid(1, 1, [](int, int) { return 5.0; }), {.MinCuspValue = 5, .WorkZMin = 1, .WorkZMax = 2})
            .Z.front(),
        2);
    const CuspOptions above{.MinCuspValue = std::nextafter(5, 6), .WorkZMin = 1, .WorkZMax = 2};
    EXPECT_EQ(DetectCusps(MakeGrid(1, 1, [](int, int) { return 5.0; }), above).Z.front(), 1);
}

}  // namespace
}  // namespace crownlab
