#pragma once

#include "formats/boundary_file.h"
#include "formats/grid_shape.h"

namespace crownlab {

/// Columns and rows of a grid, counted from 1, both ends included.
struct GridPart {
    double FirstColumn = 1;
    double LastColumn = 1;
    double FirstRow = 1;
    double LastRow = 1;
    friend bool operator==(const GridPart&, const GridPart&) = default;
};

/// True if `lowerLeft` lies left of and below `upperRight`, both strictly.
bool CornersInOrder(const PlanePoint& lowerLeft, const PlanePoint& upperRight);

/// The nodes inside a box on the map. A corner on a node: the lower left one leaves that node out, the upper right
/// one takes it in. Nothing is cut to the grid. DivisionByZero for a grid without spacing.
///
///     rows   .  .  .  .        . nodes
///            .  #--#--+ upper right
///            .  #  #  .        # nodes of the range
///            +  .  .  .
///        lower left
GridPart RangeBetween(const GridShape& grid, const PlanePoint& lowerLeft, const PlanePoint& upperRight);

/// All nodes of the grid.
GridPart WholeRange(const GridShape& grid);

}  // namespace crownlab
