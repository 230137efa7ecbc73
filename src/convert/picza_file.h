#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "formats/lattice_text.h"

namespace crownlab {

class FileTable;

/// One unit of a scanner file in millimetres.
inline constexpr double kPiczaUnit = 0.025;

/// Head of a scanner file, in its own units.
struct PiczaHead {
    double XStep = 0;
    double YStep = 0;
    double Z = 0;
    double X0 = 0;  ///< the window of the scan
    double Y0 = 0;
    double X1 = 0;
    double Y1 = 0;
};

/// Rewrites the points of a scanner file as records x, y, z, in map units of `unit` a file unit, from the window's
/// lower corner on; an empty line goes before each scan line but the first. Returns the head. InputPastEnd where a key
/// line is missing, TypeMismatch for what isn't a number, and what reading and writing files throw.
PiczaHead WritePiczaPoints(FileTable& files, const std::string& input, const std::string& output, double unit);

/// Counts of a grid that is made of such points. They keep what they had where a count comes to a multiple of 100.
struct PiczaCounts {
    int NumCols = 0;
    int NumRows = 0;
};

/// Shape of the grid for a window: width and height in map units; puts `counts` right. DivisionByZero for a step of 0.
struct PiczaExtent {
    double Width = 0;
    double Height = 0;
};
PiczaExtent ExtentOfPicza(const PiczaHead& head, double unit, PiczaCounts& counts);

/// A scanner file's points by scan line.
struct PiczaScan {
    PiczaHead Head;
    int Cols = 0;  ///< places of the window
    int Rows = 0;
    std::vector<std::vector<CloudPoint>> Lines;  ///< in file units
};

/// Reads the whole scan; `beforeLine` is called at the start of each scan line. A line can be empty.
/// SubscriptOutOfRange for a window without a place, more points in a line or more lines than the window has places for
/// (one over each), or more than 100,000 lines; OutOfMemory for a window too large; DivisionByZero for a step of 0;
/// InputPastEnd, TypeMismatch as above.
PiczaScan ReadPiczaScan(const std::string& path, const std::function<void()>& beforeLine);

/// Writes the points that were scanned, as records x, y, z in map units.
void WriteScannedPoints(FileTable& files, const std::string& path, const PiczaScan& scan, double unit);

/// Writes all places of the window, row after row. A place that wasn't scanned has the height of the last point met
/// before it, 0 before the first one; in a line without points that of the row before.
void WriteAllPlaces(FileTable& files, const std::string& path, const PiczaScan& scan, double unit);

/// Writes a mirrored grid as a scanner file, `factor` file units a map unit; blank nodes lie at 0. The head states no
/// range in y: the scanner's own files do, those written here never have. Throws what writing a file throws.
void WritePiczaFile(FileTable& files, const std::string& path, const Lattice& lattice, double factor);

/// Spacings of a grid's text, four decimals. SubscriptOutOfRange for fewer than two columns or rows.
struct LatticeSpacing {
    double X = 0;
    double Y = 0;
};
LatticeSpacing SpacingOf(const Lattice& lattice);

}  // namespace crownlab
