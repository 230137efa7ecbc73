// Grids and surfaces as x, y, z text through all their readers and what is written of them.

#include "basis/failure.h"
#include "basis/result_file.h"
#include "convert/grid_dxf.h"
#include "convert/grid_points.h"
#include "convert/grid_wrl.h"
#include "convert/picza_file.h"
#include "convert/points_wrl.h"
#include "formats/unblanked_points.h"
#include "fuzz_folder.h"

namespace crownlab {
namespace {

template <typename Act>
void Try(const Act& act) {
    try {
        act();
    } catch (const Failure&) {
        // The window shows a box.
    }
}

void WriteModels(FileTable& files, const Lattice& lattice) {
    for (const WrlProduct product : {WrlProduct::ElevationGrid, WrlProduct::Polygons, WrlProduct::SurfacePolygons}) {
        Try([&] { WriteGridWrl(files, "a.wrl", lattice, {.Product = product, .Subject = "a.grd"}); });
    }
}

void ReadAsGrid(FileTable& files) {
    const Lattice lattice = ReadLattice("a.dat");
    if (lattice.Nodes.size() != static_cast<std::size_t>(lattice.Cols) * static_cast<std::size_t>(lattice.Rows)) {
        std::abort();
    }
    WriteModels(files, lattice);
    Try([&] { WritePiczaFile(files, "a.pix", lattice, 40); });
    Try([&] { WriteGridDxf(files, "a.dxf", "a", lattice); });
}

void ReadAsSurface(FileTable& files) {
    const LatticeReading reading = ReadPointLattice("a.dat");
    if (!reading.Message.empty()) return;
    const PointLattice& lattice = reading.Lattice;
    if (lattice.Z.size() != static_cast<std::size_t>(lattice.Cols) * static_cast<std::size_t>(lattice.Rows)) {
        std::abort();
    }
    if (lattice.XSpacing < 0 || lattice.YSpacing < 0) std::abort();
    WriteSurfaceFileWrl(files, "b.wrl", lattice, "a.dat");
}

}  // namespace
}  // namespace crownlab

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace crownlab;
    FreshFolder();
    PutInput("a.dat", data, size);
    FileTable files;
    Try([&] { ReadAsGrid(files); });
    Try([&] { ReadAsSurface(files); });
    Try([&] { WriteImageWrl(files, "c.wrl", ReadHeightsInFileOrder("a.dat"), "a.dat"); });
    Try([&] { WriteShiftedPoints(files, "a.dat", "a.xyz"); });
    Try([&] { RemoveBlankPoints(files, "a.dat", "temp.dat"); });
    return 0;
}
