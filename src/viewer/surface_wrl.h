#pragma once

#include <string>

#include "viewer/surface_grid.h"

namespace crownlab {

class FileTable;

/// Width of every model in its own units, in x.
inline constexpr double kModelWidth = 1000;

/// What a VRML model of a surface needs beside its cells.
struct SurfaceModel {
    double StepX = 0;  ///< spacing of columns
    double StepY = 0;  ///< spacing of rows
    double ZLow = 0;   ///< level at which empty cells are written
};

/// Writes a surface as a VRML 2.0 elevation grid, one height a cell, a line a row from the last row (highest y)
/// to row 1. The model lies with column 1 of the last row at its origin; x runs with the columns, height is y, z
/// runs against the rows, so that the model is no mirror image: a left tooth stays a left tooth.
///
/// Scale = kModelWidth / ((NumX - 1) × StepX), rounded at three decimals and never below 0.001, so that a
/// model is not lost however wide its cells are. The only viewpoint looks straight down on the middle. With
/// W = (NumX - 1) × StepX × Scale and D = (NumY - 1) × StepX × Scale (cells are square) it stands at
///
///     W / 2,   ZLow × Scale + 2 × max(W, D),   D / 2
///
/// which keeps a model up to three quarters as high as wide within a view of 45 degrees.
///
/// DivisionByZero for a surface of one column, SubscriptOutOfRange for one without cells.
void WriteSurfaceWrl(FileTable& files, const std::string& path, const SurfaceGrid& grid, const SurfaceModel& model);

}  // namespace crownlab
