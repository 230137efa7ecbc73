#pragma once

#include <memory>

#include "forms/raster.h"
#include "viewer/viewer_state.h"

namespace crownlab {

/// A grid with its z limits as it is copied between boxes.
using BoxContent = Slot;

/// What a box holds: -1 the working copy, 0 the result, 1 to 4 a slot. SubscriptOutOfRange if it holds nothing.
BoxContent ContentOf(const ViewerState& state, int box);

/// The content as a grid of heights; labels become heights, cells without a label empty cells.
SurfaceGrid GridOf(const BoxContent& content);

/// A slot that shares a stage of the patch count. Its z limits start at 100000000 and -100000000 and are
/// those of the cells with a value.
Slot SlotOfLevel(const std::shared_ptr<const LabelGrid>& level);

/// The slot in grey; all greys are 0 where its z range is empty.
Raster DrawSlot(const Slot& slot);

}  // namespace crownlab
