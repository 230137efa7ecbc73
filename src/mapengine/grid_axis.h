#pragma once

#include "mapengine/grid.h"

namespace crownlab {

/// One direction of a grid: the positions of its columns, or of its rows.
class GridAxis {
public:
    enum class Direction { X, Y };

    GridAxis(const GridGeometry& shape, Direction direction) : shape_(shape), direction_(direction) {}

    int Nodes() const { return IsX() ? shape_.Columns : shape_.Rows; }
    double Min() const { return IsX() ? shape_.XMin : shape_.YMin; }
    double Max() const { return IsX() ? shape_.XMax : shape_.YMax; }
    double Position(int node) const { return IsX() ? shape_.X(node) : shape_.Y(node); }

    /// The interval between node i and i + 1 that holds `at`, as i from 0 to Nodes() - 2. A place on a node belongs
    /// to the interval that starts there, the last node to the one that ends there; places off the axis to the
    /// nearest interval.
    int IntervalOf(double at) const;

private:
    bool IsX() const { return direction_ == Direction::X; }

    GridGeometry shape_;
    Direction direction_;
};

}  // namespace crownlab
