#pragma once

#include "mapengine/grid.h"

namespace crownlab {

/// The same heights with both limits of x and of y moved. AutomationFailed where the limits don't rise any more.
void OffsetLimits(Grid& grid, double alongX, double alongY);

/// The grid turned by a multiple of 90 degrees, counter-clockwise positive, about its middle; then it is moved so that
/// its lower left corner stays. After an odd number of quarters its sides have changed places. AutomationFailed for
/// other angles.
Grid TurnGrid(Grid grid, double degrees);

/// Columns in the opposite order; the limits stay.
void ReverseColumns(Grid& grid);
/// Rows in the opposite order; the limits stay.
void ReverseRows(Grid& grid);

/// Every `Step`th of the rows or columns from `First` to `Last`, counted from 0.
struct NodeRange {
    int First = 0;
    int Last = 0;
    int Step = 1;  ///< at least 1

    int Count() const { return Last < First ? 0 : (Last - First) / Step + 1; }
};

/// The nodes that stand in a column and a row of these ranges, which have to lie on the grid. Limits are the positions
/// of the outermost of them. AutomationFailed for fewer than two rows or columns.
Grid ExtractNodes(const Grid& grid, const NodeRange& columns, const NodeRange& rows);

}  // namespace crownlab
