#include "convert/grid_data_call.h"

#include <iterator>

#include "surfer/session.h"

namespace crownlab {
namespace {

// The numbers of the same methods differ between the versions.
constexpr int kKrigingSix = 1;
constexpr int kTriangulationSix = 6;
constexpr int kInverseDistanceEight = 1;
constexpr int kKrigingEight = 2;
constexpr int kTriangulationEight = 9;

/// What all calls under version 8 have behind the data file and its columns.
Arguments NamedLattice(const GridLattice& lattice, int algorithm, const std::string& grid) {
    return {{"NumCols", lattice.NumCols}, {"NumRows", lattice.NumRows}, {"XMin", lattice.XMin},
            {"XMax", lattice.XMax},       {"YMin", lattice.YMin},       {"YMax", lattice.YMax},
            {"Algorithm", algorithm},     {"ShowReport", false},        {"OutGrid", grid}};
}

void CallByName(const LateBound& program, Arguments first, const Arguments& rest) {
    first.insert(first.end(), rest.begin(), rest.end());
    program.Call("GridData", first);
}

void GridByColumns(const LateBound& program, const std::string& points, const GridLattice& lattice, int algorithm,
                   const std::string& grid) {
    CallByName(program, {{"DataFile", points}, {"XCol", 1}, {"yCol", 2}, {"zCol", 3}},
               NamedLattice(lattice, algorithm, grid));
}

}  // namespace

void GridLatticePoints(const Session& session, const LateBound& program, const std::string& points,
                       const GridLattice& lattice, const std::string& grid) {
    const Argument none{Absent{}};
    if (session.IsSix()) {
        // Rows and columns stand in places 11 and 12 here.
        program.Call("GridData", {points, 0, 1, 2, lattice.XMin, lattice.XMax, lattice.YMin, lattice.YMax, none, none,
                                  lattice.NumRows, lattice.NumCols, kTriangulationSix, grid});
    }
    if (session.IsEight()) {
        CallByName(program, {{"DataFile", points}}, NamedLattice(lattice, kTriangulationEight, grid));
    }
}

void GridScatteredPoints(const Session& session, const LateBound& program, const std::string& points,
                         const GridLattice& lattice, ScatterMethods methods, const std::string& grid) {
    const Argument none{Absent{}};
    if (session.IsSix()) {
        // Columns and rows stand in places 9 and 10 here.
        program.Call("GridData", {points, 0, 1, 2, lattice.XMin, lattice.XMax, lattice.YMin, lattice.YMax,
                                  lattice.NumCols, lattice.NumRows, none, none, kKrigingSix, grid});
    }
    if (!session.IsEight()) return;
    if (methods.InverseDistance) GridByColumns(program, points, lattice, kInverseDistanceEight, grid);
    if (methods.Kriging) GridByColumns(program, points, lattice, kKrigingEight, grid);
}

}  // namespace crownlab
