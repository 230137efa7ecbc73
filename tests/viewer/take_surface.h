#pragma once

#include <string>

#include "viewer/frm_csv_view.h"
#include "viewer/render.h"

namespace crownlab {

/// Puts a surface into the window as reading it would; the files of later runs go to `folder`.
inline void TakeSurface(FrmCSVView& form, const SurfaceGrid& grid, const std::string& folder) {
    ViewerState& state = form.State;
    state.Names.Dir = folder + "/";
    state.Names.BaseName = "surface";
    state.Names.Stem = state.Names.Dir + "surface";
    state.CellGrid = grid;
    state.NumX = grid.NumX;
    state.NumY = grid.NumY;
    state.StepX = state.StepY = 0.25;
    const ValueRange range = RangeOf(grid);
    state.Data = {.ZMin = range.Min, .ZMax = range.Max > range.Min ? range.Max : range.Min + 1};
    cmdICopy_Click(form);
}

}  // namespace crownlab
