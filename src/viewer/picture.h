#pragma once

#include "forms/raster.h"
#include "viewer/frm_csv_view.h"

namespace crownlab {

/// Display pixels that the longer side of a grid is stretched to: the surface as read, the working copy and
/// the latest result, the result slots.
inline constexpr int kPicLongSide = 313;
inline constexpr int kWorkLongSide = 249;
inline constexpr int kSlotLongSide = 161;

/// Puts a raster on the off-screen box and, stretched to `longSide`, on `box`.
void ShowRaster(FrmCSVView& form, Raster raster, PictureBox& box, int numX, int numY, int longSide);

/// The scale of a box just drawn, by which the read-out reckons.
BoxScale ScaleOf(const PictureBox& box, double zMin, double zMax);

}  // namespace crownlab
