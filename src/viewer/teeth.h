#pragma once

#include <vector>

#include "viewer/viewer_state.h"

namespace crownlab {

/// Columns and rows that a tooth of a multi-tooth file has at most.
inline constexpr int kMaxToothSide = 24;

/// The tooth of that number, rounded half to even. SubscriptOutOfRange outside the list, Overflow beyond 16 bits.
Tooth& ToothAt(std::vector<Tooth>& teeth, double number);

/// A tooth without a surface: its first cell lies at x = 0, as it does where no cell was ever made.
bool IsEmptyTooth(const Tooth& tooth);

/// SubscriptOutOfRange for a surface of more than 24 columns or rows.
void RequireToothSize(const SurfaceGrid& grid);

/// Puts tooth number order[i] in place i + 1, with its row of each list of `table` that holds all those teeth.
/// Teeth behind the last of `order` stay.
void ReorderTeeth(const std::vector<double>& order, std::vector<Tooth>& teeth, ToothTable& table);

}  // namespace crownlab
