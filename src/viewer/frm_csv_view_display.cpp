#include <algorithm>
#include <cmath>
#include <utility>

#include "basis/memory_limit.h"
#include "basis/number_text.h"
#include "basis/rounding.h"
#include "viewer/frm_csv_view.h"
#include "viewer/frm_csv_view_handlers.h"
#include "viewer/grey_raster.h"
#include "viewer/picture.h"
#include "viewer/slots.h"

namespace crownlab {
namespace {

/// A grid is drawn only if its steps agree to within a tenth of a percent.
bool IsSquare(const ViewerState& state) {
    const double ratio = Divide(state.StepY, state.StepX, "StepX");
    return ratio > 0.999 && ratio < 1.001;
}

/// Labels of one box that the read-out under the mouse fills.
struct ReadOut {
    Label& Column;
    Label& Row;
    Label& Grey;
    Label& x;
    Label& y;
    Label& z;
};

/// Cell under a mouse position along one side: counted from 1, capped at the side's number of cells.
int CellUnder(double position, int displaySize, int cells) {
    const double pixelsOfCell = Divide(displaySize, cells, "NumX");
    const double number = 1 + std::floor(Divide(position + 1, pixelsOfCell, "box"));
    return static_cast<int>(std::fmin(number, cells));
}

/// `greyOf(column, row from the top)` is the rounded grey of a cell.
template <typename GreyOfCell>
void ShowCellUnder(const BoxScale& box, const SurfaceGrid& grid, double x, double y, const ReadOut& labels,
                   GreyOfCell greyOf) {
    if (!box.Drawn) return;
    grid.RequireCells("box");
    const int column = CellUnder(x, box.Width, grid.NumX);
    const int fromTop = CellUnder(y, box.Height, grid.NumY);
    const int row = grid.NumY - fromTop + 1;
    grid.Require(column, row, "box");
    const SurfacePoint cell = grid.Point(column, row);
    const auto rounded = [](double value) { return GeneralText(RoundDecimals(value, 3)); };
    const bool empty = cell.z == kEmptyCellZ;
    labels.Column.Caption = std::to_string(column);
    labels.Row.Caption = std::to_string(row);
    labels.Grey.Caption = empty ? "-" : GeneralText(greyOf(column, fromTop));
    labels.x.Caption = rounded(cell.x);
    labels.y.Caption = rounded(cell.y);
    labels.z.Caption = empty ? "-" : rounded(cell.z);
}

/// Grey of a height on the scale by which a box was drawn; 0 where the box drew nothing.
double GreyOnScale(double z, const BoxScale& box) {
    const double range = box.ZMax - box.ZMin;
    return range == 0 ? 0 : RoundHalfEven(255 * ((z - box.ZMin) / range));
}

void picBoxD_MouseMove(FrmCSVView& form, double x, double y) {
    const ViewerState& state = form.State;
    const SurfaceGrid& grid = state.CellGrid;
    ShowCellUnder(state.BoxD, grid, x, y,
                  {form.lblX_D, form.lblY_D, form.lblZ_D, form.lblXR_D, form.lblYR_D, form.lblZR_D},
                  [&](int c, int t) { return GreyOnScale(grid.z(c, grid.NumY - t + 1), state.BoxD); });
}

void picBoxW_MouseMove(FrmCSVView& form, double x, double y) {
    const ViewerState& state = form.State;
    const SurfaceGrid& grid = state.WorkGrid;
    ShowCellUnder(state.BoxW, grid, x, y,
                  {form.lblX_W, form.lblY_W, form.lblZ_W, form.lblXR_W, form.lblYR_W, form.lblZR_W},
                  [&](int c, int t) { return GreyOnScale(grid.z(c, grid.NumY - t + 1), state.BoxW); });
}

void picBoxP_MouseMove(FrmCSVView& form, double x, double y) {
    const ViewerState& state = form.State;
    ShowCellUnder(state.BoxP, state.ProcGrid, x, y,
                  {form.lblX_P, form.lblY_P, form.lblZ_P, form.lblXR_P, form.lblYR_P, form.lblZR_P}, [&](int c, int t) {
                      const std::size_t at = state.ProcGrid.At(c, t);
                      if (at >= state.RenderValue.size())
                          throw Failure(FailureKind::SubscriptOutOfRange, "RenderValue");
                      return static_cast<double>(state.RenderValue[at]);
                  });
}

/// Makes every working array anew in the size of the surface.
void SizeWorkingArrays(ViewerState& state) {
    const std::uint64_t cells = state.CellGrid.Size();
    // Working copy, result, orientation, slope, rendered values, category, six label levels.
    RequireMemory(cells * (5 * sizeof(double) + sizeof(std::int32_t) + 6 * sizeof(std::int16_t)), "WorkGrid");
    state.ProcGrid = SurfaceGrid(state.CellGrid, 0);
    state.SlopeGrid = {};
    state.AspectGrid = {};
    state.RenderValue.assign(state.CellGrid.Size(), 0);
    state.Stack = {};
    state.Stack.NumX = state.NumX;
    state.Stack.NumY = state.NumY;
    for (Slot& slot : state.Slots) slot = {};
}

/// Shows a grid that was copied into the result box in grey: its values are heights of another box, which
/// the render of the last process would misread.
void ViewCopiedResult(FrmCSVView& form) {
    ViewerState& state = form.State;
    const GreyOptions options{
        .ZMin = state.ProcZMin, .ZMax = state.ProcZMax, .Threshold = {}, .EmptyRangeFails = false};
    Raster raster = DrawGrey(state.ProcGrid, options);
    state.RenderValue.resize(state.ProcGrid.Size());
    for (int t = 1; t <= state.ProcGrid.NumY; ++t) {
        for (int i = 1; i <= state.ProcGrid.NumX; ++i)
            state.RenderValue[state.ProcGrid.At(i, t)] = raster.At(i - 1, t - 1).Red;
    }
    ShowRaster(form, std::move(raster), form.picBoxP, state.ProcGrid.NumX, state.ProcGrid.NumY, kWorkLongSide);
    state.BoxP = ScaleOf(form.picBoxP, state.ProcZMin, state.ProcZMax);
}

/// -1 for the working copy, 0 for the result, else a slot.
int BoxNumber(const std::string& text) {
    if (text == "W") return -1;
    if (text == "P") return 0;
    return static_cast<int>(TextBoxNumber(text));
}

}  // namespace

void cmdViewCSV_Click(FrmCSVView& form) {
    ViewerState& state = form.State;
    form.MousePointer = kPointerHourglass;
    state.CellGrid.RequireCells("CellGrid");
    const bool square = IsSquare(state);
    GreyOptions options{.ZMin = state.Data.ZMin, .ZMax = state.Data.ZMax, .Threshold = {}, .EmptyRangeFails = true};
    if (form.chkThresholdB.Checked) options.Threshold = form.txtThresholdB.Number();
    Raster raster = square ? DrawGrey(state.CellGrid, options) : BlankRaster(state.NumX, state.NumY);
    ShowRaster(form, std::move(raster), form.picBoxD, state.NumX, state.NumY, kPicLongSide);
    state.BoxD = square ? ScaleOf(form.picBoxD, state.Data.ZMin, state.Data.ZMax) : ScaleOf(form.picBoxD, 0, 0);
    if (state.VrmlActive) cmdCopyWRL_Click(form);
    form.MousePointer = kPointerNormal;
}

void cmdICopy_Click(FrmCSVView& form) {
    ViewerState& state = form.State;
    state.CellGrid.RequireCells("CellGrid");
    SizeWorkingArrays(state);
    state.WorkGrid = state.CellGrid;
    state.WorkZMin = state.Data.ZMin;
    state.WorkZMax = state.Data.ZMax;
    const BoxSize size = SizeOfBox(state.NumX, state.NumY, kWorkLongSide);
    form.picBoxP.Width = size.Width;
    form.picBoxP.Height = size.Height;
    for (int slot = 1; slot <= 4; ++slot) {
        form.SlotBox(slot).Width = kSlotLongSide;
        form.SlotBox(slot).Height = kSlotLongSide;
    }
    ViewWorkGrid(form);
}

void ViewWorkGrid(FrmCSVView& form) {
    ViewerState& state = form.State;
    state.WorkGrid.RequireCells("WorkGrid");
    Raster raster = DrawGrey(
        state.WorkGrid, {.ZMin = state.WorkZMin, .ZMax = state.WorkZMax, .Threshold = {}, .EmptyRangeFails = true});
    ShowRaster(form, std::move(raster), form.picBoxW, state.WorkGrid.NumX, state.WorkGrid.NumY, kWorkLongSide);
    state.BoxW = ScaleOf(form.picBoxW, state.WorkZMin, state.WorkZMax);
}

void ClearPicBox(FrmCSVView& form) {
    ViewerState& state = form.State;
    Raster raster = BlankRaster(std::max(1, state.NumX), std::max(1, state.NumY));
    for (int y = 0; y < state.NumY; ++y) std::fill_n(raster.Row(y), state.NumX, Colour{});
    ShowRaster(form, std::move(raster), form.picBoxD, std::max(1, state.NumX), std::max(1, state.NumY), kPicLongSide);
    form.picBoxD.Width = kPicLongSide;
    form.picBoxD.Height = kPicLongSide;
    state.BoxD.Drawn = false;
}

void ViewICSV(FrmCSVView& form, int slot, int mode) {
    constexpr int redraw = -10;
    PictureBox& box = form.SlotBox(slot);
    const Slot& source = form.State.Slots[static_cast<std::size_t>(slot)];
    if (mode == redraw) {
        ShowRaster(form, DrawSlot(source), box, source.NumX, source.NumY, kSlotLongSide);
    } else {
        const BoxSize size = SizeOfBox(source.NumX, source.NumY, kSlotLongSide);
        box.Width = size.Width;
        box.Height = size.Height;
    }
}

void DisplayResultsIPicBox(FrmCSVView& form, int source, int slot) {
    ViewerState& state = form.State;
    const std::shared_ptr<const LabelGrid> level = state.Stack.Level.at(static_cast<std::size_t>(source));
    if (!level) throw Failure(FailureKind::SubscriptOutOfRange, "ClumpStack");
    state.Slots.at(static_cast<std::size_t>(slot)) = SlotOfLevel(level);
    ViewICSV(form, slot, -10);
}

void CopyPicBoxProc(FrmCSVView& form, int from, int to) {
    ViewerState& state = form.State;
    const BoxContent content = ContentOf(state, from);
    if (to == -1) {
        state.WorkGrid = GridOf(content);
        state.WorkZMin = content.ZMin;
        state.WorkZMax = content.ZMax;
        ViewWorkGrid(form);
    } else if (to == 0) {
        state.ProcGrid = GridOf(content);
        state.ProcZMin = content.ZMin;
        state.ProcZMax = content.ZMax;
        ViewCopiedResult(form);
    } else {
        state.Slots.at(static_cast<std::size_t>(to)) = content;
        ViewICSV(form, to, -10);
    }
}

void cmdCopyPicBox_Click(FrmCSVView& form) {
    const int from = BoxNumber(form.cmbPicBoxCopyFrom.Text());
    const int to = BoxNumber(form.cmbPicBoxCopyTo.Text());
    if (from != to) CopyPicBoxProc(form, from, to);
}

void RegisterDisplay(FrmCSVView& form) {
    form.On("cmdViewCSV_Click", cmdViewCSV_Click);
    form.On("cmdICopy_Click", cmdICopy_Click);
    form.On("cmdCopyPicBox_Click", cmdCopyPicBox_Click);
    form.OnMouse("picBoxD_MouseMove", picBoxD_MouseMove);
    form.OnMouse("picBoxW_MouseMove", picBoxW_MouseMove);
    form.OnMouse("picBoxP_MouseMove", picBoxP_MouseMove);
}

}  // namespace crownlab
