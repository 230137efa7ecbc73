#include "mapengine/delaunay.h"

#include <CGAL/Delaunay_triangulation_2.h>
#include <CGAL/Exact_predicates_inexact_constructions_kernel.h>
#include <CGAL/Triangulation_vertex_base_with_info_2.h>

#include <cstddef>
#include <utility>

#include "basis/memory_limit.h"

namespace crownlab {
namespace {

using Kernel = CGAL::Exact_predicates_inexact_constructions_kernel;
using Vertex = CGAL::Triangulation_vertex_base_with_info_2<std::uint32_t, Kernel>;
using Delaunay = CGAL::Delaunay_triangulation_2<Kernel, CGAL::Triangulation_data_structure_2<Vertex>>;

/// Memory of a point's place, its vertex, its two faces and the two triangles made of them; no less than it takes.
constexpr std::uint64_t kBytesAPoint = 320;

Delaunay Inserted(const DataPoints& points) {
    std::vector<std::pair<Kernel::Point_2, std::uint32_t>> places;
    places.reserve(points.size());
    for (std::size_t i = 0; i < points.size(); ++i) {
        places.emplace_back(Kernel::Point_2(points[i].X, points[i].Y), static_cast<std::uint32_t>(i));
    }
    // Inserted as one range, the points are sorted in space first, with random numbers that are always the same.
    Delaunay triangulation;
    triangulation.insert(places.begin(), places.end());
    return triangulation;
}

}  // namespace

Triangulation Triangulate(const DataPoints& points) {
    RequireMemory(points.size() * kBytesAPoint, "the triangles");
    const Delaunay delaunay = Inserted(points);
    Triangulation result;
    if (delaunay.dimension() < 2) return result;
    result.Triangles.reserve(delaunay.number_of_faces());
    for (const auto face : delaunay.finite_face_handles()) {
        result.Triangles.push_back({face->vertex(0)->info(), face->vertex(1)->info(), face->vertex(2)->info()});
    }
    auto face = delaunay.incident_faces(delaunay.infinite_vertex());
    const auto start = face;
    do {
        const int infinite = face->index(delaunay.infinite_vertex());
        result.Hull.push_back(
            {face->vertex(Delaunay::ccw(infinite))->info(), face->vertex(Delaunay::cw(infinite))->info()});
    } while (++face != start);
    return result;
}

}  // namespace crownlab
