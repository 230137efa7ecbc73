#pragma once

#include <string>
#include <vector>

namespace crownlab {

class FileTable;

/// A grid's points in a text whose rows or columns run fastest, rising or falling, brought into one order.
struct PointLattice {
    int Cols = 0;
    int Rows = 0;
    double XSpacing = 0;  ///< not negative
    double YSpacing = 0;
    double ZMin = 100'000;   ///< over all heights
    double ZMax = -100'000;  ///< over heights below 1E38
    std::vector<double> Z;   ///< row after row, rising in x and y; blank nodes hold ZMin

    double At(int column, int row) const;
};

/// What became of reading one.
struct LatticeReading {
    PointLattice Lattice;
    std::string Message;  ///< what to tell the person where the lines don't make whole rows; empty if they do
};

/// Reads x, y, z records, as many as the file has lines. The first two tell which axis runs fastest: x if their x
/// differ, else y. InputPastEnd where the other axis never changes, TypeMismatch for what isn't a number,
/// OutOfMemory, and what reading a file throws.
LatticeReading ReadPointLattice(const std::string& path);

/// The nodes of a text in file order, whatever their places.
struct FileOrderHeights {
    int Cols = 0;
    int Rows = 0;
    double XSpacing = 0;
    double YSpacing = 0;
    std::vector<double> Z;
};

/// As ReadPointLattice for a text whose x runs fastest and whose first change of y ends the first row. The number of
/// rows is rounded; SubscriptOutOfRange if the points don't fill them.
FileOrderHeights ReadHeightsInFileOrder(const std::string& path);

}  // namespace crownlab
