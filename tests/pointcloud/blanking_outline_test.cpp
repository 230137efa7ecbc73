#include "pointcloud/blanking_outline.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <iterator>
#include <map>
#include <utility>

#include "basis/number_text.h"
#include "basis/result_file.h"
#include "pointcloud/clouds.h"
#include "pointcloud/literal_bins.h"
#include "support/expect_failure.h"
#include "support/temp_folder.h"

namespace crownlab {
namespace {

constexpr int kStepX[9] = {0, -1, -1, -1, 0, 1, 1, 1, 0};
constexpr int kStepY[9] = {0, -1, 0, 1, 1, 1, 0, -1, -1};

/// The walk as it is told, over a function that counts the points of a bin.
template <typename CountOf>
OutlineWalk WalkLiterally(BinPosition start, const CountOf& countOf) {
    OutlineWalk walk;
    walk.Bins.push_back(start);
    int direction = 1;
    BinPosition probe;
    const auto lookAhead = [&] {
        probe = {walk.Bins.back().Column + kStepX[direction], walk.Bins.back().Row + kStepY[direction]};
    };
    const auto turnNext = [&] {
        direction = direction == 8 ? 1 : direction + 1;
        lookAhead();
    };
    const auto turnBack = [&] {
        direction = direction == 1 ? 8 : direction - 1;
        lookAhead();
    };
    while (true) {
        lookAhead();
        bool found = false;
        for (int look = 1; look <= 8 && !found; ++look) {
            if (countOf(probe) > 0)
                turnNext();
            else
                found = true;
        }
        if (!found) {
            walk.Error = WalkError::NoEmptyBin;
            return walk;
        }
        found = false;
        for (int look = 1; look <= 8 && !found; ++look) {
            if (countOf(probe) == 0) {
                turnNext();
            } else {
                turnBack();
                found = true;
            }
        }
        if (!found) {
            walk.Error = WalkError::NoOccupiedBin;
            return walk;
        }
        if (walk.Bins.size() + 1 >= 100000) {
            walk.Error = WalkError::TooManyPositions;
            return walk;
        }
        walk.Bins.push_back(probe);
        if (walk.Bins.back() == walk.Bins.front()) return walk;
        turnBack();
    }
}

BinPosition LiteralStart(const LiteralBins& b) {
    for (int by = 1; by <= b.NumBinsY; ++by) {
        for (int bx = 1; bx <= b.NumBinsX; ++bx) {
            if (b.Count(bx, by) > 0) return {bx - 1, by};
        }
    }
    return {};
}

std::vector<OutlineVertex> PlaceLiterally(const LiteralBins& b, const std::vector<BinPosition>& walk) {
    std::vector<OutlineVertex> vertices;
    for (const BinPosition& position : walk) {
        const int cx = static_cast<int>(position.Column);
        const int cy = static_cast<int>(position.Row);
        double distance[3][3];
        double subX[3][3] = {};
        double subY[3][3] = {};
        for (auto& row : distance) std::fill(std::begin(row), std::end(row), 100000.0);
        for (int bx = cx - 1; bx <= cx + 1; ++bx) {
            for (int by = cy - 1; by <= cy + 1; ++by) {
                if (bx < 1 || bx > b.NumBinsX || by < 1 || by > b.NumBinsY) continue;
                for (int k = 1; k <= b.Count(bx, by); ++k) {
                    const CloudPoint& q = b.Point(bx, by, k);
                    for (int i = -1; i <= 1; ++i) {
                        for (int j = -1; j <= 1; ++j) {
                            const double x = (cx - 1) * b.BinSize + b.OriginX + (b.BinSize / 2) * (i + 1);
                            const double y = (cy - 1) * b.BinSize + b.OriginY + (b.BinSize / 2) * (j + 1);
                            const double d = std::sqrt((x - q.x) * (x - q.x) + (y - q.y) * (y - q.y));
                            if (d < distance[i + 1][j + 1]) {
                                distance[i + 1][j + 1] = d;
                                subX[i + 1][j + 1] = x;
                                subY[i + 1][j + 1] = y;
                            }
                        }
                    }
                }
            }
        }
        OutlineVertex vertex;
        double best = 100000;
        for (int i = 0; i < 3; ++i) {
            for (int j = 0; j < 3; ++j) {
                if (distance[i][j] < best && distance[i][j] > b.BinSize / 4) {
                    vertex = {subX[i][j], subY[i][j], distance[i][j]};
                    best = distance[i][j];
                }
            }
        }
        vertices.push_back(vertex);
    }
    return vertices;
}

PointCloud FillLiterally(const LiteralBins& b, const std::vector<BinPosition>& walk, double zMin) {
    std::vector<int> mask(b.BinCount.size());
    for (const BinPosition& p : walk) {
        const bool onPlan = p.Column >= 1 && p.Column <= b.BoundX && p.Row >= 1 && p.Row <= b.BoundY;
        if (onPlan) mask[b.At(static_cast<int>(p.Column), static_cast<int>(p.Row))] = 1;
    }
    PointCloud fill;
    for (int by = 2; by <= b.NumBinsY - 1; by += 3) {
        for (int bx = 2; bx <= b.NumBinsX - 1; bx += 3) {
            int taken = 0;
            for (int cy = by - 1; cy <= by + 1; ++cy) {
                for (int cx = bx - 1; cx <= bx + 1; ++cx) taken += mask[b.At(cx, cy)] + b.Count(cx, cy);
            }
            if (taken == 0) {
                fill.push_back({(bx - 1) * b.BinSize + b.OriginX + b.BinSize / 2,
                                (by - 1) * b.BinSize + b.OriginY + b.BinSize / 2, zMin});
            }
        }
    }
    return fill;
}

std::string OutlineText(const std::vector<OutlineVertex>& kept) {
    const std::size_t n = kept.size();
    std::string text = std::to_string(n) + ",0\r\n";
    for (std::size_t m = 1; m <= n; ++m) {
        const OutlineVertex& a = kept[m == 1 ? n - 1 : m - 2];
        const OutlineVertex& b = kept[m - 1];
        const OutlineVertex& c = kept[m == n ? 0 : m];
        text += GeneralText((a.x + b.x + c.x) / 3) + "," + GeneralText((a.y + b.y + c.y) / 3) + "\r\n";
    }
    return text;
}

void ExpectSameVertices(const std::vector<OutlineVertex>& found, const std::vector<OutlineVertex>& expected) {
    ASSERT_EQ(found.size(), expected.size());
    for (std::size_t n = 0; n < found.size(); ++n) {
        ASSERT_EQ(found[n].x, expected[n].x) << n;
        ASSERT_EQ(found[n].y, expected[n].y) << n;
        ASSERT_EQ(found[n].Distance, expected[n].Distance) << n;
    }
}

BinGrid Bins(const PointCloud& cloud, double size) {
    return FillBins(cloud, FindCloudExtents(cloud), size, size, kOutlineBins);
}

TEST(Outline, FollowsAllFamiliesAsTheSlowWalk) {
    const TempFolder folder;
    FileTable files;
    std::size_t fillPoints = 0;
    int unclosed = 0;
    for (const NamedCloud& cloud : AllCloudFamilies()) {
        for (const double factor : {0.4, 1.0, 3.0}) {
            const double size = cloud.BinSize * factor;
            SCOPED_TRACE(cloud.Name + ", bins of " + std::to_string(size));
            const LiteralBins literal = FillLiteralBins(cloud.Points, size, size, false);
            const BinGrid grid = Bins(cloud.Points, size);
            const OutlineWalk expected = WalkLiterally(LiteralStart(literal), [&](const BinPosition& p) {
                return literal.CountOrNone(static_cast<int>(p.Column), static_cast<int>(p.Row));
            });
            const OutlineWalk walk = WalkAround(grid);
            ASSERT_EQ(walk.Error, expected.Error);
            ASSERT_EQ(walk.Bins, expected.Bins);
            if (walk.Error != WalkError::None) {
                // Bins that touch at corners only: the walk slips through between them and loses its start.
                ++unclosed;
                EXPECT_LT(factor, 3);
                continue;
            }
            const std::vector<OutlineVertex> vertices = PlaceLiterally(literal, expected.Bins);
            ExpectSameVertices(PlaceVertices(grid, walk.Bins), vertices);
            std::vector<OutlineVertex> kept;
            for (const OutlineVertex& v : vertices) {
                if (v.Distance < 0.75 * literal.BinSize) kept.push_back(v);
            }
            ExpectSameVertices(KeepVertices(vertices, grid.Plan().BinSize), kept);
            WriteOutline(files, folder / "a.bln", kept);
            EXPECT_EQ(FileBytes(folder / "a.bln"), OutlineText(kept));
            const double zMin = LiteralExtents(cloud.Points).ZMin;
            const PointCloud fill = FillPoints(grid, walk.Bins, zMin);
            EXPECT_EQ(fill, FillLiterally(literal, expected.Bins, zMin));
            fillPoints += fill.size();
        }
    }
    EXPECT_GT(fillPoints, 500u);
    EXPECT_LT(unclosed, 10);
}

TEST(Outline, FollowsAWideSparsePlan) {
    // A long thin band in micrometres: 10^9 bins, walked on a table of the occupied ones.
    RandomNumbers random;
    PointCloud cloud;
    for (int i = 0; i < 30000; ++i) {
        const double x = i * 0.03;
        cloud.push_back({x, 300 + 200 * std::sin(x / 150) + RandomDecimal(random, 0, 0.1), x});
    }
    const double size = 0.1;
    const BinGrid grid = Bins(cloud, size);
    ASSERT_GT(grid.Plan().NumBinsX * grid.Plan().NumBinsY, 2e7);
    std::map<std::pair<std::int64_t, std::int64_t>, int> counts;
    for (const CloudPoint& p : cloud) {
        ++counts[{static_cast<std::int64_t>(std::floor((p.y - grid.Plan().OriginY) / size)) + 1,
                  static_cast<std::int64_t>(std::floor((p.x - grid.Plan().OriginX) / size)) + 1}];
    }
    const auto [row, column] = counts.begin()->first;
    const OutlineWalk expected = WalkLiterally({column - 1, row}, [&](const BinPosition& p) {
        const auto found = counts.find({p.Row, p.Column});
        return found == counts.end() ? 0 : found->second;
    });
    const OutlineWalk walk = WalkAround(grid);
    EXPECT_EQ(walk.Error, expected.Error);
    EXPECT_EQ(walk.Bins, expected.Bins);
    EXPECT_GT(walk.Bins.size(), 1000u);
    for (const OutlineVertex& v : PlaceVertices(grid, walk.Bins)) {
        EXPECT_GT(v.Distance, size / 4);
        EXPECT_LT(v.Distance, 1.5 * size);
    }
}

TEST(WalkAround, GoesOnceAroundASinglePoint) {
    // The point lies in bin (3, 3). Clockwise from its left, straight from side to side: from the left the last
    // empty bin before the point's own is the one above it, and so on.
    const OutlineWalk walk = WalkAround(Bins({{0.5, 0.5, 0}}, 1));
    EXPECT_EQ(walk.Error, WalkError::None);
    EXPECT_EQ(walk.Bins, (std::vector<BinPosition>{{2, 3}, {3, 4}, {4, 3}, {3, 2}, {2, 3}}));
}

TEST(WalkAround, StartsLeftOfTheLowestRow) {
    // The lowest row has a single point, right of others.
    const BinGrid grid = Bins({{0.5, 1.5, 0}, {5.5, 0.5, 0}, {1.5, 1.5, 0}, {4.5, 1.5, 0}}, 1);
    EXPECT_EQ(WalkAround(grid).Bins.front(), (BinPosition{7, 3}));
}

TEST(WalkAround, LeavesTheSecondClusterAlone) {
    PointCloud cloud = Lattice(4, 4, 1, 0.5, 0.5);
    for (const CloudPoint& p : Lattice(4, 4, 1, 10.5, 2.5)) cloud.push_back(p);
    for (const BinPosition& p : WalkAround(Bins(cloud, 1)).Bins) EXPECT_LT(p.Column, 9);
}

TEST(WalkAround, StopsAtAHundredThousandPositions) {
    const auto walkOf = [](int bins) {
        PointCloud cloud;
        for (int i = 0; i < bins; ++i) cloud.push_back({i + 0.5, 0.5, 0});
        return WalkAround(Bins(cloud, 1));
    };
    // One bin wide and n long: above and below each, one at each end, and the start again.
    EXPECT_EQ(walkOf(50).Bins.size(), 2u * 50 + 3);
    const OutlineWalk fits = walkOf(49998);
    EXPECT_EQ(fits.Error, WalkError::None);
    EXPECT_EQ(fits.Bins.size(), 99999u);
    EXPECT_EQ(walkOf(49999).Error, WalkError::TooManyPositions);
}

TEST(WalkErrorText, SaysEachErrorInItsWords) {
    EXPECT_EQ(WalkErrorText(WalkError::NoEmptyBin), "Error - empty bin not found: E001");
    EXPECT_EQ(WalkErrorText(WalkError::NoOccupiedBin), "Error - occupied bin not found: E002");
    EXPECT_EQ(WalkErrorText(WalkError::TooManyPositions),
              "Error - more than 100,000 points in blanking file; increase bin size: E003");
}

TEST(PlaceVertices, LeavesAnEntryEmptyWhereNoPointIsNear) {
    const BinGrid grid = Bins({{0.5, 0.5, 0}}, 1);
    const std::vector<OutlineVertex> vertices = PlaceVertices(grid, {{1, 1}, {2, 3}});
    EXPECT_EQ(vertices[0].Distance, 0);
    EXPECT_EQ(vertices[0].x, 0);
    // Of the bin left of the point, x -1 to 0, y 0 to 1: the middle of the right side, half a bin away.
    EXPECT_EQ(vertices[1].x, 0);
    EXPECT_EQ(vertices[1].y, 0.5);
    EXPECT_EQ(vertices[1].Distance, 0.5);
}

TEST(PlaceVertices, KeepsOffAQuarterOfABin) {
    // A point on the border of the walk's bin: the side's middle is too near, its corners are half a bin away.
    const BinGrid grid = Bins({{0.01, 0.5, 0}}, 1);
    const std::vector<OutlineVertex> vertices = PlaceVertices(grid, {{2, 3}});
    EXPECT_EQ(vertices[0].x, 0);
    EXPECT_EQ(vertices[0].y, 0);  // the first of equals: the lower corner
    // Exactly a quarter is too near as well.
    const std::vector<OutlineVertex> quarter = PlaceVertices(Bins({{0.25, 0.5, 0}}, 1), {{2, 3}});
    EXPECT_EQ(quarter[0].x, 0);
    EXPECT_EQ(quarter[0].y, 0);
    EXPECT_EQ(quarter[0].Distance, std::sqrt(0.25 * 0.25 + 0.5 * 0.5));
}

TEST(KeepVertices, LetsEmptyEntriesThrough) {
    const std::vector<OutlineVertex> vertices{{1, 1, 0.75}, {2, 2, 0.7499}, {0, 0, 0}, {3, 3, 2}};
    const std::vector<OutlineVertex> kept = KeepVertices(vertices, 1);
    ASSERT_EQ(kept.size(), 2u);
    EXPECT_EQ(kept[0].x, 2);
    EXPECT_EQ(kept[1].Distance, 0);
}

TEST(KeepVertices, CountsInSixteenBits) {
    EXPECT_EQ(KeepVertices(std::vector<OutlineVertex>(32767), 1).size(), 32767u);
    EXPECT_TRUE(FailsWith(
        FailureKind::Overflow, [] { KeepVertices(std::vector<OutlineVertex>(32768), 1); }, "KeptCount"));
}

TEST(WriteOutline, NeedsTwoVertices) {
    const TempFolder folder;
    FileTable files;
    const auto write = [&](std::size_t count) {
        WriteOutline(files, folder / "a.bln", std::vector<OutlineVertex>(count));
    };
    EXPECT_TRUE(FailsWith(FailureKind::SubscriptOutOfRange, [&] { write(0); }));
    EXPECT_TRUE(FailsWith(FailureKind::SubscriptOutOfRange, [&] { write(1); }));
    EXPECT_EQ(folder.EntryCount(), 0u);
    // Of two each stands beside the other on both sides.
    WriteOutline(files, folder / "a.bln", {{0, 0, 1}, {3, 6, 1}});
    EXPECT_EQ(FileBytes(folder / "a.bln"), "2,0\r\n2,4\r\n1,2\r\n");
}

TEST(FillPoints, GoIntoALargeHole) {
    // A square frame of 20 x 20 bins, two bins thick.
    PointCloud cloud;
    for (const CloudPoint& p : Lattice(20, 20, 1, 0.5, 0.5)) {
        if (p.x < 2 || p.x > 18 || p.y < 2 || p.y > 18) cloud.push_back(p);
    }
    const BinGrid grid = Bins(cloud, 1);
    const OutlineWalk walk = WalkAround(grid);
    const PointCloud fill = FillPoints(grid, walk.Bins, -7);
    EXPECT_FALSE(fill.empty());
    for (const CloudPoint& p : fill) {
        EXPECT_TRUE(p.x > 3 && p.x < 17 && p.y > 3 && p.y < 17) << p.x << ' ' << p.y;
        EXPECT_EQ(p.z, -7);
    }
}

}  // namespace
}  // namespace crownlab
