#pragma once

#include <string>

#include "convert/grid_lattice.h"
#include "surfer/automation.h"

namespace crownlab {

struct Session;

/// Asks for a grid of points that lie on a lattice already, by triangulation: the nodes keep their heights.
/// With neither version chosen nothing is asked.
void GridLatticePoints(const Session& session, const LateBound& program, const std::string& points,
                       const GridLattice& lattice, const std::string& grid);

/// Which methods grid scattered points. Version 6 always takes kriging.
struct ScatterMethods {
    bool InverseDistance = false;
    bool Kriging = true;
};

/// Asks for a grid of scattered points. Under version 8 each chosen method makes it, and with none no grid is made.
void GridScatteredPoints(const Session& session, const LateBound& program, const std::string& points,
                         const GridLattice& lattice, ScatterMethods methods, const std::string& grid);

}  // namespace crownlab
