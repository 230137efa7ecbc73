// A data file; what can be read is gridded by every method, with columns as either class counts them.

#include "basis/failure.h"
#include "fuzz_folder.h"
#include "mapengine/data_file.h"
#include "mapengine/scattered_grid.h"

namespace {

void GridQuietly(crownlab::GriddingMethod method, const crownlab::DataPoints& points) {
    using namespace crownlab;
    try {
        Progress progress;
        const GridGeometry shape = GeometryFor({.Columns = 7, .Rows = 5}, points);
        const Grid grid = GridPoints(method, points, shape, progress).Heights;
        for (const double z : grid.Z) {
            if (IsBlank(z) && z != kBlankHeight) std::abort();
        }
    } catch (const Failure&) {
        return;
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace crownlab;
    FreshFolder();
    setenv("CROWNLAB_THREADS", "1", 1);
    PutInput("in.dat", data, size);
    for (const DataColumns& columns : {DataColumns{}, DataColumns{.X = 2, .Y = 4, .Z = 1}}) {
        try {
            const DataPoints points = PointsToGrid(ReadDataFile("in.dat", columns), 1e30);
            if (points.empty()) continue;
            for (const GriddingMethod method : {GriddingMethod::InverseDistance, GriddingMethod::Kriging,
                                                GriddingMethod::Triangulation, GriddingMethod::Plane}) {
                GridQuietly(method, points);
            }
        } catch (const Failure&) {
            continue;
        }
    }
    return 0;
}
