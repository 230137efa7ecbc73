#include "pointcloud/enamel_thickness.h"

#include <gmock/gmock.h>

#include <cmath>
#include <map>
#include <tuple>

#include "pointcloud/cloud.h"
#include "pointcloud/nearest_tree.h"
#include "support/expect_failure.h"
#include "support/random_numbers.h"

namespace crownlab {

void PrintTo(const ThicknessSearch& s, std::ostream* out) {
    *out << "{" << s.Point << " faces " << s.FaceX << " " << s.FaceY << " " << s.FaceZ << " nearest " << s.Nearest
         << " reach " << s.ShellReach << "}";
}

namespace {

/// All that a run tells.
struct Outcome {
    std::vector<double> Nearest;
    std::vector<ThicknessSearch> Searches;
};

Outcome Measure(const PointCloud& a, const PointCloud& b, double boxSize) {
    Outcome run;
    run.Nearest = EnamelThickness(a, b, boxSize, [&](const ThicknessSearch& s) { run.Searches.push_back(s); });
    return run;
}

/// The slow way: bins that are really filled, and a box that is scanned whole again with each shell.
class ShellByShell {
public:
    ShellByShell(const PointCloud& a, const PointCloud& b, double size) : a_(a), b_(b), size_(size) {
        const CloudExtents ea = FindCloudExtents(a);
        const CloudExtents eb = FindCloudExtents(b);
        Lay(0, std::min(ea.XMin, eb.XMin), std::max(ea.XMax, eb.XMax));
        Lay(1, std::min(ea.YMin, eb.YMin), std::max(ea.YMax, eb.YMax));
        Lay(2, std::min(ea.ZMin, eb.ZMin), std::max(ea.ZMax, eb.ZMax));
        for (std::size_t j = 0; j < a.size(); ++j) binsA_[BinOf(a[j])].push_back(j);
        for (std::size_t j = 0; j < b.size(); ++j) binsB_[BinOf(b[j])].push_back(j);
    }

    Outcome Measure() const {
        Outcome run;
        run.Nearest.resize(a_.size());
        for (const auto& [bin, members] : binsA_) {
            for (const std::size_t j : members) {
                run.Searches.push_back(Search(j, bin));
                run.Nearest[j] = run.Searches.back().Nearest;
            }
        }
        return run;
    }

private:
    using Bin = std::tuple<long, long, long>;  // z, y, x: the order in which bins are visited

    void Lay(int axis, double low, double high) {
        origin_[axis] = size_ * std::floor(low / size_);
        const double limit = size_ * (std::floor(high / size_) + 1);
        count_[axis] = std::lround(std::fabs(origin_[axis] - limit) / size_);
    }
    long NumberAlong(double x, int axis) const {
        return static_cast<long>(std::floor((x - origin_[axis]) / size_)) + 1;
    }
    Bin BinOf(const CloudPoint& p) const { return {NumberAlong(p.z, 2), NumberAlong(p.y, 1), NumberAlong(p.x, 0)}; }

    double Face(double x, int axis, long number, long reach) const {
        const double low = origin_[axis] + size_ * static_cast<double>(number - 1 - reach);
        const double high = origin_[axis] + size_ * static_cast<double>(number + reach);
        return std::min(std::fabs(x - low), std::fabs(x - high));
    }

    ThicknessSearch Search(std::size_t j, const Bin& bin) const {
        const CloudPoint p = a_[j];
        const auto [bz, by, bx] = bin;
        double nearest = 1000000;
        for (long reach = 0;; ++reach) {
            for (long z = std::max(1L, bz - reach); z <= std::min(count_[2], bz + reach); ++z) {
                for (long y = std::max(1L, by - reach); y <= std::min(count_[1], by + reach); ++y) {
                    for (long x = std::max(1L, bx - reach); x <= std::min(count_[0], bx + reach); ++x) {
                        const auto found = binsB_.find({z, y, x});
                        if (found == binsB_.end()) continue;
                        for (const std::size_t q : found->second) {
                            const double dx = p.x - b_[q].x;
                            const double dy = p.y - b_[q].y;
                            const double dz = p.z - b_[q].z;
                            const double distance = std::sqrt(dx * dx + dy * dy + dz * dz);
                            if (distance < nearest) nearest = distance;
                        }
                    }
                }
            }
            if (nearest == 1000000) continue;
            const double faceX = Face(p.x, 0, bx, reach);
            const double faceY = Face(p.y, 1, by, reach);
            const double faceZ = Face(p.z, 2, bz, reach);
            if (faceX < nearest || faceY < nearest || faceZ < nearest) continue;
            return {j, p, faceX, faceY, faceZ, nearest, reach};
        }
    }

