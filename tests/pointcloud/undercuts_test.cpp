#include "pointcloud/undercuts.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cstdint>

#include "pointcloud/clouds.h"
#include "pointcloud/literal_bins.h"
#include "support/expect_failure.h"

namespace crownlab {
namespace {

constexpr int kMostNeighbours = 1000;

/// What a run over a cloud leaves.
struct Outcome {
    PointCloud Kept;
    PointCloud Rejected;
    bool Retried = false;
};

/// Neighbours of one point, found bin by bin.
struct LiteralSearch {
    int Count = 0;
    std::array<double, kMostNeighbours> NeighbourZ{};
};

LiteralSearch SearchLiterally(const LiteralBins& b, const CloudPoint& p, int bx, int by, double radius) {
    const double reach = std::max(std::floor(radius / b.BinSize), 1.0);
    const int binReach = reach > 1e6 ? 1000000 : static_cast<int>(reach);
    LiteralSearch search;
    for (int cy = by - binReach; cy <= by + binReach; ++cy) {
        if (cy <= 0 || cy > b.NumBinsY) continue;
        for (int cx = bx - binReach; cx <= bx + binReach; ++cx) {
            if (cx <= 0 || cx > b.NumBinsX) continue;
            for (int k = 1; k <= b.Count(cx, cy); ++k) {
                const CloudPoint& q = b.Point(cx, cy, k);
                if (!(q.x > p.x - radius && q.x < p.x + radius)) continue;
                if (!(q.y > p.y - radius && q.y < p.y + radius)) continue;
                if (++search.Count > kMostNeighbours) throw Failure(FailureKind::SubscriptOutOfRange, "NeighbourZ");
                search.NeighbourZ[static_cast<std::size_t>(search.Count - 1)] = q.z;
            }
        }
    }
    return search;
}

/// The tool step by step.
Outcome RemoveLiterally(const LiteralBins& b, const UndercutOptions& options) {
    Outcome outcome;
    for (int by = 1; by <= b.NumBinsY; ++by) {
        for (int bx = 1; bx <= b.NumBinsX; ++bx) {
            double searchRadius = options.PrimaryRadius;
            for (int k = 1; k <= b.Count(bx, by); ++k) {
                const CloudPoint p = b.Point(bx, by, k);
                LiteralSearch search = SearchLiterally(b, p, bx, by, searchRadius);
                while (options.FindNeighbour && search.Count == 0) {
                    outcome.Retried = true;
                    searchRadius = searchRadius + options.RadiusIncrement * options.PrimaryRadius;
                    search = SearchLiterally(b, p, bx, by, searchRadius);
                }
                if (search.Count == 0) throw Failure(FailureKind::DivisionByZero, "NeighbourZMean");
                double maxZ = -1000000;
                for (int n = 0; n < search.Count; ++n) {
                    if (search.NeighbourZ[static_cast<std::size_t>(n)] > maxZ)
                        maxZ = search.NeighbourZ[static_cast<std::size_t>(n)];
                }
                const bool reject =
                    options.ByThreshold ? maxZ - options.Threshold > p.z : p.z < maxZ * options.Proportion;
                (reject ? outcome.Rejected : outcome.Kept).push_back(p);
            }
        }
    }
    return outcome;
}

Outcome Remove(const PointCloud& cloud, double binSize, const UndercutOptions& options) {
    const BinGrid grid = FillBins(cloud, FindCloudExtents(cloud), binSize, binSize, kUndercutBins);
    std::size_t last = 0;
    const UndercutResult result = FindUndercuts(grid, options, [&](std::size_t done) { EXPECT_EQ(done, ++last); });
    EXPECT_EQ(last, cloud.size());
    EXPECT_EQ(result.Rejected.size(), cloud.size());
    Outcome outcome;
    outcome.Retried = result.Retried;
    for (std::size_t i = 0; i < grid.X.size(); ++i) {
        (result.Rejected[i] != 0 ? outcome.Rejected : outcome.Kept).push_back({grid.X[i], grid.Y[i], grid.Z[i]});
    }
    return outcome;
}

UndercutOptions Threshold(double radius, double threshold) {
    UndercutOptions options;
    options.PrimaryRadius = radius;
    options.Threshold = threshold;
    return options;
}

UndercutOptions Proportion(double radius, double proportion) {
    UndercutOptions options;
    options.PrimaryRadius = radius;
    options.ByThreshold = false;
    options.Proportion = proportion;
    return options;
}

TEST(FindUndercuts, DecidesAllFamiliesAsTheSlowSearch) {
    std::size_t rejected = 0;
    for (const NamedCloud& cloud : AllCloudFamilies()) {
        const LiteralBins bins = FillLiteralBins(cloud.Points, cloud.BinSize, cloud.BinSize, true);
        for (const double inBins : {0.3, 1.0, 1.7, 2.5}) {
            for (const UndercutOptions& options :
                 {Threshold(cloud.BinSize * inBins, 0.3), Threshold(cloud.BinSize * inBins, 0),
                  Proportion(cloud.BinSize * inBins, 0.9), Proportion(cloud.BinSize * inBins, -1)}) {
                SCOPED_TRACE(cloud.Name + ", radius " + std::to_string(inBins) + " bins");
                const Outcome literal = RemoveLiterally(bins, options);
                const Outcome found = Remove(cloud.Points, cloud.BinSize, options);
                EXPECT_EQ(found.Kept, literal.Kept);
                EXPECT_EQ(found.Rejected, literal.Rejected);
                EXPECT_FALSE(found.Retried);
                rejected += literal.Rejected.size();
            }
        }
    }
    EXPECT_GT(rejected, 1000u);
}

TEST(FindUndercuts, AgreesWithEveryPairOnAWideSparsePlan) {
    // Micrometres with small bins: a table of the plan would have 10^10 bins. With bins of the radius the nine
    // bins hold the whole square, so every pair of points can be held against each other instead.
    RandomNumbers random;
    PointCloud cloud;
    for (int i = 0; i < 1500; ++i) {
        const CloudPoint p{RandomDecimal(random, 0, 6000), RandomDecimal(random, 0, 500), RandomDecimal(random, 0, 3)};
        cloud.push_back(p);
        cloud.push_back({p.x + RandomDecimal(random, 0, 0.03), p.y + RandomDecimal(random, 0, 0.03),
                         p.z + RandomDecimal(random, -1, 1)});
    }
    const UndercutOptions options = Threshold(0.02, 0.25);
    const Outcome found = Remove(cloud, 0.02, options);
    const auto isUndercut = [&](const CloudPoint& p) {
        return std::any_of(cloud.begin(), cloud.end(), [&](const CloudPoint& q) {
            const bool inside = q.x > p.x - 0.02 && q.x < p.x + 0.02 && q.y > p.y - 0.02 && q.y < p.y + 0.02;
            return inside && q.z - options.Threshold > p.z;
        });
    };
    EXPECT_EQ(found.Kept.size() + found.Rejected.size(), cloud.size());
    EXPECT_GT(found.Rejected.size(), 100u);
    for (const CloudPoint& p : found.Kept) EXPECT_FALSE(isUndercut(p));
    for (const CloudPoint& p : found.Rejected) EXPECT_TRUE(isUndercut(p));
}

TEST(FindUndercuts, KeepsAPointThatStandsAlone) {
    const Outcome outcome = Remove({{1, 2, -3}}, 0.02, Threshold(0.02, 0.08));
    EXPECT_EQ(outcome.Kept, (PointCloud{{1, 2, -3}}));
    EXPECT_TRUE(outcome.Rejected.empty());
}

TEST(FindUndercuts, RejectsTheLowerOfTwo) {
    const Outcome outcome = Remove({{1, 1, 0.5}, {1, 1, 1.0}}, 0.02, Threshold(0.02, 0.2));
    EXPECT_EQ(outcome.Kept, (PointCloud{{1, 1, 1.0}}));
    EXPECT_EQ(outcome.Rejected, (PointCloud{{1, 1, 0.5}}));
}

TEST(FindUndercuts, TestsTheThresholdStrictly) {
    EXPECT_TRUE(Remove({{1, 1, 0.75}, {1, 1, 1.0}}, 1, Threshold(1, 0.25)).Rejected.empty());
    EXPECT_EQ(Remove({{1, 1, 0.7499}, {1, 1, 1.0}}, 1, Threshold(1, 0.25)).Rejected.size(), 1u);
}

TEST(FindUndercuts, TestsTheSquareStrictly) {
    const UndercutOptions options = Threshold(0.5, 0.25);
    for (const CloudPoint& beside :
         {CloudPoint{1.5, 1, 9}, CloudPoint{0.5, 1, 9}, CloudPoint{1, 1.5, 9}, CloudPoint{1, 0.5, 9}}) {
        EXPECT_TRUE(Remove({{1, 1, 0}, beside}, 0.5, options).Rejected.empty());
    }
    // A square, not a circle.
    EXPECT_EQ(Remove({{1, 1, 0}, {1.499, 1.499, 9}}, 0.5, options).Rejected.size(), 1u);
}

TEST(FindUndercuts, TakesProportionsOfTheHeightItself) {
    EXPECT_TRUE(Remove({{1, 1, 0.95}, {1, 1, 1.0}}, 1, Proportion(1, 0.9)).Rejected.empty());
    EXPECT_TRUE(Remove({{1, 1, 0.9}, {1, 1, 1.0}}, 1, Proportion(1, 0.9)).Rejected.empty());
    EXPECT_EQ(Remove({{1, 1, 0.89}, {1, 1, 1.0}}, 1, Proportion(1, 0.9)).Rejected.size(), 1u);
    // Below zero the bound lies above the highest point, which rejects itself too.
    EXPECT_EQ(Remove({{1, 1, -1.0}, {1, 1, -2.0}}, 1, Proportion(1, 0.9)).Rejected.size(), 2u);
}

TEST(FindUndercuts, LooksNoFartherThanItsBins) {
    // Bins of 0.01 and a radius of 0.025: two bins to each side. The point at the low side of bin 4 sees up to
    // the end of bin 6, 0.029 on; from the high side of its bin only 0.0201.
    const UndercutOptions options = Threshold(0.025, 0.1);
    EXPECT_TRUE(Remove({{0.0399, 0, 0}, {0.0601, 0, 9}}, 0.01, options).Rejected.empty());
    EXPECT_EQ(Remove({{0.0301, 0, 0}, {0.0549, 0, 9}}, 0.01, options).Rejected.size(), 1u);
    // Bins of 0.03 and a radius of 0.02: one bin to each side, though the floor is 0.
    EXPECT_EQ(Remove({{0.0299, 0, 0}, {0.0301, 0, 9}}, 0.03, Threshold(0.02, 0.1)).Rejected.size(), 1u);
}

TEST(FindUndercuts, StartsTheMaximumAtMinusAMillion) {
    EXPECT_TRUE(Remove({{0, 0, -1000000.05}}, 1, Threshold(1, 0.08)).Rejected.empty());
    EXPECT_EQ(Remove({{0, 0, -1000000.1}}, 1, Threshold(1, 0.08)).Rejected.size(), 1u);
}

TEST(FindUndercuts, ByThresholdBelowZeroRejectsAll) {
    EXPECT_EQ(Remove({{0, 0, 1}, {0, 0, 2}}, 1, Threshold(1, -0.5)).Rejected.size(), 2u);
}

TEST(FindUndercuts, HoldsAThousandNeighbours) {
    const PointCloud fits(1000, CloudPoint{1, 1, 1});
    EXPECT_EQ(Remove(fits, 1, Threshold(1, 0.1)).Kept.size(), 1000u);
    const PointCloud tooMany(1001, CloudPoint{1, 1, 1});
    const BinGrid grid = FillBins(tooMany, FindCloudExtents(tooMany), 1, 1, kUndercutBins);
    EXPECT_TRUE(FailsWith(
        FailureKind::SubscriptOutOfRange, [&] { FindUndercuts(grid, Threshold(1, 0.1), [](std::size_t) {}); },
        "NeighbourZ"));
    // Of points beyond the square there may be any number.
    PointCloud beside(1000, CloudPoint{1, 1, 1});
    beside.resize(5000, CloudPoint{1.6, 1, 1});
    beside.resize(5001, CloudPoint{1.3, 1, 1});
    EXPECT_TRUE(FailsWith(FailureKind::SubscriptOutOfRange, [&] {
        Remove({beside.begin() + 4000, beside.end()}, 1, Threshold(0.5, 1));
    }));
    EXPECT_EQ(Remove({beside.begin(), beside.begin() + 2000}, 1, Threshold(0.5, 1)).Kept.size(), 2000u);
}

TEST(FindUndercuts, RefusesSearchesThatNeverEnd) {
    const auto run = [](double radius, bool findNeighbour) {
        UndercutOptions options = Threshold(radius, 0.1);
        options.FindNeighbour = findNeighbour;
        Remove({{1, 1, 1}}, 1, options);
    };
    EXPECT_TRUE(FailsWith(FailureKind::InvalidCall, [&] { run(0, true); }));
    EXPECT_TRUE(FailsWith(FailureKind::InvalidCall, [&] { run(-0.5, true); }));
    EXPECT_TRUE(FailsWith(FailureKind::InvalidCall, [&] { run(1e-300, true); }));
    EXPECT_TRUE(FailsWith(FailureKind::DivisionByZero, [&] { run(0, false); }));
    EXPECT_TRUE(FailsWith(FailureKind::DivisionByZero, [&] { run(-0.5, false); }));
}

/// A radius smaller than the spacing of floating-point numbers at the point finds nothing, not even the point,
/// until it has grown; the larger one serves the points of the bin that come later, and no others.
TEST(FindUndercuts, KeepsAnEnlargedRadiusForTheRestOfTheBin) {
    UndercutOptions options = Threshold(1e-13, 0.5);
    options.RadiusIncrement = 0.8;
    const double step = std::nextafter(1023.0, 2000.0) - 1023.0;
    const CloudPoint coarse{1025, 1025, 0};  // needs 1.8e-13
    const CloudPoint low{1023, 1023, 1};     // sees the next number only with 1.8e-13
    const CloudPoint high{1023 + step, 1023, 2};
    const Outcome after = Remove({coarse, low, high}, 10, options);
    EXPECT_TRUE(after.Retried);
    EXPECT_EQ(after.Rejected, (PointCloud{low}));
    const Outcome before = Remove({low, high, coarse}, 10, options);
    EXPECT_TRUE(before.Retried);
    EXPECT_TRUE(before.Rejected.empty());
    // With the coarse point in an earlier bin the radius starts anew.
    const Outcome otherBin = Remove({{1030, 1013, 0}, low, high}, 10, options);
    EXPECT_TRUE(otherBin.Rejected.empty());
    for (const PointCloud& cloud : {PointCloud{coarse, low, high}, PointCloud{low, high, coarse}}) {
        const Outcome literal = RemoveLiterally(FillLiteralBins(cloud, 10, 10, true), options);
        EXPECT_EQ(Remove(cloud, 10, options).Kept, literal.Kept);
        EXPECT_EQ(literal.Retried, true);
    }
}

}  // namespace
}  // namespace crownlab
