#include "viewer/slots.h"

#include "basis/failure.h"
#include "basis/memory_limit.h"
#include "viewer/grey_raster.h"

namespace crownlab {
namespace {

/// Where the z limits of a slot start.
constexpr double kSlotLimit = 100000000;

BoxContent ContentOfGrid(const SurfaceGrid& grid, double zMin, double zMax) {
    grid.RequireCells("box");
    return {.NumX = grid.NumX, .NumY = grid.NumY, .ZMin = zMin, .ZMax = zMax, .Cells = grid};
}

SurfaceGrid GridOfLabels(const LabelGrid& level) {
    RequireMemory(level.Labels.size() * sizeof(double), "SlotGrid");
    SurfaceGrid grid;
    grid.NumX = level.NumX;
    grid.NumY = level.NumY;
    grid.Places = level.Places;
    // A label 9999 becomes the height of an empty cell, as it should.
    grid.Z.assign(level.Labels.begin(), level.Labels.end());
    return grid;
}

}  // namespace

BoxContent ContentOf(const ViewerState& state, int box) {
    if (box == -1) return ContentOfGrid(state.WorkGrid, state.WorkZMin, state.WorkZMax);
    if (box == 0) return ContentOfGrid(state.ProcGrid, state.ProcZMin, state.ProcZMax);
    const Slot& slot = state.Slots.at(static_cast<std::size_t>(box));
    if (std::holds_alternative<std::monostate>(slot.Cells)) throw Failure(FailureKind::SubscriptOutOfRange, "SlotGrid");
    return slot;
}

SurfaceGrid GridOf(const BoxContent& content) {
    if (const SurfaceGrid* const grid = std::get_if<SurfaceGrid>(&content.Cells)) return *grid;
    return GridOfLabels(*std::get<std::shared_ptr<const LabelGrid>>(content.Cells));
}

Slot SlotOfLevel(const std::shared_ptr<const LabelGrid>& level) {
    int low = kNoLabel;
    int high = -1;
    bool any = false;
    for (const std::int16_t label : level->Labels) {
        if (label == kNoLabel) continue;
        low = any && low < label ? low : label;
        high = high > label ? high : label;
        any = true;
    }
    return {.NumX = level->NumX,
            .NumY = level->NumY,
            .ZMin = any ? low : kSlotLimit,
            .ZMax = any ? high : -kSlotLimit,
            .Cells = level};
}

Raster DrawSlot(const Slot& slot) {
    const GreyOptions options{.ZMin = slot.ZMin, .ZMax = slot.ZMax, .Threshold = {}, .EmptyRangeFails = false};
    if (const SurfaceGrid* const grid = std::get_if<SurfaceGrid>(&slot.Cells)) return DrawGrey(*grid, options);
    const auto* const level = std::get_if<std::shared_ptr<const LabelGrid>>(&slot.Cells);
    if (level == nullptr) throw Failure(FailureKind::SubscriptOutOfRange, "SlotGrid");
    return DrawGrey(**level, options);
}

}  // namespace crownlab
