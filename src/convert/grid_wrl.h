#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "formats/lattice_text.h"

namespace crownlab {

class FileTable;

/// Which model is made of a grid.
enum class WrlProduct {
    ElevationGrid,    ///< heights with a skirt of one node at the lowest height
    Polygons,         ///< two triangles a cell over all nodes
    SurfacePolygons,  ///< triangles where there is a surface; holes of one node are stitched
};

/// Unit of a model: a tenth of a millimetre; the data's is told or guessed from the spacing.
enum class DataUnit { Auto, Millimetres, Micrometres };

struct WrlOptions {
    WrlProduct Product = WrlProduct::ElevationGrid;
    DataUnit Unit = DataUnit::Auto;
    bool MorphoBrowser = false;  ///< leaves background and light out
    std::string Subject;         ///< what the second line names
};

/// Extents and scale of a model, as the file's header and viewpoints need them.
struct WrlFrame {
    double XSpacing = 0;
    double YSpacing = 0;
    double ZMin = 1'000'000;   ///< over all heights, blank ones included
    double ZMax = -1'000'000;  ///< over heights below 1E38
    double Scale = 10;
    double XExtent = 0;  ///< in model units, three decimals, as the other two
    double YExtent = 0;
    double ZExtent = 0;
};

/// Numbers of the vertices of a surface, a node each: from 0 upward in file order, -1 for a blank node. Overflow at the
/// 32,768th real node: vertex numbers have 16 bits.
std::vector<std::int16_t> NumberVertices(const Lattice& lattice);

/// The frame of a mirrored grid. SubscriptOutOfRange for fewer than two columns or rows.
WrlFrame FrameOf(const Lattice& lattice, DataUnit unit);

/// Writes the model of a mirrored grid. Throws what NumberVertices, FrameOf and writing a file throw.
void WriteGridWrl(FileTable& files, const std::string& path, Lattice lattice, const WrlOptions& options);

}  // namespace crownlab
