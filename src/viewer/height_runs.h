#pragma once

#include "viewer/surface_grid.h"

namespace crownlab {

/// How far one can travel along the rows of a surface at constant height, as one number: 1 / sum of p²,
/// p being each run's share of all cells. A run is a stretch of cells of one row in the same band of
/// height; bands are `bandWidth` high. Where all runs are equally long the index is their number (the
/// inverse of E. H. Simpson's concentration, "Measurement of diversity", 1949).
///
/// Cells of the outer rows and columns and empty ones take no part: `marked`, made as large as `work` with
/// the same places, holds kEmptyCellZ there and 0 elsewhere. A run goes on behind an empty cell, never into
/// the next row.
///
/// `zMin` is the z from which bands are counted, `bandWidth` is in the unit of z. SubscriptOutOfRange for
/// a grid without cells and above 1,000,000 runs; DivisionByZero for a band width of 0 or if no cell takes
/// part; Overflow where a band's number passes 32 bits.
double HeightRunIndex(const SurfaceGrid& work, double zMin, double bandWidth, SurfaceGrid& marked);

}  // namespace crownlab
