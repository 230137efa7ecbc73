#include "pointcloud/vertex_match.h"

#include <gmock/gmock.h>

#include <cmath>
#include <numeric>

#include "support/random_numbers.h"

namespace crownlab {
namespace {

using ::testing::ElementsAre;

VertexMatch Match(const PointCloud& points, const PointCloud& vertices, double tolerance = kMatchTolerance) {
    return MatchVertices(points, vertices, tolerance, [](std::size_t) {});
}

/// Vertex by vertex, from the last match to the end and then from the first.
VertexMatch MatchOneByOne(const PointCloud& points, const PointCloud& vertices, double t) {
    VertexMatch match{std::vector<std::int32_t>(points.size(), 0), std::vector<std::int32_t>(vertices.size(), 0)};
    std::size_t lastMatch = 1;
    const auto matches = [&](const CloudPoint& p, std::size_t v) {
        const CloudPoint& q = vertices[v - 1];
        return p.x - t < q.x && p.x + t > q.x && p.y - t < q.y && p.y + t > q.y && p.z - t < q.z && p.z + t > q.z;
    };
    for (std::size_t j = 1; j <= points.size(); ++j) {
        std::size_t found = 0;
        for (std::size_t v = lastMatch; v <= vertices.size() && found == 0; ++v) {
            if (matches(points[j - 1], v)) found = v;
        }
        for (std::size_t v = 1; v <= lastMatch && found == 0; ++v) {
            if (matches(points[j - 1], v)) found = v;
        }
        if (found == 0) continue;
        match.PointVertex[j - 1] = static_cast<std::int32_t>(found);
        match.VertexPoint[found - 1] = static_cast<std::int32_t>(j);
        lastMatch = found;
    }
    return match;
}

PointCloud LatticeCloud(RandomNumbers& random, std::size_t count, double low, std::uint64_t steps, double step) {
    const auto next = [&] { return low + static_cast<double>(random.Below(steps)) * step; };
    PointCloud cloud;
    for (std::size_t i = 0; i < count; ++i) cloud.push_back({next(), next(), next()});
    return cloud;
}

TEST(VertexMatch, FindsTheSameVertexAsOneByOne) {
    RandomNumbers random;
    // From many vertices in each box to hardly any, on steps that put vertices on the box's sides too.
    for (const double step : {0.00005, 0.0001, 0.00025, 0.0005, 0.001}) {
        for (const double low : {0.0, -0.0013, 7.0, -65.7}) {
            const PointCloud vertices = LatticeCloud(random, 1 + random.Below(400), low, 12, step);
            const PointCloud points = LatticeCloud(random, 300, low, 12, step);
            const VertexMatch expected = MatchOneByOne(points, vertices, kMatchTolerance);
            const VertexMatch match = Match(points, vertices);
            EXPECT_EQ(match.PointVertex, expected.PointVertex) << "seed " << kRandomSeed << ", step " << step;
            EXPECT_EQ(match.VertexPoint, expected.VertexPoint);
        }
    }
}

TEST(VertexMatch, LargeCoordinatesMatchThemselvesOnly) {
    RandomNumbers random;
    for (const double low : {1e9, -3e11, 1e12, 4e12, -9e12, 1e15, 1e18, 1e300}) {
        const double step = std::nextafter(low, 2 * low) - low;
        const PointCloud vertices = LatticeCloud(random, 60, low, 4, step);
        const PointCloud points = LatticeCloud(random, 60, low, 4, step);
        const VertexMatch expected = MatchOneByOne(points, vertices, kMatchTolerance);
        EXPECT_EQ(Match(points, vertices).PointVertex, expected.PointVertex) << "from " << low;
    }
}

TEST(VertexMatch, ToleranceIsStrict) {
    constexpr double t = 1.0 / 1024;
    const PointCloud vertices{{1 + t, 2, 3}};
    EXPECT_THAT(Match({{1, 2, 3}}, vertices, t).PointVertex, ElementsAre(0));
    EXPECT_THAT(Match({{1 + t / 1024, 2, 3}}, vertices, t).PointVertex, ElementsAre(1));
    EXPECT_THAT(Match({{1 + t, 2 - t, 3}}, vertices, t).PointVertex, ElementsAre(0));
    EXPECT_THAT(Match({{1 + t, 2, 3 + t}}, vertices, t).PointVertex, ElementsAre(0));
    EXPECT_THAT(Match({{0, 0, 0}}, {{0.0005, 0, 0}}).PointVertex, ElementsAre(0)) << "with the tool's own tolerance";
}

TEST(VertexMatch, StartsAtTheLastMatch) {
    // Vertices 1 and 3 are the same place: the point that follows a match of 2 takes 3, the next one 3 again.
    const PointCloud vertices{{0, 0, 0}, {1, 0, 0}, {0, 0, 0}};
    EXPECT_THAT(Match({{0, 0, 0}, {1, 0, 0}, {0, 0, 0}, {0, 0, 0}}, vertices).PointVertex, ElementsAre(1, 2, 3, 3));
}

TEST(VertexMatch, ALaterPointTakesTheVertexOver) {
    const VertexMatch match = Match({{0, 0, 0}, {5, 5, 5}, {0, 0, 0}}, {{0, 0, 0}});
    EXPECT_THAT(match.PointVertex, ElementsAre(1, 0, 1));
    EXPECT_THAT(match.VertexPoint, ElementsAre(3));
}

TEST(VertexMatch, NothingToMatch) {
    EXPECT_THAT(Match({{0, 0, 0}}, {}).PointVertex, ElementsAre(0));
    EXPECT_THAT(Match({}, {{0, 0, 0}}).VertexPoint, ElementsAre(0));
}

TEST(VertexMatch, EachPointIsShown) {
    std::vector<std::size_t> shown;
    MatchVertices({{0, 0, 0}, {9, 9, 9}}, {{0, 0, 0}}, kMatchTolerance,
                  [&](std::size_t done) { shown.push_back(done); });
    EXPECT_THAT(shown, ElementsAre(1, 2));
}

}  // namespace
}  // namespace crownlab