    const PointCloud& a_;
    const PointCloud& b_;
    double size_;
    double origin_[3] = {};
    long count_[3] = {};
    std::map<Bin, std::vector<std::size_t>> binsA_;
    std::map<Bin, std::vector<std::size_t>> binsB_;
};

void ExpectAsShellByShell(const PointCloud& a, const PointCloud& b, double boxSize) {
    const Outcome expected = ShellByShell(a, b, boxSize).Measure();
    const Outcome run = Measure(a, b, boxSize);
    EXPECT_EQ(run.Nearest, expected.Nearest) << "seed " << kRandomSeed << ", bin size " << boxSize;
    ASSERT_EQ(run.Searches.size(), expected.Searches.size());
    for (std::size_t i = 0; i < run.Searches.size(); ++i) {
        ASSERT_EQ(run.Searches[i], expected.Searches[i]) << "search " << i << ", bin size " << boxSize;
    }
}

/// A coordinate from `low` on over `width`, at `decimals` (0: whole numbers).
double Coordinate(RandomNumbers& random, double low, double width, double scale) {
    return low + std::floor(static_cast<double>(random.Below(1u << 30)) / (1u << 30) * width * scale) / scale;
}

PointCloud RandomCloud(RandomNumbers& random, std::size_t count, CloudPoint low, CloudPoint width, double scale) {
    PointCloud cloud;
    for (std::size_t i = 0; i < count; ++i) {
        cloud.push_back({Coordinate(random, low.x, width.x, scale), Coordinate(random, low.y, width.y, scale),
                         Coordinate(random, low.z, width.z, scale)});
    }
    return cloud;
}

TEST(EnamelThickness, RandomCloudsAreMeasuredAsShellByShell) {
    RandomNumbers random;
    for (const double size : {0.25, 0.5, 1.0, 3.0}) {
        for (int round = 0; round < 10; ++round) {
            const PointCloud a = RandomCloud(random, 60, {-3, 1, -7}, {4, 3, 2}, 1e6);
            const PointCloud b = RandomCloud(random, 1 + random.Below(80), {-3, 1, -7}, {4, 3, 2}, 1e6);
            ExpectAsShellByShell(a, b, size);
        }
    }
}

TEST(EnamelThickness, PointsOnFacesAreMeasuredAsShellByShell) {
    // Coarse lattices, where points lie on faces of bins and many are equally near.
    RandomNumbers random;
    for (const double size : {0.25, 0.5, 1.0, 2.0}) {
        for (int round = 0; round < 20; ++round) {
            const PointCloud a = RandomCloud(random, 60, {-2, -4, 0}, {4, 5, 3}, 4);
            const PointCloud b = RandomCloud(random, 1 + random.Below(30), {-2, -4, 0}, {4, 5, 3}, 4);
            ExpectAsShellByShell(a, b, size);
        }
    }
}

TEST(EnamelThickness, BinSizesThatAreNoBinaryFractionsAreMeasuredAsShellByShell) {
    // Rounding puts some points on the other side of their bin's face than their number of bin tells.
    RandomNumbers random;
    for (const double size : {0.1, 0.3, 0.7}) {
        for (int round = 0; round < 40; ++round) {
            // From 0 on: rounding at a border of the plan would throw points off it.
            PointCloud a = RandomCloud(random, 50, {0, 0, 0}, {3, 2, 2}, 10);
            PointCloud b = RandomCloud(random, 1 + random.Below(20), {0, 0, 0}, {3, 2, 2}, 10);
            a.push_back({0, 0, 0});
            b.push_back({3.05, 2.05, 2.05});
            ExpectAsShellByShell(a, b, size);
        }
    }
}

TEST(EnamelThickness, FarCloudsAreMeasuredAsShellByShell) {
    RandomNumbers random;
    for (int round = 0; round < 5; ++round) {
        const PointCloud a = RandomCloud(random, 10, {0, 0, 0}, {1, 2, 1}, 1000);
        const PointCloud b = RandomCloud(random, 10, {9, -6, 8}, {1, 1, 2}, 1000);
        ExpectAsShellByShell(a, b, 0.5);
    }
    // Bins finer than the rounding of far-off coordinates.
    PointCloud a = RandomCloud(random, 20, {1e6, 1e6, 1e6}, {1e-8, 1e-8, 1e-8}, 1e10);
    PointCloud b = RandomCloud(random, 20, {1e6, 1e6, 1e6}, {1e-8, 1e-8, 1e-8}, 1e10);
    ExpectAsShellByShell(a, b, 3e-9);
    ExpectAsShellByShell(a, b, 1.0 / (1 << 30));
}

TEST(EnamelThickness, ShellsOfVeryManyBins) {
    // 40 million bins away: nobody can scan that, but the end of it is known.
    const Outcome run = Measure({{0.125, 0, 0}}, {{10000000.0 / 1024, 0, 0}}, 1.0 / 4096);
    ASSERT_EQ(run.Searches.size(), 1u);
    const ThicknessSearch& search = run.Searches[0];
    EXPECT_EQ(search.Nearest, 10000000.0 / 1024 - 0.125);
    // Own bin 513 along x, from 0.125: the faces of y and z start at 0, so their low ones come last.
    EXPECT_EQ(search.ShellReach, 40000000 - 512);
    EXPECT_EQ(search.FaceX, search.Nearest);
    EXPECT_EQ(search.FaceY, search.Nearest);
}

TEST(EnamelThickness, NearestIsThatOfAllPoints) {
    RandomNumbers random;
    const PointCloud a = RandomCloud(random, 2000, {-50, 3, -8}, {9, 7, 8}, 1e5);
    const PointCloud b = RandomCloud(random, 3000, {-49, 2, -9}, {8, 9, 8}, 1e5);
    const Outcome run = Measure(a, b, 0.25);
    for (std::size_t j = 0; j < a.size(); ++j) {
        double least = 1e300;
        for (const CloudPoint& q : b) {
            const double dx = a[j].x - q.x;
            const double dy = a[j].y - q.y;
            const double dz = a[j].z - q.z;
            least = std::min(least, std::sqrt(dx * dx + dy * dy + dz * dz));
        }
        ASSERT_EQ(run.Nearest[j], least) << "point " << j;
    }
}

TEST(EnamelThickness, IdenticalCloudsAreAtNoDistance) {
    RandomNumbers random;
    const PointCloud cloud = RandomCloud(random, 500, {-1, -1, -1}, {2, 2, 2}, 1000);
    const Outcome run = Measure(cloud, cloud, 0.25);
    EXPECT_THAT(run.Nearest, ::testing::Each(0.0));
    for (const ThicknessSearch& search : run.Searches) EXPECT_EQ(search.ShellReach, 0);
}

TEST(EnamelThickness, ANearerPointInTheNextBinIsFound) {
    // The point's own bin, up to 0.25, holds one 3/32 away; the nearest is just across the border.
    const Outcome run = Measure({{0.21875, 0.125, 0.125}}, {{0.125, 0.125, 0.125}, {0.28125, 0.125, 0.125}}, 0.25);
    EXPECT_EQ(run.Nearest[0], 0.0625);
    EXPECT_EQ(run.Searches[0].ShellReach, 1);
    EXPECT_EQ(run.Searches[0].FaceX, 0.28125);
    EXPECT_EQ(run.Searches[0].FaceY, 0.375);
    EXPECT_EQ(run.Searches[0].FaceZ, 0.375);
}

TEST(EnamelThickness, APointOnAFaceWidensOnceForAnyDistance) {
    const Outcome apart = Measure({{0.25, 0.1, 0.1}}, {{0.26, 0.1, 0.1}}, 0.25);
    EXPECT_EQ(apart.Searches[0].ShellReach, 1);
    EXPECT_EQ(apart.Searches[0].FaceX, 0.25);
    const Outcome same = Measure({{0.25, 0.1, 0.1}}, {{0.25, 0.1, 0.1}}, 0.25);
    EXPECT_EQ(same.Searches[0].ShellReach, 0);
    EXPECT_EQ(same.Searches[0].FaceX, 0);
}

TEST(EnamelThickness, SearchesComeInTheOrderOfBins) {
    // Bins of 1; z decides first, then y, then x, within a bin the file.
    const PointCloud a{{0.5, 0.5, 1.5}, {0.5, 1.5, 0.5}, {1.5, 0.5, 0.5},
                       {0.9, 0.1, 0.1}, {0.1, 0.1, 0.1}, {-0.5, 3.5, 0.5}};
    std::vector<std::size_t> points;
    for (const ThicknessSearch& search : Measure(a, {{0, 0, 0}}, 1).Searches) points.push_back(search.Point);
    EXPECT_EQ(points, (std::vector<std::size_t>{3, 4, 2, 1, 5, 0}));
}

TEST(EnamelThickness, BinNumbersBeyondSixteenBitsKeepTheirOrderInXAndY) {
    const PointCloud a{{0, 70000.5, 0}, {65537.5, 0, 0}, {1.5, 0, 0}, {0, 2.5, 0}};
    std::vector<std::size_t> points;
    for (const ThicknessSearch& search : Measure(a, {{0, 0, 0}}, 1).Searches) points.push_back(search.Point);
    EXPECT_EQ(points, (std::vector<std::size_t>{2, 1, 3, 0}));
}

TEST(EnamelThickness, ABinSizeOfZeroDivides) {
    EXPECT_TRUE(FailsWith(
        FailureKind::DivisionByZero,
        [] {
            Measure({{1, 2, 3}}, {{1, 2, 3}}, 0);
        },
        "BoxSize"));
}

TEST(EnamelThickness, ANegativeBinSizeLeavesNoBins) {
    EXPECT_TRUE(FailsWith(
        FailureKind::SubscriptOutOfRange,
        [] {
            Measure({{1, 2, 3}}, {{2, 3, 4}}, -0.25);
        },
        "NumBoxX"));
}

TEST(EnamelThickness, EmptyCloudsHaveNoBounds) {
    EXPECT_TRUE(FailsWith(FailureKind::SubscriptOutOfRange, [] { Measure({}, {{1, 2, 3}}, 0.25); }));
    EXPECT_TRUE(FailsWith(FailureKind::SubscriptOutOfRange, [] { Measure({{1, 2, 3}}, {}, 0.25); }));
}

/// Points along x, ten to a unit.
PointCloud Row(std::size_t count) {
    PointCloud row;
    for (std::size_t i = 0; i < count; ++i) row.push_back({static_cast<double>(i) / 8, 0, 0});
    return row;
}

TEST(EnamelThickness, TheSecondCloudIsLimitedTheFirstIsNot) {
    EXPECT_EQ(Measure(Row(40000), Row(32767), 0.25).Nearest.size(), 40000u);
    EXPECT_TRUE(FailsWith(
        FailureKind::Overflow, [] { Measure(Row(10), Row(32768), 0.25); }, "32767"));
}

TEST(EnamelThickness, ABinHoldsNoMoreThanItsCapacityCanGrow) {
    const CloudPoint p{0.1, 0.1, 0.1};
    EXPECT_EQ(Measure(PointCloud(32765, p), {p}, 0.25).Nearest.size(), 32765u);
    EXPECT_TRUE(FailsWith(
        FailureKind::Overflow, [&] { Measure(PointCloud(32766, p), {p}, 0.25); }, "BoxCapacity"));
    EXPECT_TRUE(FailsWith(
        FailureKind::Overflow, [&] { Measure({p}, PointCloud(32766, p), 0.25); }, "BoxCapacity"));
}

TEST(EnamelThickness, BinsInZAreSixteenBit) {
    EXPECT_EQ(Measure({{0, 0, 0}}, {{0, 0, 32766.5}}, 1).Nearest[0], 32766.5);
    EXPECT_TRUE(FailsWith(
        FailureKind::Overflow,
        [] {
            Measure({{0, 0, 0}}, {{0, 0, 32767.5}}, 1);
        },
        "bz"));
    EXPECT_EQ(Measure({{0, 0, 0}}, {{0, 99999.5, 0}}, 1).Nearest[0], 99999.5) << "other axes aren't";
}

TEST(EnamelThickness, DistancesOfAMillionAreNeverFound) {
    EXPECT_EQ(Measure({{0, 0, 0}}, {{999999.5, 0, 0}}, 1).Nearest[0], 999999.5);
    EXPECT_TRUE(FailsWith(
        FailureKind::Overflow,
        [] {
            Measure({{0, 0, 0}}, {{1000000, 0, 0}}, 1);
        },
        "ShellReach"));
    EXPECT_TRUE(FailsWith(FailureKind::Overflow, [] { Measure({{-1e200, 0, 0}}, {{1e200, 0, 0}}, 1e199); }));
}

TEST(EnamelThickness, BinsTooFineToBeCounted) {
    EXPECT_TRUE(FailsWith(
        FailureKind::Overflow,
        [] {
            Measure({{1, 0, 0}}, {{2, 0, 0}}, 1e-300);
        },
        "NumBoxX"));
    EXPECT_TRUE(FailsWith(FailureKind::Overflow, [] { Measure({{1e300, 0, 0}}, {{2e300, 0, 0}}, 1e-10); }));
}

TEST(EnamelThickness, APointThatRoundingThrowsOffTheBinsHasNoPlace) {
    // 0.3 / 0.1 comes out below 3, (0.3 + 1) / 0.1 doesn't: bin 14 of 13.
    EXPECT_TRUE(FailsWith(
        FailureKind::SubscriptOutOfRange,
        [] {
            Measure({{-1, 0, 0}}, {{0.3, 0, 0}}, 0.1);
        },
        "bin"));
}

TEST(NearestTree, FindsTheNearestWhateverTheGuess) {
    RandomNumbers random;
    for (const std::size_t count : {1u, 2u, 8u, 9u, 17u, 1000u}) {
        const PointCloud points = RandomCloud(random, count, {0, -3, 5}, {3, 2, 1}, 8);
        const NearestTree tree(points);
        std::vector<std::uint32_t> slotOf(count, 0);
        for (std::uint32_t slot = 0; slot < tree.SlotCount(); ++slot) {
            if (std::isfinite(tree.Squared({0, 0, 0}, slot))) slotOf[tree.Index(slot)] = slot;
        }
        for (int i = 0; i < 200; ++i) {
            const CloudPoint p = RandomCloud(random, 1, {-1, -4, 4}, {5, 4, 3}, 16)[0];
            double least = 1e300;
            for (const std::uint32_t slot : slotOf) least = std::min(least, tree.Squared(p, slot));
            const NearestPoint found = tree.Nearest(p, slotOf[random.Below(count)]);
            ASSERT_EQ(found.Squared, least);
            const CloudPoint& q = points[tree.Index(found.Slot)];
            EXPECT_EQ((p.x - q.x) * (p.x - q.x) + (p.y - q.y) * (p.y - q.y) + (p.z - q.z) * (p.z - q.z), least);
        }
    }
}

TEST(NearestTree, AmongNoneIsInfinitelyFar) {
    const NearestTree tree({{1, 2, 3}, {4, 5, 6}});
    EXPECT_TRUE(std::isinf(tree.NearestAmong({0, 0, 0}, [](std::uint32_t) { return false; }).Squared));
    EXPECT_EQ(tree.NearestAmong({0, 0, 0}, [&](std::uint32_t slot) { return tree.Index(slot) == 1; }).Squared, 77);
}

}  // namespace
}  // namespace crownlab
