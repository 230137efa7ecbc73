#include "surferfns/surface_areas.h"

#include <memory>

#include "basis/result_file.h"
#include "surfer/automation.h"

namespace crownlab {
namespace {

constexpr std::size_t kVolumeResults = 11;

}  // namespace

SurfaceAreas MeasureAreas(const LateBound& program, const std::string& grid) {
    const auto results = std::make_shared<std::vector<double>>(kVolumeResults);
    program.Call("GridVolume", {{"Upper", grid}, {"Lower", 0}, {"pResults", Value(results)}, {"ShowReport", false}});
    // Results are numbered from 1.
    return {.PositivePlanar = results->at(5 - 1),
            .NegativePlanar = results->at(6 - 1),
            .PositiveSurface = results->at(7 - 1),
            .NegativeSurface = results->at(8 - 1),
            .BlankedPlanar = results->at(9 - 1)};
}

void WriteAreas(FileTable& files, const std::string& table, const std::string& name, const SurfaceAreas& areas,
                bool first) {
    ResultFile output(files, table, first ? ResultFile::Mode::Replace : ResultFile::Mode::Append);
    if (first) {
        output.Record("File", "Positive_Planar_Area_[Cut]", "Negative_Planar_Area_[Fill]",
                      "Positive_Surface_Area_[Cut]", "Negative_Surface_Area_[Fill]", "Blanked_Planar_Area");
    }
    output.Record(name, areas.PositivePlanar, areas.NegativePlanar, areas.PositiveSurface, areas.NegativeSurface,
                  areas.BlankedPlanar);
    output.Commit();
}

}  // namespace crownlab
